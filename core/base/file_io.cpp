#include "core/base/file_io.h"

#include "core/base/gpx_error.h"

#include <cstdio>
#include <fstream>
#include <random>
#include <system_error>

namespace trackloom {
namespace fs = std::filesystem;

std::string readFileBytes(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::error_code error;
    const auto size = fs::file_size(path, error);
    if (!in || error || fs::is_directory(path)) {
        throw GPXError::withDetail("Die Datei konnte nicht gelesen werden: ", path.string());
    }
    std::string bytes(size, '\0');
    if (!in.read(bytes.data(), static_cast<std::streamsize>(size))) {
        throw GPXError::withDetail("Die Datei konnte nicht gelesen werden: ", path.string());
    }
    return bytes;
}

namespace {

fs::path temporarySibling(const fs::path& path) {
    std::random_device device;
    const auto suffix = std::to_string(device()) + ".tmp";
    auto name = "." + path.filename().string() + "." + suffix;
    return path.parent_path() / name;
}

} // namespace

void writeFileAtomically(const fs::path& path, std::string_view bytes) {
    const auto target = path.has_parent_path() ? path : fs::path(".") / path;
    const auto temporary = temporarySibling(target);
    const auto fail = [&] {
        std::error_code ignored;
        fs::remove(temporary, ignored);
        throw GPXError::withDetail("Die Datei konnte nicht geschrieben werden: ", path.string());
    };
    {
        std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
        if (!out || !out.write(bytes.data(), static_cast<std::streamsize>(bytes.size())) ||
            !out.flush()) {
            fail();
        }
    }
    std::error_code error;
    fs::rename(temporary, target, error);
    if (error) {
        fail();
    }
}

} // namespace trackloom
