#include "core/editing/packed_track.h"

#include <algorithm>

namespace trackloom {

ByteDelta deltaBetween(std::string_view from, std::string_view to) {
    const auto shorter = std::min(from.size(), to.size());
    const auto prefix = static_cast<std::size_t>(
        std::mismatch(from.begin(), from.begin() + static_cast<std::ptrdiff_t>(shorter), to.begin())
            .first -
        from.begin());
    const auto rest = shorter - prefix;
    const auto suffix = static_cast<std::size_t>(
        std::mismatch(from.rbegin(), from.rbegin() + static_cast<std::ptrdiff_t>(rest), to.rbegin())
            .first -
        from.rbegin());
    return ByteDelta{prefix, suffix, std::string(to.substr(prefix, to.size() - prefix - suffix))};
}

std::string applied(std::string_view from, const ByteDelta& delta) {
    std::string result;
    result.reserve(delta.prefix + delta.middle.size() + delta.suffix);
    result.append(from.substr(0, delta.prefix));
    result.append(delta.middle);
    result.append(from.substr(from.size() - delta.suffix));
    return result;
}

PackedTrack packed(const GPXTrack& track, std::string_view bytes, std::string_view neighbourBytes) {
    std::set<std::int64_t> airRouteIDs;
    for (const auto& route : track.airRoutes()) {
        airRouteIDs.insert(route.id);
    }
    // Reading back takes the fallback name from the file name without its
    // extension, so an extension is added for the name to survive unchanged.
    auto filename = track.name().empty() ? std::string() : track.name() + ".gpx";
    return PackedTrack{deltaBetween(neighbourBytes, bytes), std::move(filename),
                       std::move(airRouteIDs)};
}

UnpackedTrack unpacked(const PackedTrack& packed, std::string_view neighbourBytes) {
    auto bytes = applied(neighbourBytes, packed.bytes);
    auto track = GPXTrack::read(bytes, packed.filename, packed.airRouteIDs);
    return UnpackedTrack{std::move(track), std::move(bytes)};
}

} // namespace trackloom
