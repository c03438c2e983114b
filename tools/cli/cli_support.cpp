#include "tools/cli/cli_support.h"

#include "core/base/file_io.h"
#include "core/base/json_writer.h"
#include "core/base/original_file_protection.h"

#include <filesystem>

namespace trackloom::cli {

TrackPtr openTrack(const std::string& path) {
    return GPXTrack::read(readFileBytes(path), std::filesystem::path(path).filename().string());
}

std::string saveTrack(const GPXTrack& track, const std::string& destination,
                      const std::vector<std::string>& opened) {
    for (const auto& source : opened) {
        OriginalFileProtection::checkExport(destination, std::filesystem::path(source));
    }
    writeFileAtomically(destination, track.data());
    JsonWriter json;
    json.beginObject()
        .key("points")
        .value(track.points().size())
        .key("segments")
        .value(track.segments().size())
        .endObject();
    return json.takeText();
}

} // namespace trackloom::cli
