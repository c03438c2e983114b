#pragma once

// The track editor's view model. It owns the editing session of the opened
// file and publishes everything the editor's screens show; every user action
// becomes one session operation followed by a status text.
//
// Three collaborators, owned by the model and living as long as it does, keep
// what is not the track itself: the time fields (`EditorTimeFields`), the map
// tool with its pending points (`EditorMapTool`) and the exports
// (`EditorExports`). They read the model's state, and report and run their
// session work through it.
//
// Threads: reading, editing, appending and writing run on the model's
// `JobRunner`, so that a 50 MB track never freezes the window. While an edit
// runs, the session is lent to it and nothing else touches it; the result comes
// back to the main thread, where all state changes. A newer load wins over an
// older one, and an edit whose session was replaced meanwhile is dropped.
//
// Input while an edit runs is never lost: the status line says what runs, and
// edits of the selection, undo, redo and the time and route choices wait their
// turn and then run in order (a refusal drops those still waiting, saying so).
// What is addressed by a position on the stale map (dragging, inserting) and
// what opens a dialog (appending, exporting) is refused with a text instead.

#include "app/editor/editor_exports.h"
#include "app/editor/editor_map_tool.h"
#include "app/editor/editor_time_fields.h"
#include "app/shell/job_runner.h"
#include "app/shell/user_dialogs.h"
#include "core/editing/editing_session.h"
#include "core/track/gpx_track.h"

#include <QObject>
#include <QSettings>
#include <QStringList>
#include <date/tz.h>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace trackloom {

/// A displayed point as the map draws it.
struct EditorMapPoint {
    Coordinate coordinate;
    std::int64_t segment = 0;
    /// The point belongs to a shown straight-line route (it cannot be edited).
    bool airRoute = false;

    friend bool operator==(const EditorMapPoint&, const EditorMapPoint&) = default;
};

/// Values of the speed colour scale (0 … 1) by the `from` point id of their leg.
using SpeedValues = std::unordered_map<std::int64_t, double>;

class EditorModel : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString status READ status NOTIFY statusChanged)
    Q_PROPERTY(bool busy READ busy NOTIFY busyChanged)
    Q_PROPERTY(bool structuralDirty READ structuralDirty NOTIFY dirtyChanged)
    Q_PROPERTY(bool colorBySpeed READ colorBySpeed WRITE setColorBySpeed NOTIFY coloursChanged)
    Q_PROPERTY(bool removeAirRoutes READ removeAirRoutes WRITE setAirRouteRemoval NOTIFY
                   removeAirRoutesChanged)
    Q_PROPERTY(double threshold READ threshold WRITE setThreshold NOTIFY thresholdChanged)

  public:
    /// `settings` holds "colorBySpeed" and "removeAirRoutes"; `localZone` is the
    /// zone times are shown in unless UTC is chosen.
    EditorModel(QSettings& settings, UserDialogs& dialogs, const date::time_zone& localZone,
                QObject* parent = nullptr);
    /// Cancels background work and waits for it; its results are dropped.
    ~EditorModel() override;

    EditorTimeFields& timeFields() { return m_timeFields; }
    const EditorTimeFields& timeFields() const { return m_timeFields; }
    EditorMapTool& mapTool() { return m_mapTool; }
    const EditorMapTool& mapTool() const { return m_mapTool; }
    EditorExports& exports() { return m_exports; }

    // The observable fields.
    const TrackPtr& track() const { return m_track; }
    const QString& filename() const { return m_filename; }
    bool structuralDirty() const { return m_structuralDirty; }
    /// Edits, or generated or shifted times, that no export has written yet.
    /// Unlike `structuralDirty`, undoing back to the opened or exported state
    /// clears it.
    bool hasUnsavedWork() const { return m_unsavedWork; }
    const QString& appendSummary() const { return m_appendSummary; }
    const QStringList& protectedGPXURLs() const { return m_protectedGPXURLs; }
    const TrackPtr& lastExportedSource() const { return m_lastExportedSource; }
    std::optional<std::int64_t> selectedPointID() const { return m_selectedPointID; }
    int mapRevision() const { return m_mapRevision; }
    int mapFitRequest() const { return m_mapFitRequest; }
    /// Bumped whenever another track is opened (not by edits of the same one).
    int openedRevision() const { return m_openedRevision; }
    const QString& firstPartName() const { return m_firstPartName; }
    const QString& secondPartName() const { return m_secondPartName; }
    const std::vector<EditorMapPoint>& mapPoints() const { return m_mapPoints; }
    bool colorBySpeed() const { return m_colorBySpeed; }
    /// Speed colours by point id; null while the track is not coloured by speed.
    /// Shared, so that the map can prepare its lines from it on another thread.
    const std::shared_ptr<const SpeedValues>& speedScale() const { return m_speedScale; }
    double speedScaleTop() const { return m_speedScaleTop; }
    const std::optional<QString>& sourceURL() const { return m_sourceURL; }
    const std::optional<QString>& protectedTimelineURL() const { return m_protectedTimelineURL; }
    double threshold() const { return m_threshold; }
    bool busy() const { return m_jobs.isBusy(); }
    const std::optional<QString>& error() const { return m_error; }
    const QString& status() const { return m_status; }
    bool isSynthetic() const { return m_isSynthetic; }
    bool removeAirRoutes() const { return m_removeAirRoutes; }
    /// The editing session; null before a track is open and while an edit runs.
    const GPXEditingSession* session() const { return m_session.get(); }
    bool sourceIsSynthetic() const { return m_sourceIsSynthetic; }

    // Questions the screens ask to enable their commands.
    /// The track can be written with its start moved: it has a start time and
    /// no unreadable timestamp anywhere in the file.
    bool canShift() const;
    /// A session takes the next edit: a track is open; while an edit runs, edits
    /// wait their turn, so this stays true.
    bool canEdit() const;
    /// An edit, undo or redo runs in the background.
    bool isEditing() const { return m_lentSession != nullptr; }
    /// The requests waiting for the running edit.
    int queuedRequests() const { return static_cast<int>(m_queued.size()); }
    bool canUndo() const;
    bool canRedo() const;
    bool canMerge() const;
    /// The selected point may be edited (it is no point of a shown air route).
    bool canEditSelected() const;

    // Opening.
    /// Asks before unexported edits are replaced; true when they may be.
    bool mayReplace();
    /// Asks `mayReplace`, offers an open dialog for GPX files, then loads.
    void open();
    /// Reads the file in the background and makes it the edited track.
    void load(const QString& path);
    /// Asks `mayReplace`, then shows the sample track.
    void demo();
    /// Makes a GPX document exported from the timeline the edited track;
    /// `timelinePath` is the history file it came from, never to be overwritten.
    void acceptTimelineDay(std::string gpxData, const QString& title,
                           std::optional<QString> timelinePath);
    /// Asks for a second GPX file and appends it (one undo step).
    void appendTrack();

    /// Generates the display's times from the time fields (not an undo step).
    void previewGenerated();

    // Display.
    void setThreshold(double kmh);
    void setColorBySpeed(bool colorBySpeed);
    /// Hides or shows the straight-line routes and remembers the choice.
    void setAirRouteRemoval(bool remove);
    /// Recomputes the speed colours of the displayed track.
    void updateSpeedScale();
    void selectPoint(std::optional<std::int64_t> displayed);
    /// Asks the map to show the whole track again.
    void fitMap();
    void clearError();

    // Edits, each one undo step, addressed by the selected displayed point.
    void setFirstPartName(const QString& name);
    void setSecondPartName(const QString& name);
    void splitSelected();
    void trimBeforeSelected();
    void trimAfterSelected();
    void deleteSelected();
    void mergeSegments();
    /// A point was dragged to `to`.
    void dragPoint(std::int64_t displayed, Coordinate to);
    /// Undoes or redoes the last edit of any kind.
    void undo();
    void redo();

  signals:
    void trackChanged();
    void statusChanged();
    /// Emitted for every error set, also when the text repeats.
    void errorChanged();
    void busyChanged(bool busy);
    void dirtyChanged();
    /// `hasUnsavedWork` changed.
    void unsavedWorkChanged();
    void selectionChanged();
    /// The map points and their revision changed.
    void mapPointsChanged();
    /// The map should show the whole track (`mapFitRequest` was bumped).
    void fitRequested();
    /// Colouring by speed was switched, or its scale recomputed.
    void coloursChanged();
    void thresholdChanged();
    void removeAirRoutesChanged();
    void splitNamesChanged();

  private:
    friend class EditorExports;
    friend class EditorMapTool;

    using SessionPtr = std::shared_ptr<GPXEditingSession>;
    /// Runs on the thread pool with the lent session; returns the status text
    /// or throws `GPXError`.
    using SessionWork = std::function<QString(GPXEditingSession&)>;

    enum Lane : JobRunner::Lane { loadLane, editLane, writeLane };

    /// How the model follows up a session operation.
    struct SessionEffects {
        /// The displayed point to select afterwards.
        std::optional<std::int64_t> keeping;
        /// The operation is an edit that has not been exported yet.
        bool structural = false;
        /// The map shows the whole track afterwards.
        bool fitsMap = false;
        std::optional<QString> failureStatus;
        /// Further state to adopt on success, given the status text.
        std::function<void(const QString&)> succeeded;
    };

    void startLoad(std::function<TrackPtr()> read, std::function<void()> adopt,
                   std::function<QString(const GPXTrack&)> successStatus);
    void showNewSession(SessionPtr session);
    /// Whether an edit may start now; sets a refusal when not.
    bool requireEditable();
    /// While an edit runs, keeps `request` to run after it (true).
    bool queuedWhileEditing(std::function<void()> request);
    void runNextQueued();
    /// Runs `work` with the session lent to it; `running` is the status meanwhile.
    void runOnSession(SessionWork work, SessionEffects effects, const QString& running);
    void finishSessionWork(const SessionEffects& effects, const QString& status);
    void failSessionWork(const SessionEffects& effects, const QString& failure);
    void editSelected(std::function<void(GPXEditingSession&, std::int64_t)> edit,
                      const QString& running, const QString& done,
                      std::optional<std::int64_t> keeping);
    void refreshMap(bool fit, std::optional<std::int64_t> keeping);
    void computeSpeedScale();
    void setStatus(const QString& status);
    void setError(const QString& error);
    void fail(const QString& error, const QString& status);
    void setStructuralDirty(bool dirty);
    void protectFile(const QString& path);
    /// Every file no export may write over: the opened and appended files and
    /// the timeline a day came from.
    QStringList protectedPaths() const;
    /// What the last export (or the opening) wrote: the edited source's bytes
    /// (a whole parsed document would cost ten times as much to keep), the
    /// rule its times were generated by and the start they were shifted to.
    struct WrittenState {
        std::shared_ptr<const std::string> sourceBytes;
        std::optional<Timing> timing;
        std::optional<Instant> shift;
    };

    /// The whole track was written as `written` describes.
    void markExported(WrittenState written, TrackPtr source);
    void updateUnsavedWork();

    QSettings& m_settings;
    UserDialogs& m_dialogs;

    TrackPtr m_track;
    QString m_filename;
    bool m_structuralDirty = false;
    QString m_appendSummary;
    QStringList m_protectedGPXURLs;
    TrackPtr m_lastExportedSource;
    std::optional<std::int64_t> m_selectedPointID;
    int m_mapRevision = 0;
    int m_mapFitRequest = 0;
    int m_openedRevision = 0;
    QString m_firstPartName;
    QString m_secondPartName;
    std::vector<EditorMapPoint> m_mapPoints;
    bool m_colorBySpeed = false;
    std::shared_ptr<const SpeedValues> m_speedScale;
    double m_speedScaleTop = 0;
    std::optional<QString> m_sourceURL;
    std::optional<QString> m_protectedTimelineURL;
    double m_threshold = 80;
    std::optional<QString> m_error;
    QString m_status;
    bool m_isSynthetic = false;
    bool m_removeAirRoutes = true;
    SessionPtr m_session;
    // The session an edit works on, kept here so that the job never frees it
    // on the main thread, and handed back when the edit ends either way.
    SessionPtr m_lentSession;
    QString m_running;
    std::deque<std::function<void()>> m_queued;
    bool m_sourceIsSynthetic = false;
    WrittenState m_written;
    bool m_unsavedWork = false;

    EditorTimeFields m_timeFields;
    EditorMapTool m_mapTool;
    EditorExports m_exports;
    // Last, so that it is destroyed first: its jobs deliver into the members above.
    JobRunner m_jobs;
};

} // namespace trackloom
