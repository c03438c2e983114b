#include "app/editor/editor_model.h"

#include "core/base/gpx_error.h"
#include "core/editing/time_operations.h"
#include "core/places/track_calendar.h"
#include "core/track/speed_scale.h"

#include <QDateTime>
#include <QFutureWatcher>
#include <QThread>
#include <QtConcurrent/QtConcurrentRun>
#include <cmath>

namespace trackloom {
namespace {

const QString colorBySpeedKey = QStringLiteral("colorBySpeed");
const QString removeAirRoutesKey = QStringLiteral("removeAirRoutes");

// QSettings hands back strings from text-based stores, real Booleans from others.
std::optional<bool> storedFlag(const QSettings& settings, const QString& key) {
    const QVariant value = settings.value(key);
    if (value.typeId() == QMetaType::Bool) {
        return value.toBool();
    }
    if (value.typeId() == QMetaType::QString) {
        if (value.toString() == QLatin1String("true")) {
            return true;
        }
        if (value.toString() == QLatin1String("false")) {
            return false;
        }
    }
    return std::nullopt;
}

Instant now() {
    return Instant::fromUnixSeconds(static_cast<double>(QDateTime::currentMSecsSinceEpoch()) /
                                    1000.0);
}

} // namespace

EditorModel::EditorModel(QSettings& settings, UserDialogs& dialogs,
                         const date::time_zone& localZone, QObject* parent)
    : QObject(parent), m_settings(settings), m_dialogs(dialogs), m_localZone(&localZone),
      m_utcZone(date::locate_zone("UTC")), m_firstPartName(tr("Hinweg")),
      m_secondPartName(tr("Rückweg")),
      m_colorBySpeed(storedFlag(settings, colorBySpeedKey).value_or(false)), m_newStart(now()),
      m_newEnd(m_newStart.advanced(3600)),
      m_removeAirRoutes(storedFlag(settings, removeAirRoutesKey).value_or(true)) {
    // A pool of our own: Qt's painting borrows the global pool's threads and
    // would wait behind a long read.
    m_pool.setMaxThreadCount(std::max(2, QThread::idealThreadCount()));
}

EditorModel::~EditorModel() {
    m_pool.waitForDone();
}

void EditorModel::inBackground(std::function<Publish()> work) {
    ++m_runningJobs;
    if (m_runningJobs == 1) {
        emit busyChanged(true);
    }
    auto* watcher = new QFutureWatcher<Publish>(this);
    connect(watcher, &QFutureWatcherBase::finished, this, [this, watcher] {
        watcher->deleteLater();
        // State changes before busy ends, so whoever waits for idle sees the result.
        watcher->result()();
        releaseRetired();
        if (--m_runningJobs == 0) {
            emit busyChanged(false);
        }
    });
    watcher->setFuture(QtConcurrent::run(&m_pool, std::move(work)));
}

void EditorModel::retire(std::shared_ptr<const void> old) {
    if (old) {
        m_retired.push_back(std::move(old));
    }
}

void EditorModel::releaseRetired() {
    if (!m_retired.empty()) {
        m_pool.start([old = std::move(m_retired)]() mutable { old.clear(); });
        m_retired.clear();
    }
}

bool EditorModel::canShift() const {
    return m_track && m_track->start() && m_track->analysis().invalidTimes == 0 &&
           m_track->auxiliaryInvalidTimes() == 0;
}

bool EditorModel::canEdit() const {
    return m_session != nullptr;
}

bool EditorModel::canUndo() const {
    return m_session && m_session->canUndo();
}

bool EditorModel::canRedo() const {
    return m_session && m_session->canRedo();
}

bool EditorModel::canMerge() const {
    return m_session && m_session->canMerge();
}

bool EditorModel::canEditSelected() const {
    return m_session && m_selectedPointID && m_session->canEdit(*m_selectedPointID);
}

std::optional<QString> EditorModel::generationError() const {
    if (!m_track) {
        return tr("Bitte öffne zuerst einen Track.");
    }
    if (m_generationMode == GenerationMode::startAndEnd) {
        try {
            requiredSpeed(*m_track, m_newStart, m_newEnd);
            return std::nullopt;
        } catch (const GPXError& error) {
            return QString::fromStdString(error.message());
        }
    }
    if (!std::isfinite(m_syntheticSpeed) || m_syntheticSpeed <= 0 || m_syntheticSpeed > 1000) {
        return tr("Bitte gib eine Geschwindigkeit größer als 0 und höchstens 1.000 km/h ein.");
    }
    return std::nullopt;
}

std::optional<double> EditorModel::impliedSpeed() const {
    if (!m_track) {
        return std::nullopt;
    }
    try {
        return requiredSpeed(*m_track, m_newStart, m_newEnd);
    } catch (const GPXError&) {
        return std::nullopt;
    }
}

bool EditorModel::timeFieldsApplied() const {
    if (!m_generate) {
        return true;
    }
    const auto* timing = m_session ? &m_session->timing() : nullptr;
    if (!timing || !*timing) {
        return false;
    }
    if (m_generationMode == GenerationMode::speed) {
        const auto* rule = std::get_if<TimingBySpeed>(&**timing);
        return rule && rule->start == m_newStart && rule->kmh == m_syntheticSpeed;
    }
    const auto* rule = std::get_if<TimingByEndpoints>(&**timing);
    return rule && rule->start == m_newStart && rule->end == m_newEnd;
}

const date::time_zone& EditorModel::zone() const {
    return m_useUTC ? *m_utcZone : *m_localZone;
}

std::map<Instant, std::int64_t> EditorModel::calendarCounts() const {
    std::vector<Instant> times;
    if (m_track) {
        times.reserve(m_track->points().size());
        for (const auto& point : m_track->points()) {
            if (point.time) {
                times.push_back(*point.time);
            }
        }
    }
    return TrackCalendar::pointCounts(times, zone());
}

bool EditorModel::mayReplace() {
    if (!m_structuralDirty) {
        return true;
    }
    return m_dialogs.confirm(
        {tr("Ungesicherte GPX-Bearbeitung"),
         tr("Die bearbeitete GPX-Datei wurde noch nicht vollständig exportiert. Zum Sichern "
            "zuerst abbrechen und „GPX exportieren“ wählen."),
         tr("Abbrechen"), tr("Änderungen verwerfen")});
}

void EditorModel::setNewStart(Instant start) {
    m_timeFieldsChosen = true;
    if (start != m_newStart) {
        m_newStart = start;
        emit timeFieldsChanged();
    }
}

void EditorModel::setNewEnd(Instant end) {
    m_timeFieldsChosen = true;
    if (end != m_newEnd) {
        m_newEnd = end;
        emit timeFieldsChanged();
    }
}

void EditorModel::pickStartDay(Instant day) {
    setNewStart(TrackCalendar::replacingDay(m_newStart, day, zone()));
}

void EditorModel::pickEndDay(Instant day) {
    setNewEnd(TrackCalendar::replacingDay(m_newEnd, day, zone()));
}

void EditorModel::setUseUTC(bool useUTC) {
    if (useUTC != m_useUTC) {
        m_useUTC = useUTC;
        emit timeFieldsChanged();
    }
}

void EditorModel::setGenerate(bool generate) {
    if (generate != m_generate) {
        m_generate = generate;
        emit timeFieldsChanged();
    }
}

void EditorModel::setGenerationMode(GenerationMode mode) {
    if (mode != m_generationMode) {
        m_generationMode = mode;
        emit timeFieldsChanged();
    }
}

void EditorModel::setSyntheticSpeed(double kmh) {
    if (kmh != m_syntheticSpeed) {
        m_syntheticSpeed = kmh;
        emit timeFieldsChanged();
    }
}

void EditorModel::setThreshold(double kmh) {
    if (std::isfinite(kmh) && kmh != m_threshold) {
        m_threshold = kmh;
        emit thresholdChanged();
    }
}

void EditorModel::setColorBySpeed(bool colorBySpeed) {
    m_settings.setValue(colorBySpeedKey, colorBySpeed);
    if (colorBySpeed != m_colorBySpeed) {
        m_colorBySpeed = colorBySpeed;
        updateSpeedScale();
    }
}

void EditorModel::updateSpeedScale() {
    retire(std::move(m_speedScale));
    if (m_colorBySpeed && m_track) {
        auto scale = SpeedScale::of(m_track->analysis());
        m_speedScale = std::make_shared<const SpeedValues>(std::move(scale.values));
        m_speedScaleTop = scale.top;
    } else {
        m_speedScaleTop = 0;
    }
    emit mapChanged();
}

void EditorModel::selectPoint(std::optional<std::int64_t> displayed) {
    const auto count = m_track ? static_cast<std::int64_t>(m_track->points().size()) : 0;
    if (displayed && (*displayed < 0 || *displayed >= count)) {
        displayed.reset();
    }
    if (displayed != m_selectedPointID) {
        m_selectedPointID = displayed;
        emit selectionChanged();
    }
}

void EditorModel::fitMap() {
    ++m_mapFitRequest;
    emit mapChanged();
}

void EditorModel::setMapTool(MapTool tool) {
    if (tool != m_mapTool) {
        m_mapTool = tool;
        setPending({}, std::nullopt);
        emit mapToolChanged();
    }
}

void EditorModel::setFirstPartName(const QString& name) {
    if (name != m_firstPartName) {
        m_firstPartName = name;
        emit splitNamesChanged();
    }
}

void EditorModel::setSecondPartName(const QString& name) {
    if (name != m_secondPartName) {
        m_secondPartName = name;
        emit splitNamesChanged();
    }
}

void EditorModel::refreshMap(bool fit, std::optional<std::int64_t> keeping) {
    m_mapPoints.clear();
    if (m_track) {
        const auto& airRoutePoints = m_track->airRoutePointIDs();
        m_mapPoints.reserve(m_track->points().size());
        for (const auto& point : m_track->points()) {
            m_mapPoints.push_back({{point.latitude, point.longitude},
                                   point.segment,
                                   airRoutePoints.contains(point.id)});
        }
    }
    ++m_mapRevision;
    if (fit) {
        ++m_mapFitRequest;
    }
    selectPoint(keeping);
    updateSpeedScale();
}

void EditorModel::followTrackTimes() {
    if (m_timeFieldsChosen || !m_track || !m_track->start()) {
        return;
    }
    const Instant start = *m_track->start();
    const auto end = m_track->end();
    m_newStart = start;
    m_newEnd = end && *end > start ? *end : start.advanced(3600);
    emit timeFieldsChanged();
}

void EditorModel::setStatus(const QString& status) {
    m_status = status;
    emit statusChanged();
}

void EditorModel::setError(const QString& error) {
    m_error = error;
    emit errorChanged();
}

void EditorModel::clearError() {
    if (m_error) {
        m_error.reset();
        emit errorChanged();
    }
}

void EditorModel::fail(const QString& error, const QString& status) {
    setError(error);
    setStatus(status);
}

void EditorModel::setStructuralDirty(bool dirty) {
    if (dirty != m_structuralDirty) {
        m_structuralDirty = dirty;
        emit dirtyChanged();
    }
}

void EditorModel::setPending(std::vector<Coordinate> points, std::optional<std::int64_t> anchor) {
    if (points != m_pendingPoints || anchor != m_insertAnchor) {
        m_pendingPoints = std::move(points);
        m_insertAnchor = anchor;
        emit pendingPointsChanged();
    }
}

void EditorModel::protectFile(const QString& path) {
    if (!m_protectedGPXURLs.contains(path)) {
        m_protectedGPXURLs.append(path);
    }
}

} // namespace trackloom
