// Reading the ~50 MB generated GPX: libxml2's bare parse with our options as the
// baseline, against the whole GPXTrack construction (parse, derive, analyse).
// What each run built is freed outside the timed part.

#include "bench/support/large_gpx.h"
#include "bench/support/measure.h"
#include "core/base/allocator_tuning.h"
#include "core/base/file_io.h"
#include "core/base/xml/xml_internal.h"
#include "core/track/gpx_track.h"

#include <libxml/parser.h>
#include <malloc.h>

using namespace trackloom;

int main() {
    tuneAllocatorForLargeDocuments();
    const auto path = bench::ensureLargeGPX(bench::benchmarkDataFolder());
    const auto bytes = readFileBytes(path);
    constexpr int repetitions = 7;

    xmlDocPtr document = nullptr;
    TrackPtr track;
    const auto parse = [&] {
        document = xmlReadMemory(bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr,
                                 xml::parseOptions());
    };
    const auto construct = [&] { track = GPXTrack::read(bytes, path.filename().string()); };
    std::size_t points = 0;
    const auto release = [&] {
        xmlFreeDoc(document);
        document = nullptr;
        if (track) {
            points = track->points().size();
        }
        track.reset();
        // Hand freed blocks back now, or glibc merges them inside the next timed run.
        malloc_trim(0);
    };
    const auto medians =
        bench::interleavedMedianMilliseconds(repetitions, {parse, construct}, release);

    bench::report("file size", static_cast<double>(bytes.size()) / 1048576.0, "MiB");
    bench::report("points", static_cast<double>(points), "");
    bench::report("(a) libxml2 parse, median", medians[0], "ms");
    bench::report("(b) GPXTrack construction, median", medians[1], "ms");
    bench::report("ratio b/a (goal <= 1.25)", medians[1] / medians[0], "");
    bench::report("peak RSS", static_cast<double>(bench::peakRSSBytes()) / 1048576.0, "MiB");
}
