#pragma once

// The one place where a search text may leave the machine: a search for a
// natural-language place text on an online map service. The explorer only
// calls it when the user asks for it, never while typing; tests replace it
// with a scripted search.

#include "core/places/place_analysis.h"

#include <QString>
#include <functional>
#include <optional>
#include <variant>
#include <vector>

namespace trackloom {

/// One item an online search found.
struct OnlinePlace {
    /// The place's own name, when the service knows one.
    std::optional<QString> name;
    /// The full address line, when the service gives one.
    std::optional<QString> detail;
    PlaceCoordinate coordinate;

    friend bool operator==(const OnlinePlace&, const OnlinePlace&) = default;
};

/// The items found, or a German description of why the search failed.
using OnlineSearchResult = std::variant<std::vector<OnlinePlace>, QString>;

class OnlinePlaceSearch {
  public:
    using Done = std::function<void(OnlineSearchResult)>;

    virtual ~OnlinePlaceSearch() = default;
    /// Starts a search for `text`, replacing a running one (whose `done` is then
    /// never called). `done` is called once, later, on the calling thread.
    virtual void search(const QString& text, Done done) = 0;
    /// Ends the running search; its `done` is never called.
    virtual void cancel() = 0;
};

} // namespace trackloom
