// The time operations on the ~50 MB generated GPX: shifting and generation from a
// speed, each against libxml2's bare parse of the same bytes as the baseline.

#include "bench/support/large_gpx.h"
#include "bench/support/measure.h"
#include "core/base/file_io.h"
#include "core/base/xml/xml_internal.h"
#include "core/editing/time_operations.h"
#include "core/track/gpx_track.h"

#include <libxml/parser.h>

using namespace trackloom;

int main() {
    const auto path = bench::ensureLargeGPX(bench::benchmarkDataFolder());
    const auto bytes = readFileBytes(path);
    const auto track = GPXTrack::read(bytes, path.filename().string());
    const auto start = *GPXTrack::parseTime("2025-06-01T08:30:00Z");
    constexpr int repetitions = 5;

    std::size_t written = 0;
    const auto medians = bench::interleavedMedianMilliseconds(
        repetitions, {[&] {
                          xmlDocPtr doc =
                              xmlReadMemory(bytes.data(), static_cast<int>(bytes.size()), nullptr,
                                            nullptr, xml::parseOptions());
                          xmlFreeDoc(doc);
                      },
                      [&] { written = shifted(*track, start).size(); },
                      [&] { written = generated(*track, start, 14.0).size(); }});

    bench::report("file size", static_cast<double>(bytes.size()) / 1048576.0, "MiB");
    bench::report("points", static_cast<double>(track->points().size()), "");
    bench::report("written size", static_cast<double>(written) / 1048576.0, "MiB");
    bench::report("(a) libxml2 parse, median", medians[0], "ms");
    bench::report("(b) shifted(to:), median", medians[1], "ms");
    bench::report("(c) generated(start:speedKMH:), median", medians[2], "ms");
    bench::report("ratio b/a", medians[1] / medians[0], "");
    bench::report("ratio c/a", medians[2] / medians[0], "");
}
