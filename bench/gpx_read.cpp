// Reading the ~50 MB generated GPX: libxml2's bare parse with our options as the
// baseline, against the whole GPXTrack construction (parse, derive, analyse).

#include "bench/support/large_gpx.h"
#include "bench/support/measure.h"
#include "core/base/file_io.h"
#include "core/base/xml/xml_internal.h"
#include "core/track/gpx_track.h"

#include <libxml/parser.h>

using namespace trackloom;

int main() {
    const auto path = bench::ensureLargeGPX(bench::benchmarkDataFolder());
    const auto bytes = readFileBytes(path);
    constexpr int repetitions = 7;

    std::size_t points = 0;
    const auto medians = bench::interleavedMedianMilliseconds(
        repetitions,
        {[&] {
             xmlDocPtr doc = xmlReadMemory(bytes.data(), static_cast<int>(bytes.size()), nullptr,
                                           nullptr, xml::parseOptions());
             xmlFreeDoc(doc);
         },
         [&] { points = GPXTrack::read(bytes, path.filename().string())->points().size(); }});
    const double parseOnly = medians[0];
    const double construction = medians[1];

    bench::report("file size", static_cast<double>(bytes.size()) / 1048576.0, "MiB");
    bench::report("points", static_cast<double>(points), "");
    bench::report("(a) libxml2 parse, median", parseOnly, "ms");
    bench::report("(b) GPXTrack construction, median", construction, "ms");
    bench::report("ratio b/a (goal <= 1.25)", construction / parseOnly, "");
    bench::report("peak RSS", static_cast<double>(bench::peakRSSBytes()) / 1048576.0, "MiB");
}
