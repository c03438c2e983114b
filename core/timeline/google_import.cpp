#include "core/timeline/google_import.h"

#include "core/base/cancellation.h"
#include "core/base/localization.h"
#include "core/base/text_trimming.h"
#include "core/track/number_parsing.h"
#include "core/track/track_time.h"

#include <cmath>

namespace trackloom {
namespace {

/// Each entry owns a block of segment numbers; a path takes one more for every
/// point it drops, so no line is ever drawn across a missing point.
constexpr std::int64_t segmentsPerEntry = 10000;
/// Minutes in 365.25 days: offsets from a record's start beyond a year are noise.
constexpr double largestMinuteOffset = 525960;
/// No accepted point takes fewer bytes of export than this (the shortest path
/// element with a coordinate and a time), so reserving size / this many points
/// means the list never moves while it grows. Unused capacity is never touched
/// and costs no memory.
constexpr std::size_t fewestBytesPerPoint = 45;

/// Writes `text` to `out` (room for `text.size()` bytes) without any "geo:",
/// and the result without any "°"; returns the length written.
std::size_t writeWithoutMarks(std::string_view text, char* out) {
    std::size_t length = 0;
    for (std::size_t i = 0; i < text.size();) {
        if (text[i] == 'g' && text.substr(i, 4) == "geo:") {
            i += 4;
        } else {
            out[length++] = text[i++];
        }
    }
    std::size_t kept = 0;
    for (std::size_t i = 0; i < length;) {
        if (out[i] == '\xc2' && i + 1 < length && out[i + 1] == '\xb0') {
            i += 2;
        } else {
            out[kept++] = out[i++];
        }
    }
    return kept;
}

std::optional<Instant> parseRecordTime(const std::optional<std::string_view>& text) {
    return text ? parseTrackTime(*text) : std::nullopt;
}

/// A path point's own time, else its minute offset from the record's start.
std::optional<Instant> pathPointTime(const GooglePathPoint& element,
                                     std::optional<Instant> startTime) {
    if (element.time) {
        if (const auto time = parseTrackTime(*element.time)) {
            return time;
        }
    }
    const auto& offset = element.durationMinutesOffsetFromStartTime;
    if (!offset || !offset->value || !startTime) {
        return std::nullopt;
    }
    const double minutes = *offset->value;
    if (!std::isfinite(minutes) || std::abs(minutes) >= largestMinuteOffset) {
        return std::nullopt;
    }
    return startTime->advanced(minutes * 60);
}

} // namespace

std::optional<Coordinate> parseCoordinate(std::string_view text) {
    // Millions of coordinates pass through here: short ones are cleaned on the
    // stack instead of in a new string each.
    char shortText[80];
    std::string longText;
    char* buffer = shortText;
    if (text.size() > sizeof shortText) {
        longText.resize(text.size());
        buffer = longText.data();
    }
    const std::string_view cleaned(buffer, writeWithoutMarks(text, buffer));
    std::optional<double> numbers[2];
    std::size_t count = 0;
    std::size_t position = 0;
    while (position <= cleaned.size()) {
        auto comma = cleaned.find(',', position);
        if (comma == std::string_view::npos) {
            comma = cleaned.size();
        }
        const auto piece = cleaned.substr(position, comma - position);
        position = comma + 1;
        if (piece.empty()) {
            continue;
        }
        if (count == 2) {
            return std::nullopt;
        }
        numbers[count++] = parseFiniteNumber(trimmedBlanks(piece));
    }
    if (count != 2 || !numbers[0] || !numbers[1] || std::abs(*numbers[0]) > 90 ||
        std::abs(*numbers[1]) > 180) {
        return std::nullopt;
    }
    return Coordinate{*numbers[0], *numbers[1]};
}

GoogleImport::GoogleImport(std::string_view data, std::stop_token token, ProgressReport progress)
    : m_data(data), m_token(std::move(token)), m_progress(std::move(progress)),
      m_visitLabel(localized("Aufenthalt")), m_activityLabel(localized("Fahrt")) {
    m_points.reserve(data.size() / fewestBytesPerPoint + 1);
}

void GoogleImport::add(const RecordWrapper& entry) {
    if (m_entry % 1024 == 0) {
        throwIfCancelled(m_token);
        if (m_progress && entry.position && !m_data.empty()) {
            m_progress(static_cast<double>(entry.position - m_data.data()) /
                       static_cast<double>(m_data.size()));
        }
    }
    const auto segment = m_entry * segmentsPerEntry;
    ++m_entry;
    ++m_report.records;
    if (!entry.record) {
        ++m_report.invalidValues;
        return;
    }
    const auto& record = *entry.record;
    const RecordTimes times{parseRecordTime(record.startTime), parseRecordTime(record.endTime)};
    if (record.timelinePath) {
        addPath(segment, times, *record.timelinePath);
    } else if (record.visit) {
        addVisit(segment, times, *record.visit);
    } else if (record.activity) {
        addActivity(segment, times, *record.activity);
    } else {
        ++m_report.ignoredRecords;
    }
}

void GoogleImport::addPath(std::int64_t segment, const RecordTimes& times,
                           const std::vector<GooglePathPoint>& path) {
    for (const auto& element : path) {
        const auto coordinateText = element.point ? element.point : element.latLng;
        if (accept(TimelinePointKind::path, segment, coordinateText,
                   pathPointTime(element, times.start), std::nullopt, {})) {
            ++m_report.pathPoints;
        } else {
            ++segment;
        }
    }
}

void GoogleImport::addVisit(std::int64_t segment, const RecordTimes& times,
                            const GoogleVisit& visit) {
    if (!times.start || !times.end || *times.end < *times.start || !visit.topCandidate) {
        ++m_report.invalidValues;
        return;
    }
    const auto& place = *visit.topCandidate;
    auto coordinateText = place.placeLocation;
    if (!coordinateText && place.placeLocationObject) {
        coordinateText = place.placeLocationObject->latLng;
    }
    const auto label = place.semanticType.value_or(m_visitLabel);
    if (accept(TimelinePointKind::visit, segment, coordinateText, times.start, times.end, label)) {
        ++m_report.visits;
    }
}

void GoogleImport::addActivity(std::int64_t segment, const RecordTimes& times,
                               const GoogleActivity& activity) {
    std::string_view label = m_activityLabel;
    if (activity.topCandidate && activity.topCandidate->type) {
        label = *activity.topCandidate->type;
    }
    const auto coordinateOf = [](const std::optional<GoogleEndpoint>& endpoint) {
        return endpoint ? endpoint->coordinate : std::nullopt;
    };
    if (accept(TimelinePointKind::activity, segment, coordinateOf(activity.start), times.start,
               std::nullopt, label)) {
        ++m_report.activityPoints;
    }
    if (accept(TimelinePointKind::activity, segment, coordinateOf(activity.end), times.end,
               std::nullopt, label)) {
        ++m_report.activityPoints;
    }
}

bool GoogleImport::accept(TimelinePointKind kind, std::int64_t segment,
                          std::optional<std::string_view> coordinateText,
                          std::optional<Instant> time, std::optional<Instant> endTime,
                          std::string_view label) {
    const auto coordinate = coordinateText ? parseCoordinate(*coordinateText) : std::nullopt;
    if (coordinate && time) {
        TimelinePoint point{static_cast<std::int64_t>(m_points.size()),
                            segment,
                            kind,
                            coordinate->latitude,
                            coordinate->longitude,
                            *time,
                            endTime,
                            std::string(label),
                            std::nullopt};
        if (point.isValid()) {
            m_points.push_back(std::move(point));
            return true;
        }
    }
    ++m_report.invalidValues;
    return false;
}

} // namespace trackloom
