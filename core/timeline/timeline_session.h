#pragma once

// The edits a user makes to an imported history. The session owns the imported
// document and never changes it: it is the baseline. Edited versions of its
// points live in `overrides`, points made by a split in `created`, deletions in
// `removed`; the current version of a point is read through these in that
// order. Every edit is a group of `Change`s applied forward; undo applies the
// group backward, so history needs no copies of the whole state. The day index
// and the segment membership follow every change.
//
// Owned by the timeline workspace's view model and used from one thread at a
// time; only `makeDayIndex` is meant to run in the background.

#include "core/timeline/timeline_day_index.h"
#include "core/timeline/timeline_document.h"
#include "core/timeline/timeline_gpx_export.h"

#include <optional>
#include <set>
#include <span>
#include <stop_token>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace trackloom {

/// One point before and after an edit; absent before for a new point, absent
/// after for a deleted one.
struct Change {
    std::int64_t id = 0;
    std::optional<TimelinePoint> before;
    std::optional<TimelinePoint> after;

    friend bool operator==(const Change&, const Change&) = default;
};

class TimelineSession {
  public:
    /// A session over `document` with its days counted in `timeZone`.
    TimelineSession(TimelineDocument document, const date::time_zone* timeZone);
    /// A session over `document` with a day index made of its points in the
    /// background (`makeDayIndex`), so that building one is never done twice.
    TimelineSession(TimelineDocument document, TimelineDayIndex index);
    TimelineSession(const TimelineSession&) = delete;
    TimelineSession& operator=(const TimelineSession&) = delete;

    const TimelineDocument& document() const { return m_document; }
    const TimelineCalendar& calendar() const { return m_calendar; }

    /// The current version of a point; absent when deleted or unknown.
    std::optional<TimelinePoint> point(std::int64_t id) const;
    /// Whether an imported point currently differs from its imported version.
    bool isEdited(std::int64_t id) const { return m_overrides.contains(id); }
    /// The days holding current points, in date order.
    std::vector<TimelineDay> days() const;
    /// The current points of the day holding `day`, in `precedes` order (as are
    /// all point lists below).
    std::vector<TimelinePoint> pointsOn(Instant day) const;
    std::vector<TimelinePoint> pointsInSegment(std::int64_t segment) const;
    /// The current points on the whole days the range touches: from the day of
    /// `range.start` up to the last day starting before `range.end`.
    std::vector<TimelinePoint> pointsIn(DateInterval range) const;
    std::vector<TimelinePoint> allPoints() const;
    /// Every current point in recorded order: imported points by id, then the
    /// points splits created. Cheaper than `allPoints` where order is no matter.
    std::vector<TimelinePoint> recordedPoints() const;
    /// No point was edited, deleted or created: the current points are exactly
    /// the document's, in the same order.
    bool isPristine() const {
        return m_overrides.empty() && m_created.empty() && m_removed.empty();
    }

    /// The day index of `points` in `timeZone`; pure, for background work.
    static TimelineDayIndex makeDayIndex(const std::vector<TimelinePoint>& points,
                                         const date::time_zone* timeZone,
                                         std::stop_token token = {},
                                         const ProgressReport& progress = {});
    /// Installs an index made from the current points, with its calendar.
    void applyDayIndex(TimelineDayIndex index);
    /// Counts the days in another zone; points and history stay as they are.
    void changeTimeZone(const date::time_zone* timeZone);

    /// Replaces the point with the same id. Throws `GPXError` when there is no
    /// such point, its segment or kind would change, or the result is invalid.
    /// An edit that changes nothing records nothing.
    void edit(const TimelinePoint& point);
    /// Deletes those of `ids` that exist, as one undo step (none if nothing exists).
    void deletePoints(const std::set<std::int64_t>& ids);
    /// Whether `id` is a path point inside its segment, neither first nor last.
    bool canSplitAt(std::int64_t id) const;
    /// Ends a segment at `id` and starts a new one with a copy of that point,
    /// naming the two parts. Throws `GPXError` when `canSplitAt` fails or a
    /// name is blank.
    void splitAt(std::int64_t id, std::string_view firstName, std::string_view secondName);

    bool canUndo() const { return !m_undoStack.empty(); }
    bool canRedo() const { return !m_redoStack.empty(); }
    /// How many steps can be undone; an edit that changed something adds one.
    std::size_t undoCount() const { return m_undoStack.size(); }
    /// The changes the next undo (or redo) applies; empty when there is none.
    /// What an edit just recorded is the next undo.
    std::span<const Change> nextUndo() const;
    std::span<const Change> nextRedo() const;
    void undo();
    void redo();

    /// Working-copy bytes of all current points, or of those in `range`
    /// (as `pointsIn` selects them), in `precedes` order.
    std::string workingCopy() const;
    std::string workingCopy(DateInterval range) const;

    /// GPX of the day holding `day`. Throws `GPXError` for an instant no
    /// calendar day holds, and as `gpxIn` does.
    TimelineGPX gpxOn(Instant day, bool includeActivities, bool includeVisits) const;
    /// GPX of `exportSelection(range, …)`. Throws `GPXError` when it is empty.
    TimelineGPX gpxIn(DateInterval range, bool includeActivities, bool includeVisits,
                      std::optional<std::int64_t> segment = std::nullopt) const;
    /// The path points of `range` (as `pointsIn` selects them), with the
    /// activity endpoints and visits when asked, only of `segment` when given.
    std::vector<TimelinePoint> exportSelection(DateInterval range, bool includeActivities,
                                               bool includeVisits,
                                               std::optional<std::int64_t> segment) const;

  private:
    using Group = std::vector<Change>;

    void indexSegments();
    bool isImported(std::int64_t id) const;
    /// The point as imported or created, ignoring edits and deletion.
    std::optional<TimelinePoint> baseline(std::int64_t id) const;
    std::vector<TimelinePoint> currentPoints(const PointIDSet& ids) const;
    void index(const TimelinePoint& point);
    void unindex(const TimelinePoint& point);
    void apply(const Change& change, bool forward);
    void record(Group group);

    const TimelineDocument m_document;
    TimelineCalendar m_calendar;
    std::unordered_map<std::int64_t, TimelinePoint> m_overrides;
    std::unordered_map<std::int64_t, TimelinePoint> m_created;
    std::unordered_map<std::int64_t, PointIDSet> m_segments;
    std::int64_t m_nextID = 0;
    std::int64_t m_nextSegment = 1;
    std::unordered_set<std::int64_t> m_removed;
    std::map<Instant, PointIDSet> m_index;
    std::vector<Group> m_undoStack;
    std::vector<Group> m_redoStack;
};

} // namespace trackloom
