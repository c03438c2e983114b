// The time operations on the ~50 MB generated GPX: shifting and generation from a
// speed, each against libxml2's bare parse of the same bytes as the baseline
// (whose freeing stays outside the timed part).

#include "bench/support/large_gpx.h"
#include "bench/support/measure.h"
#include "core/base/allocator_tuning.h"
#include "core/base/file_io.h"
#include "core/base/xml/xml_internal.h"
#include "core/editing/time_operations.h"
#include "core/track/gpx_track.h"

#include <libxml/parser.h>

using namespace trackloom;

int main() {
    tuneAllocatorForLargeDocuments();
    const auto path = bench::ensureLargeGPX(bench::benchmarkDataFolder());
    const auto bytes = readFileBytes(path);
    const auto track = GPXTrack::read(bytes, path.filename().string());
    const auto start = *GPXTrack::parseTime("2025-06-01T08:30:00Z");
    constexpr int repetitions = 5;

    std::size_t written = 0;
    xmlDocPtr document = nullptr;
    const auto parse = [&] {
        document = xmlReadMemory(bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr,
                                 xml::parseOptions());
    };
    const auto shift = [&] { written = shifted(*track, start).size(); };
    const auto generate = [&] { written = generated(*track, start, 14.0).size(); };
    const auto release = [&] {
        xmlFreeDoc(document);
        document = nullptr;
    };
    const auto medians =
        bench::interleavedMedianMilliseconds(repetitions, {parse, shift, generate}, release);

    bench::report("file size", static_cast<double>(bytes.size()) / 1048576.0, "MiB");
    bench::report("points", static_cast<double>(track->points().size()), "");
    bench::report("written size", static_cast<double>(written) / 1048576.0, "MiB");
    bench::report("(a) libxml2 parse, median", medians[0], "ms");
    bench::report("(b) shifting, median", medians[1], "ms");
    bench::report("(c) generating from a speed, median", medians[2], "ms");
    bench::report("ratio b/a", medians[1] / medians[0], "");
    bench::report("ratio c/a", medians[2] / medians[0], "");
}
