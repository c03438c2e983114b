#include "core/timeline/timeline_document.h"

#include "core/base/file_io.h"
#include "core/base/gpx_error.h"
#include "core/timeline/google_import.h"
#include "core/timeline/json_reading.h"
#include "core/timeline/working_copy.h"

#include <system_error>

namespace trackloom {
namespace {

void refuseOversizedData(std::size_t size) {
    if (size > maximumTimelineFileSize) {
        throw GPXError("Der Standortverlauf ist größer als 250 MB.");
    }
}

char firstNonBlank(std::string_view data) {
    const auto position = data.find_first_not_of(" \t\n\r");
    return position == std::string_view::npos ? '\0' : data[position];
}

/// The working copy in `input`, or absent when the data is something else.
std::optional<TimelineDocument> readWorkingCopy(json::OnDemandDocument& input,
                                                const std::stop_token& token) {
    auto copy = decodeWorkingCopy(input, token);
    if (!copy || copy->format != workingCopyFormat) {
        return std::nullopt;
    }
    if (copy->version != 1 && copy->version != 2) {
        throw GPXError("Diese Arbeitskopie benötigt eine neuere App-Version.");
    }
    return TimelineDocument(std::move(copy->points), {});
}

std::vector<TimelinePoint> checkedPoints(std::vector<TimelinePoint> points) {
    for (const auto& point : points) {
        if (!point.isValid()) {
            throw GPXError("Ungültige Standortpunkte oder Zeitangaben.");
        }
    }
    return points;
}

} // namespace

TimelineDocument::TimelineDocument(std::vector<TimelinePoint> points, TimelineImportReport report)
    : TimelineDocument(Numbering{}, checkedPoints(std::move(points)), report) {}

TimelineDocument::TimelineDocument(Numbering, std::vector<TimelinePoint> points,
                                   TimelineImportReport report)
    : m_points(std::move(points)), m_report(report) {
    if (m_points.empty()) {
        throw GPXError("Keine auswertbaren Standortpunkte gefunden.");
    }
    for (std::size_t index = 0; index < m_points.size(); ++index) {
        auto& point = m_points[index];
        point.id = static_cast<std::int64_t>(index);
        if (!point.order) {
            point.order = static_cast<double>(index);
        }
    }
}

TimelineDocument TimelineDocument::read(std::string data, std::stop_token token,
                                        const ProgressReport& progress) {
    refuseOversizedData(data.size());
    // The parser reads a little past the end; room for that is all it needs,
    // instead of a padded copy of a history that may be 250 MB.
    data.reserve(data.size() + simdjson::SIMDJSON_PADDING);
    json::OnDemandDocument input(data, data.capacity());
    GoogleImport import(data, token, progress);
    const auto google =
        decodeGoogleExport(input, [&](const RecordWrapper& entry) { import.add(entry); });
    // A working copy takes precedence. Only an object can be one, and only one
    // with a "format" member: reading the export first spares a second pass
    // over a large export just to find that out.
    if (firstNonBlank(data) == '{' && (!google.complete || google.hasFormatMember)) {
        if (auto document = readWorkingCopy(input, token)) {
            return std::move(*document);
        }
    }
    if (!google.complete) {
        throw GPXError("Dieses JSON ist kein unterstützter Google-Zeitachsenexport. Erwartet wird "
                       "eine Liste mit startTime, visit, activity oder timelinePath.");
    }
    const auto report = import.report();
    // The import keeps only points that passed the validity check.
    return TimelineDocument(Numbering{}, import.takePoints(), report);
}

TimelineDocument TimelineDocument::readFile(const std::filesystem::path& path,
                                            std::stop_token token, const ProgressReport& progress) {
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    if (!error) {
        refuseOversizedData(size);
    }
    return read(readFileBytes(path), std::move(token), progress);
}

std::string TimelineDocument::workingCopy(const std::vector<TimelinePoint>& points) {
    return encodeWorkingCopy(points);
}

} // namespace trackloom
