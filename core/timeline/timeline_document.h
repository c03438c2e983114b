#pragma once

// An imported location history: the points read from a Google Maps timeline
// export or from a working copy, with a report of what was read and skipped.
// Both formats end in the same constructor, which numbers the points by their
// position, so a point's id is its index in `points()`.

#include "core/base/cancellation.h"
#include "core/timeline/timeline_point.h"

#include <cstdint>
#include <filesystem>
#include <stop_token>
#include <string>
#include <vector>

namespace trackloom {

/// 250 MB: larger histories are refused before anything is parsed.
inline constexpr std::size_t maximumTimelineFileSize = 262144000;

/// What an import read and skipped. A working copy reports all zeros.
struct TimelineImportReport {
    /// Entries of the export's list, usable or not.
    std::int64_t records = 0;
    /// Entries that decoded but hold no path, visit or activity.
    std::int64_t ignoredRecords = 0;
    /// Entries that did not decode, and single points that were dropped.
    std::int64_t invalidValues = 0;
    std::int64_t pathPoints = 0;
    std::int64_t visits = 0;
    std::int64_t activityPoints = 0;

    friend bool operator==(const TimelineImportReport&, const TimelineImportReport&) = default;
};

class TimelineDocument {
  public:
    /// Takes `points` in the given order: each point's id becomes its index and
    /// a missing `order` becomes the index too. Throws `GPXError` when the list
    /// is empty or holds a point that is not valid.
    TimelineDocument(std::vector<TimelinePoint> points, TimelineImportReport report);

    /// Reads a working copy (recognised by its content) or a Google timeline
    /// export. Bad single entries are counted in the report; throws `GPXError`
    /// for data over 250 MB, a working copy of an unknown version, data in
    /// neither format, or no usable point, and `CancellationError` when
    /// `token` is stopped (checked every 1024 entries, when `progress` also
    /// learns the share of the bytes read).
    static TimelineDocument read(std::string data, std::stop_token token = {},
                                 const ProgressReport& progress = {});
    /// Reads the file at `path` as `read` does, refusing one over 250 MB
    /// before reading it.
    static TimelineDocument readFile(const std::filesystem::path& path, std::stop_token token = {},
                                     const ProgressReport& progress = {});

    /// The working-copy bytes of `points`, in the given order. Throws
    /// `GPXError` when a point holds a number that is not finite.
    static std::string workingCopy(const std::vector<TimelinePoint>& points);

    const std::vector<TimelinePoint>& points() const { return m_points; }
    const TimelineImportReport& report() const { return m_report; }

  private:
    /// Numbers points already known to be valid; throws only for an empty list.
    struct Numbering {};
    TimelineDocument(Numbering, std::vector<TimelinePoint> points, TimelineImportReport report);

    std::vector<TimelinePoint> m_points;
    TimelineImportReport m_report;
};

} // namespace trackloom
