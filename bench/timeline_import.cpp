// Importing a ~250 MB Android timeline export: simdjson parsing the bytes into
// its document tree (a fresh parser each time, as an import has) is the
// baseline, against reading the history into points and building the session
// with its day index. Peak memory is taken in a child process that reads the
// file itself, so nothing this process holds counts.

#include "bench/support/large_timeline.h"
#include "bench/support/measure.h"
#include "core/base/allocator_tuning.h"
#include "core/base/file_io.h"
#include "core/base/time_zones.h"
#include "core/timeline/timeline_session.h"

#include <cstdlib>
#include <memory>
#include <simdjson.h>

using namespace trackloom;

int main() {
    tuneAllocatorForLargeDocuments();
    const auto path = bench::ensureLargeTimeline(bench::benchmarkDataFolder());
    const auto* zone = findTimeZone("Europe/Berlin");
    const long peak = bench::peakRSSOfChild(
        [&] { const TimelineSession session(TimelineDocument::readFile(path), zone); });

    std::string bytes = readFileBytes(path);
    bytes.reserve(bytes.size() + simdjson::SIMDJSON_PADDING);
    std::string input;
    const auto prepareInput = [&] {
        input.reserve(bytes.size() + simdjson::SIMDJSON_PADDING);
        input.assign(bytes);
    };
    prepareInput();

    std::unique_ptr<simdjson::dom::parser> parser;
    std::unique_ptr<TimelineSession> session;
    std::size_t points = 0;
    std::size_t days = 0;
    const auto parse = [&] {
        parser = std::make_unique<simdjson::dom::parser>();
        simdjson::dom::element root;
        if (parser->parse(bytes.data(), bytes.size(), false).get(root) != simdjson::SUCCESS) {
            std::abort();
        }
    };
    const auto import = [&] {
        session = std::make_unique<TimelineSession>(TimelineDocument::read(std::move(input)), zone);
    };
    const auto release = [&] {
        if (session) {
            points = session->document().points().size();
            days = session->days().size();
        }
        parser.reset();
        session.reset();
        prepareInput();
    };
    constexpr int repetitions = 5;
    const auto medians =
        bench::interleavedMedianMilliseconds(repetitions, {parse, import}, release);

    const double fileMiB = static_cast<double>(bytes.size()) / 1048576.0;
    bench::report("file size", fileMiB, "MiB");
    bench::report("points", static_cast<double>(points), "");
    bench::report("days", static_cast<double>(days), "");
    bench::report("(a) simdjson DOM parse, median", medians[0], "ms");
    bench::report("(b) read + session with day index, median", medians[1], "ms");
    bench::report("ratio b/a (goal <= 4)", medians[1] / medians[0], "");
    bench::report("peak RSS of (b) from the file", static_cast<double>(peak) / 1048576.0, "MiB");
    bench::report("peak RSS / file size (goal <= 3)",
                  static_cast<double>(peak) / 1048576.0 / fileMiB, "");
}
