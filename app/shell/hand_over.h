#pragma once

// How one workspace hands work to another without knowing it. The receiving
// workspace implements one of these interfaces; `app/main.cpp` connects the
// giver to the receiver, so no workspace folder includes another. A receiver
// comes to the front by itself (`Workspace::activationRequested`).

#include "core/base/instant.h"
#include "core/timeline/timeline_calendar.h"
#include "core/timeline/timeline_point.h"

#include <QString>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace trackloom {

/// A GPX document made from a selection of the history, for the track editor.
struct TrackHandOver {
    std::string gpx;
    /// Names the selection in the editor ("Google-Zeitachse 2025-06-01").
    QString title;
    /// The history file the selection came from; never to be overwritten.
    std::optional<QString> sourcePath;
};

class TrackReceiver {
  public:
    virtual ~TrackReceiver() = default;
    virtual void receiveTrack(TrackHandOver track) = 0;
};

/// The points a place search looks through, and the scope they were shown in.
struct PlaceScope {
    std::shared_ptr<const std::vector<TimelinePoint>> points;
    /// The shown day or applied range; absent when the whole history is shown.
    std::optional<DateInterval> interval;
    QString title;
    const date::time_zone* zone = nullptr;
    /// The history file the points came from; nothing is ever written over it.
    std::optional<QString> sourcePath;
};

class PlaceScopeReceiver {
  public:
    virtual ~PlaceScopeReceiver() = default;
    virtual void explore(PlaceScope scope) = 0;
};

/// A calendar day of the history to show, as the instant it starts in `zone`.
class DayReceiver {
  public:
    virtual ~DayReceiver() = default;
    virtual void showDay(Instant day, const date::time_zone* zone) = 0;
};

} // namespace trackloom
