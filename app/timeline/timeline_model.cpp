#include "app/timeline/timeline_model.h"

#include "app/shell/file_paths.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFileInfo>
#include <algorithm>

namespace trackloom {
namespace {

Instant now() {
    return Instant::fromUnixSeconds(static_cast<double>(QDateTime::currentMSecsSinceEpoch()) /
                                    1000.0);
}

QString count(std::int64_t value) {
    return QString::number(value);
}

} // namespace

struct TimelineModel::Loaded {
    SessionPtr session;
    std::map<Instant, TimelineDaySummary> summaries;
};

TimelineModel::TimelineModel(UserDialogs& dialogs, const date::time_zone& zone, QObject* parent)
    : QObject(parent), m_dialogs(dialogs), m_zone(&zone),
      m_dayFormat(QStringLiteral("EEEddMMyyyy")), m_clockFormat(QStringLiteral("jjmmss")),
      m_dateTimeFormat(QStringLiteral("ddMMyyyyjjmm")),
      m_status(tr("JSON-Zeitachse öffnen oder hierher ziehen.")), m_pointTime(now()),
      m_visitEnd(m_pointTime), m_rangeFrom(m_pointTime), m_rangeTo(m_pointTime),
      m_firstPartName(tr("Hinweg")), m_secondPartName(tr("Rückweg")) {
    connect(&m_jobs, &JobRunner::busyChanged, this, &TimelineModel::busyChanged);
    connect(&m_jobs, &JobRunner::progressChanged, this, [this](int, double share) {
        m_progress = share;
        emit progressChanged(share);
    });
}

TimelineModel::~TimelineModel() = default;

QString TimelineModel::zoneIdentifier() const {
    return QString::fromStdString(std::string(m_zone->name()));
}

bool TimelineModel::canEdit() const {
    return m_session && !m_jobs.isBusy();
}

bool TimelineModel::hasScope() const {
    return m_rangeMode ? m_appliedRange.has_value() : m_selectedDay.has_value();
}

std::optional<DateInterval> TimelineModel::scopeInterval() const {
    if (m_rangeMode) {
        return m_appliedRange;
    }
    if (!m_selectedDay || !m_session) {
        return std::nullopt;
    }
    return m_session->calendar().dayInterval(*m_selectedDay);
}

QString TimelineModel::dayText(Instant day) const {
    return m_dayFormat.format(day, *m_zone);
}

QString TimelineModel::clockText(Instant instant) const {
    return m_clockFormat.format(instant, *m_zone);
}

QString TimelineModel::clockTextOn(Instant day, Instant instant) const {
    QString text = clockText(instant);
    const TimelineCalendar calendar(m_zone);
    if (instant > day && calendar.startOfDay(instant) == instant && text.startsWith(u"00")) {
        text.replace(0, 2, QStringLiteral("24"));
    }
    return text;
}

QString TimelineModel::scopeTitle() const {
    const auto interval = scopeInterval();
    if (!interval || !m_session) {
        return tr("Gesamter Verlauf");
    }
    if (!m_rangeMode) {
        return dayText(interval->start);
    }
    if (!m_appliedWholeDays) {
        return m_dateTimeFormat.format(interval->start, *m_zone) + QStringLiteral(" – ") +
               m_dateTimeFormat.format(interval->end, *m_zone) + tr(" (Ende ausschließlich)");
    }
    const auto lastDay = m_session->calendar().startOfDay(interval->end.advanced(-1));
    if (!lastDay || *lastDay <= interval->start) {
        return dayText(interval->start);
    }
    return dayText(interval->start) + QStringLiteral(" – ") + dayText(*lastDay);
}

QString TimelineModel::selectionFilename() const {
    const auto interval = scopeInterval();
    if (!interval || !m_session) {
        return tr("Zeitachse");
    }
    const auto& calendar = m_session->calendar();
    // The end is exclusive: the last day is the one holding the second before it.
    const auto first = QString::fromStdString(calendar.dateText(interval->start));
    const auto last = QString::fromStdString(calendar.dateText(interval->end.advanced(-1)));
    const QString stem = QStringLiteral("Zeitachse-") + first;
    return first == last || last.isEmpty() ? stem : stem + QStringLiteral("-bis-") + last;
}

std::map<Instant, std::int64_t> TimelineModel::calendarCounts() const {
    std::map<Instant, std::int64_t> counts;
    for (const auto& row : m_days) {
        counts.emplace_hint(counts.end(), row.day, row.count);
    }
    return counts;
}

std::vector<TimelineDayRow> TimelineModel::visibleDays() const {
    std::vector<TimelineDayRow> rows;
    const QString search = m_daySearch.trimmed();
    for (const auto& row : m_days) {
        const auto matches = [&] {
            if (search.isEmpty() || dayText(row.day).contains(search, Qt::CaseInsensitive) ||
                QString::fromStdString(m_session->calendar().dateText(row.day)).contains(search)) {
                return true;
            }
            return std::any_of(row.summary.visitLabels.begin(), row.summary.visitLabels.end(),
                               [&](const std::string& label) {
                                   return QString::fromStdString(label).contains(
                                       search, Qt::CaseInsensitive);
                               });
        };
        if (matches()) {
            rows.push_back(row);
        }
    }
    if (m_newestFirst) {
        std::reverse(rows.begin(), rows.end());
    }
    return rows;
}

bool TimelineModel::mayReplace() {
    if (!m_dirty) {
        return true;
    }
    return m_dialogs.confirm(
        {tr("Ungesicherte Änderungen"),
         tr("Es gibt Änderungen, die noch nicht als Arbeitskopie gesichert wurden. Exporte einer "
            "Auswahl enthalten nur den jeweiligen Ausschnitt. Zum Sichern zuerst abbrechen und "
            "„Arbeitskopie sichern“ wählen."),
         tr("Abbrechen"), tr("Änderungen verwerfen")});
}

void TimelineModel::open() {
    if (!mayReplace()) {
        return;
    }
    const auto path =
        m_dialogs.fileToOpen(tr("Google-Zeitachse oder Arbeitskopie öffnen"),
                             {tr("Zeitachsen (*.json *.gpxhistory)"), tr("Alle Dateien (*)")});
    if (path) {
        load(*path);
    }
}

void TimelineModel::load(const QString& path) {
    if (QFileInfo(path).size() > static_cast<qint64>(maximumTimelineFileSize)) {
        fail(tr("Die Datei ist größer als 250 MB."), tr("Import fehlgeschlagen."));
        return;
    }
    clearError();
    m_progress = 0;
    emit progressChanged(0);
    setStatus(tr("Zeitachse wird im Hintergrund eingelesen …"));
    const auto* zone = m_zone;
    m_jobs.start<Loaded>(
        importLane,
        [file = localPath(path), zone](const JobContext& context) {
            auto document =
                TimelineDocument::readFile(file, context.token(), context.progressBetween(0, 0.75));
            auto index = TimelineSession::makeDayIndex(document.points(), zone, context.token(),
                                                       context.progressBetween(0.75, 0.9));
            auto summaries = summarizeDays(document.points(), index.calendar, context.token());
            context.progress(1);
            return Loaded{std::make_shared<TimelineSession>(std::move(document), std::move(index)),
                          std::move(summaries)};
        },
        [this, path](Loaded loaded) { adopt(std::move(loaded), path); },
        [this](const QString& message) { fail(message, tr("Import fehlgeschlagen.")); });
}

void TimelineModel::adopt(Loaded loaded, const QString& path) {
    m_jobs.retire(std::move(m_session));
    m_session = std::move(loaded.session);
    m_summaries = std::move(loaded.summaries);
    m_sourceURL = path;
    if (!m_protectedURLs.contains(path)) {
        m_protectedURLs.push_back(path);
    }
    m_filename = QFileInfo(path).fileName();
    m_undoNames.clear();
    m_redoNames.clear();
    m_selection.clear();
    m_moveOnMap = false;
    m_rangeMode = false;
    m_appliedRange.reset();
    setDirty(false);
    refreshDays();

    const auto& report = m_session->document().report();
    m_importSummary = count(static_cast<std::int64_t>(m_session->document().points().size())) +
                      tr(" Punkte · ") + count(static_cast<std::int64_t>(m_days.size())) +
                      tr(" Tage");
    if (report.ignoredRecords > 0) {
        m_importSummary += QStringLiteral(" · ") + count(report.ignoredRecords) +
                           tr(" Einträge ohne Standort übersprungen");
    }
    if (report.invalidValues > 0) {
        m_importSummary += QStringLiteral(" · ") + count(report.invalidValues) +
                           tr(" ungültige Werte übersprungen");
    }
    m_selectedDay = m_days.empty() ? std::nullopt : std::optional(m_days.back().day);
    if (m_selectedDay) {
        m_rangeFrom = m_rangeTo = *m_selectedDay;
    }
    setStatus(m_importSummary);
    emit sourceChanged();
    emit historyChanged();
    emit rangeChanged();
    showScope(true);
    fillInspector();
}

void TimelineModel::refreshDays() {
    m_days.clear();
    if (m_session) {
        for (const auto& day : m_session->days()) {
            const auto summary = m_summaries.find(day.date);
            m_days.push_back(
                {day.date, day.count,
                 summary == m_summaries.end() ? TimelineDaySummary{} : summary->second});
        }
    }
    emit daysChanged();
}

void TimelineModel::refreshSummaries(const std::set<Instant>& days) {
    for (const auto day : days) {
        auto summaries = summarizeDays(m_session->pointsOn(day), m_session->calendar());
        if (auto found = summaries.find(day); found != summaries.end()) {
            m_summaries[day] = std::move(found->second);
        } else {
            m_summaries.erase(day);
        }
    }
}

bool TimelineModel::passesKindFilter(const TimelinePoint& point) const {
    switch (point.kind) {
    case TimelinePointKind::visit:
        return m_showVisits;
    case TimelinePointKind::activity:
        return m_showActivities;
    case TimelinePointKind::path:
        break;
    }
    return true;
}

void TimelineModel::showScope(bool fit) {
    std::vector<TimelinePoint> points;
    const auto interval = scopeInterval();
    if (m_session && interval) {
        points =
            m_rangeMode ? m_session->pointsIn(*interval) : m_session->pointsOn(interval->start);
    }
    const bool exact = m_rangeMode && !m_appliedWholeDays;
    std::erase_if(points, [&](const TimelinePoint& point) {
        if (!passesKindFilter(point)) {
            return true;
        }
        // A range of exact times shows what lies in it, stays that overlap it included.
        return exact && (!(point.time < interval->end) ||
                         point.endTime.value_or(point.time) < interval->start);
    });
    m_points = std::move(points);
    std::erase_if(m_selection, [&](std::int64_t id) {
        return std::none_of(m_points.begin(), m_points.end(),
                            [id](const TimelinePoint& point) { return point.id == id; });
    });
    ++m_revision;
    emit pointsChanged();
    emit selectionChanged();
    if (fit) {
        ++m_fitRequest;
        emit fitRequested();
    }
}

void TimelineModel::setDaySearch(const QString& text) {
    if (text != m_daySearch) {
        m_daySearch = text;
        emit filterChanged();
    }
}

void TimelineModel::setNewestFirst(bool newestFirst) {
    if (newestFirst != m_newestFirst) {
        m_newestFirst = newestFirst;
        emit filterChanged();
    }
}

void TimelineModel::selectDay(Instant day) {
    if (!m_session) {
        return;
    }
    const auto start = m_session->calendar().startOfDay(day);
    if (!start) {
        return;
    }
    const bool changed = m_rangeMode || m_selectedDay != start;
    m_rangeMode = false;
    m_selectedDay = start;
    m_rangeFrom = m_rangeTo = *start;
    emit rangeChanged();
    if (changed) {
        showScope(true);
    }
}

void TimelineModel::selectCalendarDays(Instant start, Instant end, bool range) {
    if (range) {
        m_rangeFrom = start;
        m_rangeTo = end;
        m_rangeMode = true;
        emit rangeChanged();
        return;
    }
    selectDay(start);
    const auto shown = std::find_if(m_days.begin(), m_days.end(), [&](const TimelineDayRow& row) {
        return row.day == m_selectedDay;
    });
    setStatus(shown == m_days.end() ? tr("Für diesen Tag sind keine Daten gespeichert.")
                                    : count(shown->count) + tr(" Punkte am gewählten Tag."));
}

void TimelineModel::stepDay(int by) {
    if (m_days.empty()) {
        return;
    }
    // Steps go to the next day that holds data: empty days show nothing to work on.
    const auto reference = m_selectedDay.value_or(m_days.back().day);
    if (by < 0) {
        const auto earlier =
            std::find_if(m_days.rbegin(), m_days.rend(),
                         [&](const TimelineDayRow& row) { return row.day < reference; });
        if (earlier != m_days.rend()) {
            selectDay(earlier->day);
        }
    } else if (by > 0) {
        const auto later =
            std::find_if(m_days.begin(), m_days.end(),
                         [&](const TimelineDayRow& row) { return row.day > reference; });
        if (later != m_days.end()) {
            selectDay(later->day);
        }
    }
}

void TimelineModel::setRangeMode(bool rangeMode) {
    if (rangeMode == m_rangeMode) {
        return;
    }
    m_rangeMode = rangeMode;
    emit rangeChanged();
    showScope(true);
}

void TimelineModel::setRangeFrom(Instant from) {
    m_rangeFrom = from;
    emit rangeChanged();
}

void TimelineModel::setRangeTo(Instant to) {
    m_rangeTo = to;
    emit rangeChanged();
}

void TimelineModel::setWholeDays(bool wholeDays) {
    m_wholeDays = wholeDays;
    emit rangeChanged();
}

std::optional<DateInterval> TimelineModel::requestedRange() const {
    if (!m_wholeDays) {
        return DateInterval{m_rangeFrom, m_rangeTo};
    }
    const TimelineCalendar calendar(m_zone);
    const auto first = calendar.startOfDay(m_rangeFrom);
    const auto lastDay = calendar.startOfDay(m_rangeTo);
    const auto end = lastDay ? calendar.startOfNextDay(*lastDay) : std::nullopt;
    if (!first || !end) {
        return std::nullopt;
    }
    return DateInterval{*first, *end};
}

void TimelineModel::applyRange() {
    const auto range = requestedRange();
    if (!range || !(range->end > range->start)) {
        setError(tr("Das Ende muss nach dem Beginn liegen."));
        return;
    }
    clearError();
    m_appliedRange = range;
    m_appliedWholeDays = m_wholeDays;
    m_rangeMode = true;
    emit rangeChanged();
    showScope(true);
    setStatus(tr("Zeitraum angezeigt · ") + count(static_cast<std::int64_t>(m_points.size())) +
              tr(" Punkte · Original unverändert."));
}

bool TimelineModel::requireAppliedRange() {
    if (!m_rangeMode) {
        return true;
    }
    if (!m_appliedRange || requestedRange() != m_appliedRange ||
        m_wholeDays != m_appliedWholeDays) {
        setError(tr("Der Zeitraum wurde geändert. Bitte zuerst „Anzeigen“ wählen, damit Karte und "
                    "Export dieselbe Auswahl verwenden."));
        return false;
    }
    return true;
}

void TimelineModel::setShowActivities(bool show) {
    if (show != m_showActivities) {
        m_showActivities = show;
        emit filterChanged();
        showScope(false);
    }
}

void TimelineModel::setShowVisits(bool show) {
    if (show != m_showVisits) {
        m_showVisits = show;
        emit filterChanged();
        showScope(false);
    }
}

void TimelineModel::cancelBackgroundWork() {
    const bool importing = m_jobs.isRunning(importLane);
    const bool indexing = m_jobs.isRunning(indexLane);
    m_jobs.cancelAll();
    if (importing) {
        setStatus(tr("Import abgebrochen. Die bisherige Zeitachse bleibt erhalten."));
    } else if (indexing) {
        setStatus(tr("Neue Zuordnung abgebrochen. Die Tage bleiben in der bisherigen Zeitzone."));
    }
}

void TimelineModel::setStatus(const QString& status) {
    m_status = status;
    emit statusChanged();
}

void TimelineModel::setError(const QString& error) {
    m_error = error;
    emit errorChanged();
}

void TimelineModel::clearError() {
    if (m_error) {
        m_error.reset();
        emit errorChanged();
    }
}

void TimelineModel::fail(const QString& error, const QString& status) {
    setError(error);
    setStatus(status);
}

void TimelineModel::setDirty(bool dirty) {
    if (dirty != m_dirty) {
        m_dirty = dirty;
        emit dirtyChanged();
    }
}

} // namespace trackloom
