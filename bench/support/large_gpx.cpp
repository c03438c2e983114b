#include "bench/support/large_gpx.h"

#include "core/base/file_io.h"
#include "core/track/gpx_track.h"

#include <cmath>
#include <cstdio>
#include <stdexcept>
#include <string>

namespace trackloom::bench {
namespace {

constexpr int trackCount = 4;
constexpr int segmentsPerTrack = 5;
constexpr int pointsPerSegment = 12000;

void appendPoint(std::string& out, long index) {
    const double t = static_cast<double>(index);
    const double latitude = 47.0 + 0.8 * std::sin(t / 40000.0) + 0.0004 * std::sin(t / 7.0);
    const double longitude = 8.0 + 1.5 * std::cos(t / 50000.0) + 0.0004 * std::cos(t / 9.0);
    const long seconds = 1714552200L + index * 3 + (index % 17 == 0 ? 1 : 0);
    const long day = seconds / 86400;
    const long second = seconds % 86400;
    // Civil date from days since 1970 (Howard Hinnant's algorithm).
    const long z = day + 719468;
    const long era = z / 146097;
    const long doe = z - era * 146097;
    const long yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const long doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const long mp = (5 * doy + 2) / 153;
    const long d = doy - (153 * mp + 2) / 5 + 1;
    const long m = mp < 10 ? mp + 3 : mp - 9;
    const long y = yoe + era * 400 + (m <= 2 ? 1 : 0);
    char buffer[512];
    std::snprintf(buffer, sizeof buffer,
                  "   <trkpt lat=\"%.7f\" lon=\"%.7f\"><ele>%.1f</ele>"
                  "<time>%04ld-%02ld-%02ldT%02ld:%02ld:%02ldZ</time>"
                  "<extensions><gpxtpx:TrackPointExtension><gpxtpx:hr>%ld</gpxtpx:hr>"
                  "</gpxtpx:TrackPointExtension></extensions></trkpt>\n",
                  latitude, longitude, 400.0 + 120.0 * std::sin(t / 3000.0), y, m, d, second / 3600,
                  second / 60 % 60, second % 60, 110 + index % 60);
    out += buffer;
}

std::string generate() {
    std::string out;
    out.reserve(maximumGPXFileSize);
    out += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<gpx version=\"1.1\" creator=\"Trackloom benchmark\" "
           "xmlns=\"http://www.topografix.com/GPX/1/1\" "
           "xmlns:gpxtpx=\"http://www.garmin.com/xmlschemas/TrackPointExtension/v1\">\n"
           "  <metadata><name>Benchmark</name><time>2024-05-01T08:30:00Z</time></metadata>\n";
    long index = 0;
    for (int track = 0; track < trackCount; ++track) {
        out += "  <trk>\n    <name>Etappe " + std::to_string(track + 1) + "</name>\n";
        for (int segment = 0; segment < segmentsPerTrack; ++segment) {
            out += "  <trkseg>\n";
            for (int point = 0; point < pointsPerSegment; ++point) {
                appendPoint(out, index++);
            }
            out += "  </trkseg>\n";
        }
        out += "  </trk>\n";
    }
    out += "</gpx>\n";
    if (out.size() > maximumGPXFileSize) {
        throw std::logic_error("the generated GPX must stay within the reader's size limit");
    }
    return out;
}

/// 1.75 million bare points in one section, written as tightly as a logger
/// could: what the most points within the size limit look like.
std::string generateDense() {
    constexpr long points = 1750000;
    std::string out;
    out.reserve(maximumGPXFileSize);
    out += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<gpx xmlns=\"http://www.topografix.com/GPX/1/1\" version=\"1.1\" "
           "creator=\"Trackloom benchmark\"><trk><trkseg>";
    char buffer[64];
    for (long index = 0; index < points; ++index) {
        std::snprintf(buffer, sizeof buffer, "<trkpt lat=\"4.%ld\" lon=\"8.%ld\"/>", index % 97,
                      index % 91);
        out += buffer;
    }
    out += "</trkseg></trk></gpx>\n";
    if (out.size() > maximumGPXFileSize) {
        throw std::logic_error("the dense GPX must stay within the reader's size limit");
    }
    return out;
}

std::filesystem::path ensureFile(const std::filesystem::path& path, std::string (*generator)()) {
    if (!std::filesystem::exists(path)) {
        std::filesystem::create_directories(path.parent_path());
        writeFileAtomically(path, generator());
    }
    return path;
}

} // namespace

std::filesystem::path ensureLargeGPX(const std::filesystem::path& folder) {
    return ensureFile(folder / "large-generated.gpx", generate);
}

std::filesystem::path ensureDenseGPX(const std::filesystem::path& folder) {
    return ensureFile(folder / "dense-generated.gpx", generateDense);
}

} // namespace trackloom::bench
