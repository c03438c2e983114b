#pragma once

// Undo states kept small. A parsed document costs many times its file size, so a
// session keeps only its current track live and every other state as the
// difference of its serialised bytes to the state next to it on the undo/redo
// chain: one edit changes a few bytes, so the difference is tiny, and the state
// next to it is always at hand when the state is needed again.

#include "core/track/gpx_track.h"

#include <set>
#include <string>
#include <string_view>

namespace trackloom {

/// How to turn one text into another: the shared start and end are kept by
/// length, the differing middle is stored.
struct ByteDelta {
    std::size_t prefix = 0;
    std::size_t suffix = 0;
    std::string middle;
};

/// The delta that turns `from` into `to`.
ByteDelta deltaBetween(std::string_view from, std::string_view to);
/// `from` with the delta applied.
std::string applied(std::string_view from, const ByteDelta& delta);

/// A track stored as a delta to a neighbouring state's bytes, with what reading
/// it back needs to give an equal track.
struct PackedTrack {
    ByteDelta bytes;
    std::string filename;
    std::set<std::int64_t> airRouteIDs;
};

/// Packs `track`, whose serialised form is `bytes`, against `neighbourBytes`.
PackedTrack packed(const GPXTrack& track, std::string_view bytes, std::string_view neighbourBytes);

struct UnpackedTrack {
    TrackPtr track;
    std::string bytes;
};
/// Reads a packed track back from its neighbour's bytes. Throws `GPXError`.
UnpackedTrack unpacked(const PackedTrack& packed, std::string_view neighbourBytes);

} // namespace trackloom
