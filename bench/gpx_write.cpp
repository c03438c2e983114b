// Writing the ~50 MB generated GPX: libxml2's bare parse of the same bytes as the
// baseline, against the data of the unchanged track (its bytes written back) and
// the export of its largest section (document copy, edit, write, read back).
// What each run built is freed outside the timed part.

#include "bench/support/large_gpx.h"
#include "bench/support/measure.h"
#include "core/base/allocator_tuning.h"
#include "core/base/file_io.h"
#include "core/base/xml/xml_internal.h"
#include "core/track/gpx_track.h"

#include <algorithm>
#include <libxml/parser.h>
#ifdef __GLIBC__
#include <malloc.h>
#endif

using namespace trackloom;

int main() {
    tuneAllocatorForLargeDocuments();
    const auto path = bench::ensureLargeGPX(bench::benchmarkDataFolder());
    const auto bytes = readFileBytes(path);
    const auto track = GPXTrack::read(bytes, path.filename().string());
    const auto& segments = track->segments();
    const auto largest =
        *std::max_element(segments.begin(), segments.end(), [](const auto& a, const auto& b) {
            return a.pointIDs.size() < b.pointIDs.size();
        });
    constexpr int repetitions = 7;

    xmlDocPtr document = nullptr;
    std::string written;
    TrackPtr exported;
    const auto parse = [&] {
        document = xmlReadMemory(bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr,
                                 xml::parseOptions());
    };
    const auto write = [&] { written = track->data(); };
    const auto exportSection = [&] { exported = track->exportingSegment(largest.id); };
    bool faithful = true;
    std::size_t exportedPoints = 0;
    const auto release = [&] {
        xmlFreeDoc(document);
        document = nullptr;
        if (!written.empty()) {
            faithful = faithful && written == bytes;
        }
        std::string().swap(written);
        if (exported) {
            exportedPoints = exported->points().size();
        }
        exported.reset();
#ifdef __GLIBC__
        // The next large allocation would otherwise first merge the millions of
        // small blocks just freed, inside the timed part of whatever runs next.
        malloc_trim(0);
#endif
    };
    const auto medians =
        bench::interleavedMedianMilliseconds(repetitions, {parse, write, exportSection}, release);

    bench::report("file size", static_cast<double>(bytes.size()) / 1048576.0, "MiB");
    bench::report("data identical to the file", faithful ? 1 : 0, "");
    bench::report("points of the largest section", static_cast<double>(exportedPoints), "");
    bench::report("(a) libxml2 parse, median", medians[0], "ms");
    bench::report("(b) data of the unchanged track, median", medians[1], "ms");
    bench::report("(c) exportingSegment of the largest, median", medians[2], "ms");
    bench::report("ratio b/a", medians[1] / medians[0], "");
    bench::report("ratio c/a", medians[2] / medians[0], "");
    bench::report("peak RSS", static_cast<double>(bench::peakRSSBytes()) / 1048576.0, "MiB");
}
