#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace trackloom {

/// Reads a whole file; throws `GPXError` naming the file when it cannot be read.
std::string readFileBytes(const std::filesystem::path& path);

/// Writes `bytes` to a temporary file in the destination's folder and renames it
/// into place, so a failure never leaves half a file behind. Throws `GPXError`.
void writeFileAtomically(const std::filesystem::path& path, std::string_view bytes);

} // namespace trackloom
