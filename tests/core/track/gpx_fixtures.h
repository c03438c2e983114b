#pragma once

// Small GPX documents for the track tests.

#include "core/track/gpx_track.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace trackloom::testing {

/// A GPX 1.1 document with `body` inside its root.
inline std::string gpx11(std::string_view body) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<gpx version=\"1.1\" creator=\"test\" xmlns=\"http://www.topografix.com/GPX/1/1\">" +
           std::string(body) + "</gpx>";
}

/// A trkpt or rtept element with optional time text.
inline std::string point(std::string_view element, double latitude, double longitude,
                         std::string_view time = {}) {
    std::string text = "<" + std::string(element) + " lat=\"" + std::to_string(latitude) +
                       "\" lon=\"" + std::to_string(longitude) + "\">";
    if (!time.empty()) {
        text += "<time>" + std::string(time) + "</time>";
    }
    return text + "</" + std::string(element) + ">";
}

inline TrackPtr readGPX(std::string_view data, std::string_view filename = "test.gpx") {
    return GPXTrack::read(data, filename);
}

/// `text` with its only occurrence of `from` replaced by `to`.
inline std::string replacing(std::string text, std::string_view from, std::string_view to) {
    const auto at = text.find(from);
    if (at == std::string::npos || text.find(from, at + 1) != std::string::npos) {
        ADD_FAILURE() << "not exactly once: " << from;
        return text;
    }
    return text.replace(at, from.size(), to);
}

/// Every file of the GPX corpus, sorted.
inline std::vector<std::filesystem::path> gpxCorpusFiles() {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(TRACKLOOM_CORPUS_DIR "/gpx")) {
        files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

/// A test name for a corpus file: its stem with every other character as '_'.
inline std::string corpusTestName(const std::filesystem::path& file) {
    auto name = file.stem().string();
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return !std::isalnum(c); }, '_');
    return name;
}

} // namespace trackloom::testing
