#include "app/editor/editor_model.h"

#include "app/shell/app_settings.h"
#include "core/track/speed_scale.h"

#include <cmath>

namespace trackloom {
namespace {

const QString colorBySpeedKey = QStringLiteral("colorBySpeed");
const QString removeAirRoutesKey = QStringLiteral("removeAirRoutes");

} // namespace

EditorModel::EditorModel(QSettings& settings, UserDialogs& dialogs,
                         const date::time_zone& localZone, QObject* parent)
    : QObject(parent), m_settings(settings), m_dialogs(dialogs), m_firstPartName(tr("Hinweg")),
      m_secondPartName(tr("Rückweg")),
      m_colorBySpeed(storedFlag(settings, colorBySpeedKey).value_or(false)),
      m_removeAirRoutes(storedFlag(settings, removeAirRoutesKey).value_or(true)),
      m_timeFields(*this, localZone), m_mapTool(*this), m_exports(*this) {
    connect(&m_jobs, &JobRunner::busyChanged, this, &EditorModel::busyChanged);
    connect(&m_timeFields, &EditorTimeFields::changed, this, &EditorModel::updateUnsavedWork);
}

EditorModel::~EditorModel() {
    m_jobs.cancelAll();
}

bool EditorModel::canShift() const {
    return m_track && m_track->start() && m_track->analysis().invalidTimes == 0 &&
           m_track->auxiliaryInvalidTimes() == 0;
}

// While an edit runs, the lent session cannot be asked; what the user asks for
// then waits its turn and is checked when it runs.

bool EditorModel::canEdit() const {
    return m_session != nullptr || isEditing();
}

bool EditorModel::canUndo() const {
    return m_session ? m_session->canUndo() : isEditing();
}

bool EditorModel::canRedo() const {
    return m_session ? m_session->canRedo() : isEditing();
}

bool EditorModel::canMerge() const {
    return m_session ? m_session->canMerge() : isEditing();
}

bool EditorModel::canEditSelected() const {
    if (!m_selectedPointID) {
        return false;
    }
    return m_session ? m_session->canEdit(*m_selectedPointID) : isEditing();
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
    computeSpeedScale();
    emit coloursChanged();
}

void EditorModel::computeSpeedScale() {
    m_jobs.retire(std::move(m_speedScale));
    if (m_colorBySpeed && m_track) {
        auto scale = SpeedScale::of(m_track->analysis());
        m_speedScale = std::make_shared<const SpeedValues>(std::move(scale.values));
        m_speedScaleTop = scale.top;
    } else {
        m_speedScaleTop = 0;
    }
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
    emit fitRequested();
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
    // The colours belong to the new points: the map prepares both at once.
    computeSpeedScale();
    emit mapPointsChanged();
    emit coloursChanged();
    if (fit) {
        fitMap();
    }
    selectPoint(keeping);
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

void EditorModel::protectFile(const QString& path) {
    if (!m_protectedGPXURLs.contains(path)) {
        m_protectedGPXURLs.append(path);
    }
}

QStringList EditorModel::protectedPaths() const {
    QStringList paths = m_protectedGPXURLs;
    if (m_protectedTimelineURL) {
        paths.append(*m_protectedTimelineURL);
    }
    return paths;
}

void EditorModel::markExported(WrittenState written, TrackPtr source) {
    m_jobs.retire(std::move(m_lastExportedSource));
    m_lastExportedSource = std::move(source);
    m_jobs.retire(std::move(m_written.sourceBytes));
    m_written = std::move(written);
    setStructuralDirty(false);
    updateUnsavedWork();
}

namespace {

bool sameTiming(const std::optional<Timing>& a, const std::optional<Timing>& b) {
    if (!a || !b) {
        return a.has_value() == b.has_value();
    }
    if (const auto* speed = std::get_if<TimingBySpeed>(&*a)) {
        const auto* other = std::get_if<TimingBySpeed>(&*b);
        return other && other->start == speed->start && other->kmh == speed->kmh;
    }
    const auto& endpoints = std::get<TimingByEndpoints>(*a);
    const auto* other = std::get_if<TimingByEndpoints>(&*b);
    return other && other->start == endpoints.start && other->end == endpoints.end;
}

// Undo states are kept packed, so an undone source is an equal track rather
// than the same object; its bytes tell. The session keeps them from each edit.
bool sameBytes(const std::shared_ptr<const std::string>& a,
               const std::shared_ptr<const std::string>& b) {
    return a == b || (a && b && *a == *b);
}

} // namespace

void EditorModel::updateUnsavedWork() {
    // While an edit runs the session is lent out; the answer of before stands
    // until it comes back.
    if (m_lentSession) {
        return;
    }
    const bool unsaved =
        m_session && (!sameBytes(m_session->workingBytes(), m_written.sourceBytes) ||
                      !sameTiming(m_session->timing(), m_written.timing) ||
                      m_timeFields.pendingShift() != m_written.shift);
    if (unsaved != m_unsavedWork) {
        m_unsavedWork = unsaved;
        emit unsavedWorkChanged();
    }
}

} // namespace trackloom
