// The editing session on the ~50 MB generated GPX: one delete, one move and one
// undo, each against libxml2's bare parse of the same bytes, with the parts of an
// edit timed on their own; and the memory of a long session (50 edits) against
// that of the freshly opened track, each measured in a child process.

#include "bench/support/large_gpx.h"
#include "bench/support/measure.h"
#include "core/base/file_io.h"
#include "core/base/xml/xml_internal.h"
#include "core/editing/editing_session.h"
#include "core/editing/packed_track.h"
#include "core/track/gpx_track.h"

#include <libxml/parser.h>

using namespace trackloom;

namespace {

TrackPtr openLarge(const std::filesystem::path& path) {
    return GPXTrack::read(readFileBytes(path), path.filename().string());
}

/// Deletes and moves points spread over the track, alternately.
void edit(GPXEditingSession& session, int count) {
    for (int index = 0; index < count; ++index) {
        const auto displayed = static_cast<std::int64_t>(index) * 4099 % 200000;
        if (index % 2 == 0) {
            session.deletePoint(displayed);
        } else {
            session.move(displayed, {47.5, 8.5});
        }
    }
}

void reportMemory(const std::filesystem::path& path) {
    const long opened = bench::peakRSSOfChild([&] { openLarge(path); });
    const long edited = bench::peakRSSOfChild([&] {
        GPXEditingSession session(openLarge(path), false);
        edit(session, 50);
    });
    bench::report("peak RSS, track opened", static_cast<double>(opened) / 1048576.0, "MiB");
    bench::report("peak RSS, session after 50 edits", static_cast<double>(edited) / 1048576.0,
                  "MiB");
    bench::report("ratio (goal <= 2.5)", static_cast<double>(edited) / opened, "");
}

/// Where the time of one edit goes: the operation's copy, serialisation and
/// read-back, then the session's own packing of the state it leaves.
void reportParts(const GPXTrack& track, double parse) {
    std::string bytes;
    TrackPtr result;
    const auto parts = bench::interleavedMedianMilliseconds(
        3, {[&] { auto copy = track.editableCopy(); },
            [&] { bytes = track.editableCopy().document.serialize(); },
            [&] { auto document = xml::Document::parse(bytes); },
            [&] { result = GPXTrack::read(bytes, "x"); },
            [&] { deltaBetween(bytes, result->data()); }});
    bench::report("  copy (and free) / parse", parts[0] / parse, "");
    bench::report("  copy + serialise / parse", parts[1] / parse, "");
    bench::report("  parse with layout / parse", parts[2] / parse, "");
    bench::report("  read back (parse, derive, analyse) / parse", parts[3] / parse, "");
    bench::report("  session packing (serialise, delta) / parse", parts[4] / parse, "");
}

} // namespace

int main() {
    const auto path = bench::ensureLargeGPX(bench::benchmarkDataFolder());
    reportMemory(path);

    const auto bytes = readFileBytes(path);
    const auto track = GPXTrack::read(bytes, path.filename().string());
    GPXEditingSession session(track, false);
    session.deletePoint(0);
    constexpr int repetitions = 5;
    std::int64_t next = 1;
    xmlDocPtr document = nullptr;
    const auto medians = bench::interleavedMedianMilliseconds(
        repetitions,
        {[&] {
             document = xmlReadMemory(bytes.data(), static_cast<int>(bytes.size()), nullptr,
                                      nullptr, xml::parseOptions());
         },
         [&] { session.deletePoint(next++ * 7919 % 200000); },
         [&] {
             session.move(next * 6007 % 200000, {47.25, 8.25});
         },
         [&] { session.undo(); }},
        [&] {
            xmlFreeDoc(document);
            document = nullptr;
        });

    bench::report("points", static_cast<double>(track->points().size()), "");
    bench::report("(a) libxml2 parse, median", medians[0], "ms");
    bench::report("(b) session delete, median", medians[1], "ms");
    bench::report("(c) session move, median", medians[2], "ms");
    bench::report("(d) session undo, median", medians[3], "ms");
    bench::report("ratio b/a", medians[1] / medians[0], "");
    bench::report("ratio c/a", medians[2] / medians[0], "");
    bench::report("ratio d/a", medians[3] / medians[0], "");
    reportParts(*track, medians[0]);
}
