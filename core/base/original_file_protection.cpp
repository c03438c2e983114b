#include "core/base/original_file_protection.h"

#include "core/base/gpx_error.h"

#include <system_error>

namespace trackloom::OriginalFileProtection {
namespace {

namespace fs = std::filesystem;

/// The absolute path with `.`, `..` and the symbolic links of its existing part
/// resolved.
fs::path standardised(const fs::path& path) {
    std::error_code error;
    auto absolute = fs::absolute(path, error);
    if (error) {
        return path.lexically_normal();
    }
    auto resolved = fs::weakly_canonical(absolute, error);
    return error ? absolute.lexically_normal() : resolved;
}

} // namespace

void checkExport(const fs::path& destination, const std::optional<fs::path>& source) {
    if (!source) {
        return;
    }
    std::error_code error;
    const bool sameFile = standardised(destination) == standardised(*source) ||
                          fs::equivalent(destination, *source, error);
    if (sameFile) {
        throw GPXError(
            "Die Originaldatei darf nicht überschrieben werden. Bitte wähle eine andere Datei.");
    }
}

} // namespace trackloom::OriginalFileProtection
