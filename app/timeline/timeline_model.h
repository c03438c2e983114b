#pragma once

// The timeline workspace's view model. It owns the session of the opened
// Google timeline or working copy and publishes the day list, the shown points,
// the selection, the inspector's fields and the status line; every user action
// becomes one session call followed by a German status text.
//
// Threads: importing, re-indexing for another zone and saving run on the job
// runner. While one of them runs the session is read by it, so the model takes
// no edits until it is done (`canEdit`); all state changes on the main thread.

#include "app/shell/date_texts.h"
#include "app/shell/hand_over.h"
#include "app/shell/job_runner.h"
#include "app/shell/user_dialogs.h"
#include "core/timeline/timeline_day_summary.h"
#include "core/timeline/timeline_session.h"

#include <QObject>
#include <QStringList>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace trackloom {

/// A row of the day list.
struct TimelineDayRow {
    Instant day;
    std::int64_t count = 0;
    TimelineDaySummary summary;
};

class TimelineModel : public QObject {
    Q_OBJECT

  public:
    /// Background lanes of the model's job runner.
    enum Lane { importLane, indexLane, summaryLane, saveLane };

    /// Days are counted in `zone` until the user picks another one.
    TimelineModel(UserDialogs& dialogs, const date::time_zone& zone, QObject* parent = nullptr);
    ~TimelineModel() override;

    // The observable fields.
    /// Days with data, in date order, with their summaries.
    const std::vector<TimelineDayRow>& days() const { return m_days; }
    /// The day list as shown: filtered by `daySearch`, newest first when chosen.
    std::vector<TimelineDayRow> visibleDays() const;
    /// The points shown: the selected day or the applied range, by kind filter.
    const std::vector<TimelinePoint>& points() const { return m_points; }
    std::optional<Instant> selectedDay() const { return m_selectedDay; }
    const std::set<std::int64_t>& selection() const { return m_selection; }
    const QString& filename() const { return m_filename; }
    bool busy() const { return m_jobs.isBusy(); }
    /// Share of the running import or re-indexing done (0 … 1).
    double progress() const { return m_progress; }
    const QString& status() const { return m_status; }
    const std::optional<QString>& error() const { return m_error; }
    const QString& daySearch() const { return m_daySearch; }
    bool newestFirst() const { return m_newestFirst; }
    bool showActivities() const { return m_showActivities; }
    bool showVisits() const { return m_showVisits; }
    QString zoneIdentifier() const;
    const date::time_zone& zone() const { return *m_zone; }
    int revision() const { return m_revision; }
    int fitRequest() const { return m_fitRequest; }
    bool moveOnMap() const { return m_moveOnMap; }
    const QString& latitude() const { return m_latitude; }
    const QString& longitude() const { return m_longitude; }
    Instant pointTime() const { return m_pointTime; }
    Instant visitEnd() const { return m_visitEnd; }
    const QString& label() const { return m_label; }
    bool dirty() const { return m_dirty; }
    const QString& importSummary() const { return m_importSummary; }
    bool rangeMode() const { return m_rangeMode; }
    Instant rangeFrom() const { return m_rangeFrom; }
    Instant rangeTo() const { return m_rangeTo; }
    bool wholeDays() const { return m_wholeDays; }
    const std::optional<DateInterval>& appliedRange() const { return m_appliedRange; }
    bool appliedWholeDays() const { return m_appliedWholeDays; }
    const QString& firstPartName() const { return m_firstPartName; }
    const QString& secondPartName() const { return m_secondPartName; }
    /// Null before a history is open.
    const TimelineSession* session() const { return m_session.get(); }
    const std::optional<QString>& sourceURL() const { return m_sourceURL; }
    const QStringList& protectedURLs() const { return m_protectedURLs; }

    // Questions the screens ask.
    /// A session is open and no background work reads it.
    bool canEdit() const;
    bool canUndo() const;
    bool canRedo() const;
    /// What undo and redo would do, for the menu ("Punkt ändern").
    QString undoName() const;
    QString redoName() const;
    /// Exactly one point is selected and may be edited.
    bool canApplyEdit() const;
    /// The single selected point is a path point inside its section.
    bool canSplit() const;
    /// A day or an applied range is shown.
    bool hasScope() const;
    /// The shown day or applied range as an interval, if any.
    std::optional<DateInterval> scopeInterval() const;
    /// The shown scope's title; a range with an exclusive end says so.
    QString scopeTitle() const;
    /// "Zeitachse-2025-06-01" or "Zeitachse-2025-06-01-bis-2025-06-02".
    QString selectionFilename() const;
    /// Points per day, for the calendar picker.
    std::map<Instant, std::int64_t> calendarCounts() const;
    /// The day list's texts.
    QString dayText(Instant day) const;
    QString clockText(Instant instant) const;
    /// The clock text of `instant` on the day starting at `day`: the day's end
    /// (the next day's first instant) reads "24:00:00", not midnight.
    QString clockTextOn(Instant day, Instant instant) const;
    /// The section (segment) all selected points share, if one.
    std::optional<std::int64_t> selectedSection() const;

    // Opening.
    bool mayReplace();
    void open();
    void load(const QString& path);

    // Days and ranges.
    void setDaySearch(const QString& text);
    void setNewestFirst(bool newestFirst);
    void selectDay(Instant day);
    void selectCalendarDays(Instant start, Instant end, bool range);
    void stepDay(int by);
    void setRangeMode(bool rangeMode);
    void setRangeFrom(Instant from);
    void setRangeTo(Instant to);
    void setWholeDays(bool wholeDays);
    void applyRange();
    /// Refuses (and says so) when the requested range differs from the shown one.
    bool requireAppliedRange();
    void setShowActivities(bool show);
    void setShowVisits(bool show);

    // Selection and the inspector.
    void setSelection(std::set<std::int64_t> ids);
    void setLatitude(const QString& text);
    void setLongitude(const QString& text);
    void setPointTime(Instant time);
    void setVisitEnd(Instant end);
    void setLabel(const QString& text);
    void setMoveOnMap(bool moveOnMap);
    void setCoordinate(double latitude, double longitude);
    void setFirstPartName(const QString& name);
    void setSecondPartName(const QString& name);

    // Edits, each one undo step.
    void applyEdit();
    /// A point dragged on the map: the inspector's edit with a new position.
    void movePoint(std::int64_t id, double latitude, double longitude);
    void deleteSelection();
    void splitSelection();
    void undo();
    void redo();
    /// Counts the days in another zone; points and undo history stay.
    void changeZone(const QString& identifier);
    void cancelBackgroundWork();
    void clearError();

    // Files and hand-overs.
    void exportDay();
    void exportSection();
    void saveWorkingCopy(bool selectionOnly);
    /// Hands the GPX of the shown day or range to `receiver` (the track editor).
    void openInEditor(TrackReceiver& receiver);
    /// Hands every current point, with the shown scope, to the place explorer
    /// once they are copied in the background.
    void explorePlaces(PlaceScopeReceiver& receiver);

  signals:
    void daysChanged();
    void pointsChanged();
    void selectionChanged();
    void statusChanged();
    void errorChanged();
    void busyChanged(bool busy);
    void progressChanged(double share);
    void inspectorChanged();
    void rangeChanged();
    void filterChanged();
    void zoneChanged();
    void dirtyChanged();
    void historyChanged();
    void fitRequested();
    void sourceChanged();

  private:
    struct Loaded;
    using SessionPtr = std::shared_ptr<TimelineSession>;

    void adopt(Loaded loaded, const QString& path);
    void adoptIndex(TimelineDayIndex index, std::optional<Instant> shownMiddle);
    /// Summarises every day again on the job runner, after the days changed zone.
    void summarizeInBackground();
    void refreshDays();
    void refreshSummaries(const std::set<Instant>& days);
    std::set<Instant> daysOf(std::span<const Change> changes) const;
    void showScope(bool fit);
    /// The range the from/to fields ask for, whole days or exact.
    std::optional<DateInterval> requestedRange() const;
    void fillInspector();
    bool passesKindFilter(const TimelinePoint& point) const;
    /// Runs one edit of the session, then follows it in the days, the shown
    /// points and the undo names.
    template <typename Edit> void recordEdit(const QString& name, const QString& done, Edit&& edit);
    void afterHistoryStep(const std::set<Instant>& days, const QString& done);
    std::optional<TimelinePoint> selectedPoint() const;
    std::optional<QString> chooseDestination(const QString& title, const QString& suggestedName,
                                             const QStringList& filters);
    void writeInBackground(std::function<std::string()> bytes, const QString& destination,
                           const QString& doneStatus, bool clearsDirty);
    void setStatus(const QString& status);
    void setError(const QString& error);
    void fail(const QString& error, const QString& status);
    void setDirty(bool dirty);

    UserDialogs& m_dialogs;
    const date::time_zone* m_zone;
    DateTemplate m_dayFormat;
    DateTemplate m_clockFormat;
    DateTemplate m_dateTimeFormat;

    std::vector<TimelineDayRow> m_days;
    std::map<Instant, TimelineDaySummary> m_summaries;
    std::vector<TimelinePoint> m_points;
    std::optional<Instant> m_selectedDay;
    std::set<std::int64_t> m_selection;
    QString m_filename;
    double m_progress = 0;
    QString m_status;
    std::optional<QString> m_error;
    QString m_daySearch;
    bool m_newestFirst = true;
    bool m_showActivities = false;
    bool m_showVisits = true;
    int m_revision = 0;
    int m_fitRequest = 0;
    bool m_moveOnMap = false;
    QString m_latitude;
    QString m_longitude;
    Instant m_pointTime;
    Instant m_visitEnd;
    QString m_label;
    bool m_dirty = false;
    QString m_importSummary;
    bool m_rangeMode = false;
    Instant m_rangeFrom;
    Instant m_rangeTo;
    bool m_wholeDays = true;
    std::optional<DateInterval> m_appliedRange;
    bool m_appliedWholeDays = true;
    QString m_firstPartName;
    QString m_secondPartName;
    SessionPtr m_session;
    std::optional<QString> m_sourceURL;
    QStringList m_protectedURLs;
    // What each undo and redo step did, beside the session's stacks.
    QStringList m_undoNames;
    QStringList m_redoNames;
    JobRunner m_jobs;
};

} // namespace trackloom
