// Feeds arbitrary bytes to the GPX reader: it may refuse them with a GPXError,
// never crash, hang or touch a file.

#include "core/base/gpx_error.h"
#include "core/track/gpx_track.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        const auto track = trackloom::GPXTrack::read(
            std::string_view(reinterpret_cast<const char*>(data), size), "fuzz.gpx");
        (void)track->removingAirRoutes();
    } catch (const trackloom::GPXError&) {
    }
    return 0;
}
