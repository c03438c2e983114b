#pragma once

// A deterministic location history in the Android form of the Google Maps
// timeline export, about 250 MB: years of paths of 10 to 60 points between
// stays and coarse movements, pretty-printed the way phones write it.
// Generated once into the build folder.

#include <filesystem>

namespace trackloom::bench {

/// The generated file's path inside `folder`, writing it first when missing.
std::filesystem::path ensureLargeTimeline(const std::filesystem::path& folder);

} // namespace trackloom::bench
