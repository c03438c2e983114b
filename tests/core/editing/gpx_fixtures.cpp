#include "gpx_fixtures.h"

#include "core/base/file_io.h"

#include <algorithm>
#include <filesystem>

namespace trackloom::testing {
namespace {

/// Whether the tag starting at `position` ('<' or "</") is named time, with or
/// without a prefix; `nameStart` is where the name begins.
bool isTimeTag(const std::string& xml, std::size_t nameStart) {
    const auto end = xml.find_first_of(" />", nameStart);
    if (end == std::string::npos) {
        return false;
    }
    const auto name = std::string_view(xml).substr(nameStart, end - nameStart);
    const auto colon = name.find(':');
    return (colon == std::string_view::npos ? name : name.substr(colon + 1)) == "time";
}

} // namespace

std::string withoutTimeElements(const std::string& xml) {
    std::string result;
    std::size_t position = 0;
    while (position < xml.size()) {
        const auto open = xml.find('<', position);
        if (open == std::string::npos) {
            result.append(xml, position);
            break;
        }
        result.append(xml, position, open - position);
        if (xml.compare(open, 2, "</") != 0 && isTimeTag(xml, open + 1)) {
            const auto tagEnd = xml.find('>', open);
            if (xml[tagEnd - 1] == '/') {
                position = tagEnd + 1;
                continue;
            }
            auto close = xml.find("</", tagEnd);
            while (close != std::string::npos && !isTimeTag(xml, close + 2)) {
                close = xml.find("</", close + 2);
            }
            position = xml.find('>', close) + 1;
            continue;
        }
        result.push_back('<');
        position = open + 1;
    }
    return result;
}

std::vector<std::pair<std::string, TrackPtr>> readableCorpusTracks() {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(TRACKLOOM_CORPUS_DIR "/gpx")) {
        files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    std::vector<std::pair<std::string, TrackPtr>> tracks;
    for (const auto& file : files) {
        try {
            tracks.emplace_back(file.filename().string(),
                                GPXTrack::read(readFileBytes(file), file.filename().string()));
        } catch (const GPXError&) {
        }
    }
    return tracks;
}

} // namespace trackloom::testing
