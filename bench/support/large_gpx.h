#pragma once

// A deterministic GPX file just under the reader's 50 MB limit: several tracks of
// several segments, about 240,000 points, each with elevation, time and a
// Garmin-style heart-rate extension. Generated once into the build folder.

#include <filesystem>

namespace trackloom::bench {

/// The generated file's path inside `folder`, writing it first when missing.
std::filesystem::path ensureLargeGPX(const std::filesystem::path& folder);

/// A second file at the same limit made of 1.75 million bare `trkpt` elements
/// in one section, written into `folder` when missing.
std::filesystem::path ensureDenseGPX(const std::filesystem::path& folder);

} // namespace trackloom::bench
