// The inspector, the edits with their undo history, and the change of zone.

#include "app/timeline/timeline_model.h"
#include "core/base/time_zones.h"

#include <QLocale>
#include <cmath>

namespace trackloom {
namespace {

/// A typed coordinate with a decimal point or comma; absent unless finite and
/// within ±`limit`.
std::optional<double> parseDegrees(QString text, double limit) {
    text = text.trimmed().replace(u',', u'.');
    bool ok = false;
    const double value = text.toDouble(&ok);
    if (!ok || !std::isfinite(value) || std::abs(value) > limit) {
        return std::nullopt;
    }
    return value;
}

QString degreesText(double value) {
    return QString::number(value, 'f', 6);
}

/// Runs `pass` over the session's current points in recorded order. Unedited,
/// they are the document's own and need no copy. Nothing edits the session
/// meanwhile: the model takes no edits while a job reads it.
template <typename Pass>
auto overCurrentPoints(const TimelineSession& session, bool pristine, Pass&& pass) {
    const auto copy = pristine ? std::vector<TimelinePoint>() : session.recordedPoints();
    return pass(pristine ? session.document().points() : copy);
}

} // namespace

bool TimelineModel::canUndo() const {
    return canEdit() && m_session->canUndo();
}

bool TimelineModel::canRedo() const {
    return canEdit() && m_session->canRedo();
}

QString TimelineModel::undoName() const {
    return m_undoNames.isEmpty() ? QString() : m_undoNames.back();
}

QString TimelineModel::redoName() const {
    return m_redoNames.isEmpty() ? QString() : m_redoNames.back();
}

std::optional<TimelinePoint> TimelineModel::selectedPoint() const {
    for (const auto& point : m_points) {
        if (m_selection.contains(point.id)) {
            return point;
        }
    }
    return std::nullopt;
}

bool TimelineModel::canApplyEdit() const {
    return canEdit() && m_selection.size() == 1 && selectedPoint();
}

bool TimelineModel::canSplit() const {
    return canEdit() && m_selection.size() == 1 && m_session->canSplitAt(*m_selection.begin());
}

std::optional<std::int64_t> TimelineModel::selectedSection() const {
    std::optional<std::int64_t> section;
    for (const auto& point : m_points) {
        if (!m_selection.contains(point.id)) {
            continue;
        }
        if (section && *section != point.segment) {
            return std::nullopt;
        }
        section = point.segment;
    }
    return section;
}

void TimelineModel::setSelection(std::set<std::int64_t> ids) {
    if (ids == m_selection) {
        return;
    }
    m_selection = std::move(ids);
    emit selectionChanged();
    fillInspector();
}

void TimelineModel::fillInspector() {
    if (const auto point = selectedPoint()) {
        m_latitude = degreesText(point->latitude);
        m_longitude = degreesText(point->longitude);
        m_pointTime = point->time;
        m_visitEnd = point->endTime.value_or(point->time);
        m_label = QString::fromStdString(point->label);
    } else {
        m_latitude.clear();
        m_longitude.clear();
        m_label.clear();
        m_moveOnMap = false;
    }
    emit inspectorChanged();
}

void TimelineModel::setLatitude(const QString& text) {
    m_latitude = text;
    emit inspectorChanged();
}

void TimelineModel::setLongitude(const QString& text) {
    m_longitude = text;
    emit inspectorChanged();
}

void TimelineModel::setPointTime(Instant time) {
    m_pointTime = time;
    emit inspectorChanged();
}

void TimelineModel::setVisitEnd(Instant end) {
    m_visitEnd = end;
    emit inspectorChanged();
}

void TimelineModel::setLabel(const QString& text) {
    m_label = text;
    emit inspectorChanged();
}

void TimelineModel::setMoveOnMap(bool moveOnMap) {
    m_moveOnMap = moveOnMap && selectedPoint().has_value();
    emit inspectorChanged();
}

void TimelineModel::setCoordinate(double latitude, double longitude) {
    if (!m_moveOnMap) {
        return;
    }
    m_latitude = degreesText(latitude);
    m_longitude = degreesText(longitude);
    m_moveOnMap = false;
    emit inspectorChanged();
    setStatus(tr("Neue Position gewählt. Mit „Änderung übernehmen“ speichern."));
}

void TimelineModel::setFirstPartName(const QString& name) {
    m_firstPartName = name;
    emit inspectorChanged();
}

void TimelineModel::setSecondPartName(const QString& name) {
    m_secondPartName = name;
    emit inspectorChanged();
}

std::set<Instant> TimelineModel::daysOf(std::span<const Change> changes) const {
    std::set<Instant> days;
    const auto add = [&](const std::optional<TimelinePoint>& point) {
        if (point) {
            forEachDayOf(*point, m_session->calendar(), [&](Instant day) { days.insert(day); });
        }
    };
    for (const auto& change : changes) {
        add(change.before);
        add(change.after);
    }
    return days;
}

template <typename Edit>
void TimelineModel::recordEdit(const QString& name, const QString& done, Edit&& edit) {
    if (!canEdit()) {
        return;
    }
    const auto before = m_session->undoCount();
    try {
        edit(*m_session);
    } catch (const GPXError& error) {
        setError(QString::fromStdString(error.message()));
        return;
    }
    clearError();
    if (m_session->undoCount() > before) {
        m_undoNames.push_back(name);
        m_redoNames.clear();
        setDirty(true);
        afterHistoryStep(daysOf(m_session->nextUndo()), done);
    } else {
        setStatus(done);
    }
}

void TimelineModel::afterHistoryStep(const std::set<Instant>& days, const QString& done) {
    refreshSummaries(days);
    refreshDays();
    showScope(false);
    fillInspector();
    emit historyChanged();
    setStatus(done);
}

void TimelineModel::applyEdit() {
    const auto point = selectedPoint();
    if (!canEdit() || !point || m_selection.size() != 1) {
        setError(tr("Bitte genau einen Punkt auswählen."));
        return;
    }
    const auto latitude = parseDegrees(m_latitude, 90);
    const auto longitude = parseDegrees(m_longitude, 180);
    if (!latitude || !longitude) {
        setError(tr("Bitte gültige Koordinaten eingeben."));
        return;
    }
    auto edited = *point;
    edited.latitude = *latitude;
    edited.longitude = *longitude;
    edited.time = m_pointTime;
    if (edited.kind == TimelinePointKind::visit && edited.endTime) {
        edited.endTime = m_visitEnd;
    }
    edited.label = m_label.toStdString();
    m_moveOnMap = false;
    recordEdit(tr("Punkt ändern"), tr("Punkt geändert. Die Originaldatei bleibt unverändert."),
               [&](TimelineSession& session) { session.edit(edited); });
}

void TimelineModel::movePoint(std::int64_t id, double latitude, double longitude) {
    const auto point = m_session ? m_session->point(id) : std::nullopt;
    if (!point) {
        return;
    }
    auto moved = *point;
    moved.latitude = latitude;
    moved.longitude = longitude;
    recordEdit(tr("Punkt verschieben"), tr("Punkt geändert. Die Originaldatei bleibt unverändert."),
               [&](TimelineSession& session) { session.edit(moved); });
}

void TimelineModel::deleteSelection() {
    if (m_selection.empty()) {
        return;
    }
    const auto ids = m_selection;
    recordEdit(tr("Punkte löschen"),
               QString::number(ids.size()) + tr(" Punkt(e) gelöscht · Rückgängig ist möglich."),
               [&](TimelineSession& session) { session.deletePoints(ids); });
}

void TimelineModel::splitSelection() {
    if (m_selection.size() != 1) {
        setError(tr("Bitte genau einen Punkt auswählen."));
        return;
    }
    const auto id = *m_selection.begin();
    recordEdit(tr("Abschnitt teilen"),
               tr("Abschnitt geteilt. Der Grenzpunkt bleibt in beiden Teilen erhalten."),
               [&](TimelineSession& session) {
                   session.splitAt(id, m_firstPartName.toStdString(),
                                   m_secondPartName.toStdString());
               });
}

void TimelineModel::undo() {
    if (!canUndo()) {
        return;
    }
    const auto days = daysOf(m_session->nextUndo());
    const QString name = m_undoNames.isEmpty() ? QString() : m_undoNames.takeLast();
    m_redoNames.push_back(name);
    m_session->undo();
    setDirty(true);
    afterHistoryStep(days, tr("Rückgängig gemacht: ") + name);
}

void TimelineModel::redo() {
    if (!canRedo()) {
        return;
    }
    const auto days = daysOf(m_session->nextRedo());
    const QString name = m_redoNames.isEmpty() ? QString() : m_redoNames.takeLast();
    m_undoNames.push_back(name);
    m_session->redo();
    setDirty(true);
    afterHistoryStep(days, tr("Wiederhergestellt: ") + name);
}

void TimelineModel::changeZone(const QString& identifier) {
    const auto* zone = findTimeZone(identifier.toStdString());
    if (!zone) {
        setError(tr("Unbekannte Zeitzone: ") + identifier);
        return;
    }
    if (zone == m_zone) {
        return;
    }
    if (!m_session) {
        m_zone = zone;
        emit zoneChanged();
        return;
    }
    if (!canEdit()) {
        setError(tr("Bitte warten, bis die laufende Arbeit beendet ist."));
        return;
    }
    clearError();
    // The shown day is found again by its middle, which lies on the same date
    // in nearly every zone.
    const auto shownMiddle =
        m_selectedDay ? std::optional(m_selectedDay->advanced(12 * 3600)) : std::nullopt;
    setStatus(tr("Tage werden für ") + identifier + tr(" neu zugeordnet …"));
    m_jobs.start<TimelineDayIndex>(
        indexLane,
        [session = m_session, zone, pristine = m_session->isPristine()](const JobContext& context) {
            return overCurrentPoints(*session, pristine, [&](const auto& points) {
                return TimelineSession::makeDayIndex(points, zone, context.token(),
                                                     context.progressBetween(0, 1));
            });
        },
        [this, zone, shownMiddle](TimelineDayIndex index) {
            m_zone = zone;
            adoptIndex(std::move(index), shownMiddle);
        },
        [this](const QString& message) { setError(message); });
}

void TimelineModel::adoptIndex(TimelineDayIndex index, std::optional<Instant> shownMiddle) {
    m_session->applyDayIndex(std::move(index));
    // The days show at once with their counts; what they hold follows from a
    // second pass, so the new days never wait for it.
    m_summaries.clear();
    summarizeInBackground();
    refreshDays();
    if (shownMiddle) {
        m_selectedDay = m_session->calendar().startOfDay(*shownMiddle);
    }
    emit zoneChanged();
    emit rangeChanged();
    showScope(false);
    setStatus(tr("Zeitzone geändert. Punkte und Rückgängig-Verlauf bleiben erhalten."));
}

void TimelineModel::summarizeInBackground() {
    m_jobs.start<std::map<Instant, TimelineDaySummary>>(
        summaryLane,
        [session = m_session, calendar = m_session->calendar(),
         pristine = m_session->isPristine()](const JobContext& context) {
            return overCurrentPoints(*session, pristine, [&](const auto& points) {
                return summarizeDays(points, calendar, context.token());
            });
        },
        [this](std::map<Instant, TimelineDaySummary> summaries) {
            m_summaries = std::move(summaries);
            refreshDays();
        },
        [this](const QString& message) { setError(message); });
}

} // namespace trackloom
