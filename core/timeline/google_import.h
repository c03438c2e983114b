#pragma once

// Turns the decoded entries of a Google timeline export into timeline points,
// one entry at a time, so that a large export is walked once and never held
// twice. Every entry is counted; what cannot be used is counted as skipped.

#include "core/base/cancellation.h"
#include "core/timeline/google_records.h"
#include "core/timeline/timeline_document.h"
#include "core/track/track_model.h"

#include <stop_token>
#include <string>
#include <vector>

namespace trackloom {

/// The coordinate in a Google location text such as "geo:50.1,7.2" or
/// "50.1°, 7.2°": latitude then longitude, both in range; absent otherwise.
std::optional<Coordinate> parseCoordinate(std::string_view text);

class GoogleImport {
  public:
    /// An import of the export in `data` (its size sizes the point list) that
    /// stops with `CancellationError` once `token` is stopped and tells
    /// `progress` the share of the bytes read so far.
    GoogleImport(std::string_view data, std::stop_token token, ProgressReport progress = {});

    /// Reads the next entry of the export's list.
    void add(const RecordWrapper& entry);

    const TimelineImportReport& report() const { return m_report; }
    /// The accepted points, numbered in acceptance order; leaves the import empty.
    std::vector<TimelinePoint> takePoints() { return std::move(m_points); }

  private:
    /// The record's own start and end, absent when missing or unreadable.
    struct RecordTimes {
        std::optional<Instant> start;
        std::optional<Instant> end;
    };

    void addPath(std::int64_t segment, const RecordTimes& times,
                 const std::vector<GooglePathPoint>& path);
    void addVisit(std::int64_t segment, const RecordTimes& times, const GoogleVisit& visit);
    void addActivity(std::int64_t segment, const RecordTimes& times,
                     const GoogleActivity& activity);
    /// Makes a point at `coordinateText` and keeps it if the text reads, there
    /// is a time and the point is valid; counts it as skipped otherwise.
    /// Returns whether the point was kept.
    bool accept(TimelinePointKind kind, std::int64_t segment,
                std::optional<std::string_view> coordinateText, std::optional<Instant> time,
                std::optional<Instant> endTime, std::string_view label);

    std::string_view m_data;
    std::stop_token m_token;
    ProgressReport m_progress;
    std::vector<TimelinePoint> m_points;
    TimelineImportReport m_report;
    std::int64_t m_entry = 0;
    std::string m_visitLabel;
    std::string m_activityLabel;
};

} // namespace trackloom
