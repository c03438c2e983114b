// The editing session on the ~50 MB generated GPX: each kind of edit (delete,
// move, insert, split, trim) and its undo against libxml2's bare parse of the
// same bytes; the parts of an edit timed on their own; and the memory of a long
// session (50 edits) against that of the freshly opened track, each measured in
// a child process.
//
// A replaced state is freed on the session's release thread while the user
// looks at the result; the benchmark waits for that outside the timed part, so
// that it does not compete with the next measurement on a two-core machine.

#include "bench/support/large_gpx.h"
#include "bench/support/measure.h"
#include "core/base/allocator_tuning.h"
#include "core/base/background_release.h"
#include "core/base/file_io.h"
#include "core/base/xml/xml_internal.h"
#include "core/editing/editing_session.h"
#include "core/editing/packed_track.h"
#include "core/track/gpx_track.h"

#include <algorithm>
#include <libxml/parser.h>
#include <malloc.h>

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

/// Where the time of one edit goes: the copy of the document, deriving the new
/// track from the edited copy, and the session's packing of the state it leaves.
void reportParts(const GPXTrack& track, double parse) {
    std::optional<GPXTrack::EditableCopy> copy;
    TrackPtr derived;
    const auto parts = bench::interleavedMedianMilliseconds(
        3,
        {[&] { copy = track.editableCopy(); },
         [&] { derived = GPXTrack::readEdited(track.editableCopy().document, "x"); },
         [&] { deltaBetween(track.data(), track.data()); }},
        [&] {
            copy.reset();
            derived.reset();
            malloc_trim(0);
        });
    bench::report("  copy of the document / parse", parts[0] / parse, "");
    bench::report("  copy and derivation of the track / parse", parts[1] / parse, "");
    bench::report("  session packing (serialise twice, delta) / parse", parts[2] / parse, "");
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

int main() {
    tuneAllocatorForLargeDocuments();
    const auto path = bench::ensureLargeGPX(bench::benchmarkDataFolder());
    reportMemory(path);

    const auto bytes = readFileBytes(path);
    const auto track = GPXTrack::read(bytes, path.filename().string());
    GPXEditingSession session(track, false);
    // The opened state is packed on the first edit; every edit measured below
    // starts from an edited state, as all but the first of a session do.
    session.deletePoint(0);
    constexpr int repetitions = 5;
    std::int64_t next = 1;
    // Inside one of the first twelve sections (12,000 points each), never at an end.
    const auto someInteriorPoint = [&] {
        ++next;
        return next * 7919 % 12 * 12000 + 100 + next * 31 % 11000;
    };
    const auto undo = [&] { session.undo(); };
    xmlDocPtr document = nullptr;
    const auto medians = bench::interleavedMedianMilliseconds(
        repetitions,
        {[&] {
             document = xmlReadMemory(bytes.data(), static_cast<int>(bytes.size()), nullptr,
                                      nullptr, xml::parseOptions());
         },
         [&] { session.deletePoint(someInteriorPoint()); }, undo,
         [&] {
             session.move(someInteriorPoint(), {47.25, 8.25});
         },
         undo,
         [&] {
             session.insert({{47.25, 8.25}, {47.26, 8.26}}, someInteriorPoint());
         },
         undo, [&] { session.split(someInteriorPoint(), "Hin", "Rück"); }, undo,
         [&] { session.trimEnd(216000 + someInteriorPoint() % 1000); }, undo},
        [&] {
            xmlFreeDoc(document);
            document = nullptr;
            waitForBackgroundReleases();
            malloc_trim(0);
        });

    const double parse = medians[0];
    const double undoMedian = median({medians[2], medians[4], medians[6], medians[8], medians[10]});
    bench::report("points", static_cast<double>(track->points().size()), "");
    bench::report("(a) libxml2 parse, median", parse, "ms");
    const char* names[] = {"delete", "move", "insert", "split", "trim"};
    for (std::size_t i = 0; i < 5; ++i) {
        bench::report(std::string("session ") + names[i] + " / parse (goal <= 2)",
                      medians[1 + 2 * i] / parse, "");
    }
    bench::report("session undo / parse (goal <= 2)", undoMedian / parse, "");
    reportParts(*track, parse);
}
