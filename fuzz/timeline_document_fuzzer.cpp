// Feeds arbitrary bytes to the timeline reader: it may refuse them with a
// GPXError, never crash or hang. What it accepts must survive a working-copy
// round trip unchanged and export its days as GPX.

#include "core/base/gpx_error.h"
#include "core/base/time_zones.h"
#include "core/timeline/timeline_session.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace {

using namespace trackloom;

void checkAccepted(const TimelineDocument& document) {
    const auto copy = TimelineDocument::read(TimelineDocument::workingCopy(document.points()));
    if (copy.points() != document.points()) {
        __builtin_trap();
    }
    const TimelineSession session(document, findTimeZone("Europe/Berlin"));
    // A stay may reach over a hundred years of days; a few show whether the
    // export works, all of them would only slow the search down.
    auto days = session.days();
    days.resize(std::min<std::size_t>(days.size(), 8));
    for (const auto& day : days) {
        try {
            (void)session.gpxOn(day.date, true, true);
        } catch (const GPXError&) {
            __builtin_trap();
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::optional<TimelineDocument> document;
    try {
        document = TimelineDocument::read(std::string(reinterpret_cast<const char*>(data), size));
    } catch (const GPXError&) {
        return 0;
    }
    checkAccepted(*document);
    return 0;
}
