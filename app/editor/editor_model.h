#pragma once

// The track editor's view model. It owns the editing session of the opened
// file and publishes everything the editor's screens show; every user action
// becomes one session operation followed by a status text.
//
// Threads: reading, editing, appending and writing run on the thread pool, so
// that a 50 MB track never freezes the window. While an operation runs, the
// session is handed to it and nothing else touches it; the result comes back
// to the main thread, where all state changes. A newer load wins over an older
// one, and an edit whose session was replaced meanwhile is dropped.

#include "app/shell/user_dialogs.h"
#include "core/editing/editing_session.h"
#include "core/track/gpx_track.h"

#include <QObject>
#include <QSettings>
#include <QStringList>
#include <QThreadPool>
#include <date/tz.h>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace trackloom {

struct EditorExport;

/// What a click on the map does.
enum class MapTool { select, move, insert };
/// How generated times are spread.
enum class GenerationMode { speed, startAndEnd };

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
    Q_PROPERTY(bool colorBySpeed READ colorBySpeed WRITE setColorBySpeed NOTIFY mapChanged)
    Q_PROPERTY(bool removeAirRoutes READ removeAirRoutes WRITE setAirRouteRemoval NOTIFY
                   removeAirRoutesChanged)
    Q_PROPERTY(double threshold READ threshold WRITE setThreshold NOTIFY thresholdChanged)

  public:
    /// `settings` holds "colorBySpeed" and "removeAirRoutes"; `localZone` is the
    /// zone times are shown in unless UTC is chosen.
    EditorModel(QSettings& settings, UserDialogs& dialogs, const date::time_zone& localZone,
                QObject* parent = nullptr);
    /// Waits for background work to end; its results are dropped.
    ~EditorModel() override;

    // The observable fields.
    const TrackPtr& track() const { return m_track; }
    const QString& filename() const { return m_filename; }
    bool structuralDirty() const { return m_structuralDirty; }
    const QString& appendSummary() const { return m_appendSummary; }
    const QStringList& protectedGPXURLs() const { return m_protectedGPXURLs; }
    const TrackPtr& lastExportedSource() const { return m_lastExportedSource; }
    std::optional<std::int64_t> selectedPointID() const { return m_selectedPointID; }
    int mapRevision() const { return m_mapRevision; }
    int mapFitRequest() const { return m_mapFitRequest; }
    const QString& firstPartName() const { return m_firstPartName; }
    const QString& secondPartName() const { return m_secondPartName; }
    const std::vector<EditorMapPoint>& mapPoints() const { return m_mapPoints; }
    bool colorBySpeed() const { return m_colorBySpeed; }
    /// Speed colours by point id; null while the track is not coloured by speed.
    /// Shared, so that the map can prepare its lines from it on another thread.
    const std::shared_ptr<const SpeedValues>& speedScale() const { return m_speedScale; }
    double speedScaleTop() const { return m_speedScaleTop; }
    MapTool mapTool() const { return m_mapTool; }
    const std::vector<Coordinate>& pendingPoints() const { return m_pendingPoints; }
    std::optional<std::int64_t> insertAnchor() const { return m_insertAnchor; }
    const std::optional<QString>& sourceURL() const { return m_sourceURL; }
    const std::optional<QString>& protectedTimelineURL() const { return m_protectedTimelineURL; }
    Instant newStart() const { return m_newStart; }
    Instant newEnd() const { return m_newEnd; }
    bool useUTC() const { return m_useUTC; }
    bool generate() const { return m_generate; }
    GenerationMode generationMode() const { return m_generationMode; }
    double syntheticSpeed() const { return m_syntheticSpeed; }
    double threshold() const { return m_threshold; }
    bool busy() const { return m_runningJobs > 0; }
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
    /// A session is ready for the next edit (a track is open, nothing runs).
    bool canEdit() const;
    bool canUndo() const;
    bool canRedo() const;
    bool canMerge() const;
    /// The selected point may be edited (it is no point of a shown air route).
    bool canEditSelected() const;
    /// Why the time fields cannot generate times, or nothing when they can.
    std::optional<QString> generationError() const;
    /// The speed that start and end imply, when they are usable.
    std::optional<double> impliedSpeed() const;
    /// The display shows what the time fields ask for; shifting is applied
    /// while exporting and always counts as applied.
    bool timeFieldsApplied() const;
    /// The zone times are shown and entered in: UTC or the local zone.
    const date::time_zone& zone() const;
    /// Points per day of the track in `zone()`, for the date picker.
    std::map<Instant, std::int64_t> calendarCounts() const;

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

    // Times.
    void setNewStart(Instant start);
    void setNewEnd(Instant end);
    /// Moves the start (or end) to the calendar day of `day`, keeping its time of day.
    void pickStartDay(Instant day);
    void pickEndDay(Instant day);
    void setUseUTC(bool useUTC);
    void setGenerate(bool generate);
    void setGenerationMode(GenerationMode mode);
    void setSyntheticSpeed(double kmh);
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
    void setMapTool(MapTool tool);
    void clearError();

    // Edits, each one undo step, addressed by the selected displayed point.
    void setFirstPartName(const QString& name);
    void setSecondPartName(const QString& name);
    void splitSelected();
    void trimBeforeSelected();
    void trimAfterSelected();
    void deleteSelected();
    void mergeSegments();
    void undoSplit();
    void redoSplit();

    // The map tools.
    /// A click on the map outside the line: selects in the select and move
    /// tools (`hit` is the displayed point under the pointer), adds a pending
    /// point while inserting.
    void mapClicked(std::optional<std::int64_t> hit, Coordinate where);
    /// A click on the leg that starts at displayed point `legStart` while inserting.
    void insertOnLine(std::int64_t legStart, Coordinate where);
    /// A point was dragged to `to`.
    void dragPoint(std::int64_t displayed, Coordinate to);
    /// Switches to inserting, after the selected point when it takes new points.
    void startInserting();
    /// Inserts the pending points after the anchor.
    void finishInserting();
    void cancelInserting();

    // Exports; none of them ever writes over an opened file.
    void exportTrack();
    void exportSingleTrack();
    void exportSelectedSegment();

  signals:
    void trackChanged();
    void statusChanged();
    /// Emitted for every error set, also when the text repeats.
    void errorChanged();
    void busyChanged(bool busy);
    void dirtyChanged();
    void selectionChanged();
    /// Map points, revision, fit request or colours changed.
    void mapChanged();
    void mapToolChanged();
    void pendingPointsChanged();
    void timeFieldsChanged();
    void thresholdChanged();
    void removeAirRoutesChanged();
    void splitNamesChanged();

  private:
    using SessionPtr = std::shared_ptr<GPXEditingSession>;
    /// Runs on the thread pool with the lent session; returns the status text
    /// or throws `GPXError`.
    using SessionWork = std::function<QString(GPXEditingSession&)>;
    /// What a background job hands back to the main thread.
    using Publish = std::function<void()>;

    /// How the model follows up a session operation.
    struct SessionEffects {
        /// The displayed point to select afterwards.
        std::optional<std::int64_t> keeping;
        /// The operation is an edit that has not been exported yet.
        bool structural = false;
        std::optional<QString> failureStatus;
        /// Further state to adopt on success, given the status text.
        std::function<void(const QString&)> succeeded;
    };

    void inBackground(std::function<Publish()> work);
    /// Keeps a replaced track or session until every screen has let go of it,
    /// then frees it on the thread pool: freeing a 50 MB document takes long.
    void retire(std::shared_ptr<const void> old);
    void releaseRetired();
    void startLoad(std::function<TrackPtr()> read, std::function<void()> adopt,
                   std::function<QString(const GPXTrack&)> successStatus);
    void showNewSession(SessionPtr session);
    bool requireEditable();
    void runOnSession(SessionWork work, SessionEffects effects);
    void finishSessionWork(SessionPtr session, const SessionEffects& effects,
                           const std::optional<QString>& status,
                           const std::optional<QString>& failure = std::nullopt);
    void editSelected(std::function<void(GPXEditingSession&, std::int64_t)> edit,
                      const QString& done, std::optional<std::int64_t> keeping);
    void refreshMap(bool fit, std::optional<std::int64_t> keeping);
    void followTrackTimes();
    void setStatus(const QString& status);
    void setError(const QString& error);
    void fail(const QString& error, const QString& status);
    void setStructuralDirty(bool dirty);
    void setPending(std::vector<Coordinate> points, std::optional<std::int64_t> anchor);
    void protectFile(const QString& path);

    std::optional<QString> exportRefusal() const;
    std::optional<Instant> pendingShift() const;
    std::optional<QString> protectionError(const QString& destination) const;
    void writeExport(EditorExport plan);

    QSettings& m_settings;
    UserDialogs& m_dialogs;
    const date::time_zone* m_localZone;
    const date::time_zone* m_utcZone;

    TrackPtr m_track;
    QString m_filename;
    bool m_structuralDirty = false;
    QString m_appendSummary;
    QStringList m_protectedGPXURLs;
    TrackPtr m_lastExportedSource;
    std::optional<std::int64_t> m_selectedPointID;
    int m_mapRevision = 0;
    int m_mapFitRequest = 0;
    QString m_firstPartName;
    QString m_secondPartName;
    std::vector<EditorMapPoint> m_mapPoints;
    bool m_colorBySpeed = false;
    std::shared_ptr<const SpeedValues> m_speedScale;
    double m_speedScaleTop = 0;
    MapTool m_mapTool = MapTool::select;
    std::vector<Coordinate> m_pendingPoints;
    std::optional<std::int64_t> m_insertAnchor;
    std::optional<QString> m_sourceURL;
    std::optional<QString> m_protectedTimelineURL;
    Instant m_newStart;
    Instant m_newEnd;
    bool m_useUTC = false;
    bool m_generate = false;
    GenerationMode m_generationMode = GenerationMode::speed;
    double m_syntheticSpeed = 20;
    double m_threshold = 80;
    std::optional<QString> m_error;
    QString m_status;
    bool m_isSynthetic = false;
    bool m_removeAirRoutes = true;
    SessionPtr m_session;
    bool m_sourceIsSynthetic = false;

    // The time fields follow the track's own times until the user sets one.
    bool m_timeFieldsChosen = false;
    int m_runningJobs = 0;
    // Bumped by every load request; only the newest load's result is shown.
    std::uint64_t m_loadGeneration = 0;
    // Bumped whenever another session is shown; edits of an older one are dropped.
    std::uint64_t m_sessionEpoch = 0;
    std::vector<std::shared_ptr<const void>> m_retired;
    QThreadPool m_pool;
};

} // namespace trackloom
