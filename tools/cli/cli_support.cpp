#include "tools/cli/cli_support.h"

#include "core/base/file_io.h"
#include "core/base/json_writer.h"
#include "core/base/original_file_protection.h"
#include "core/base/time_zones.h"
#include "core/track/track_time.h"

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

namespace {

CLI::Validator timeValidator(std::string refusal) {
    return CLI::Validator(
        [refusal = std::move(refusal)](const std::string& text) {
            return parseTrackTime(text) ? std::string() : refusal + text;
        },
        "TIME");
}

} // namespace

const CLI::Validator trackTime = timeValidator("keine Zeit mit Zonenangabe: ");
const CLI::Validator historyTime = timeValidator("Ungültige Zeitangabe: ");

Instant timeArgument(const std::string& text) {
    return *parseTrackTime(text);
}

const CLI::Validator zoneName(
    [](const std::string& name) {
        return findTimeZone(name) ? std::string() : "Unbekannte Zeitzone: " + name;
    },
    "ZONE");

const date::time_zone* zoneArgument(const std::string& name) {
    return name.empty() ? systemTimeZone() : findTimeZone(name);
}

} // namespace trackloom::cli
