#include "core/timeline/timeline_session.h"

#include "core/base/gpx_error.h"
#include "core/base/text_trimming.h"

#include <algorithm>

namespace trackloom {
namespace {

void sortByPrecedence(std::vector<TimelinePoint>& points) {
    std::sort(points.begin(), points.end(), TimelinePoint::precedes);
}

} // namespace

TimelineSession::TimelineSession(TimelineDocument document, const date::time_zone* timeZone)
    : m_document(std::move(document)), m_calendar(timeZone) {
    indexSegments();
    m_index = trackloom::makeDayIndex(m_document.points(), timeZone).days;
}

TimelineSession::TimelineSession(TimelineDocument document, TimelineDayIndex index)
    : m_document(std::move(document)), m_calendar(index.calendar), m_index(std::move(index.days)) {
    indexSegments();
}

void TimelineSession::indexSegments() {
    const auto& points = m_document.points();
    m_nextID = static_cast<std::int64_t>(points.size());
    if (!points.empty()) {
        m_nextSegment = points.front().segment + 1;
    }
    // The points of one segment follow each other in an import; remembering the
    // last segment spares a hash lookup for nearly every point.
    auto segment = m_segments.end();
    for (const auto& point : points) {
        if (segment == m_segments.end() || segment->first != point.segment) {
            segment = m_segments.try_emplace(point.segment).first;
        }
        segment->second.insert(point.id);
        m_nextSegment = std::max(m_nextSegment, point.segment + 1);
    }
}

bool TimelineSession::isImported(std::int64_t id) const {
    return id >= 0 && id < static_cast<std::int64_t>(m_document.points().size());
}

std::optional<TimelinePoint> TimelineSession::baseline(std::int64_t id) const {
    if (isImported(id)) {
        return m_document.points()[static_cast<std::size_t>(id)];
    }
    if (const auto created = m_created.find(id); created != m_created.end()) {
        return created->second;
    }
    return std::nullopt;
}

std::optional<TimelinePoint> TimelineSession::point(std::int64_t id) const {
    if (m_removed.contains(id)) {
        return std::nullopt;
    }
    if (const auto edited = m_overrides.find(id); edited != m_overrides.end()) {
        return edited->second;
    }
    return baseline(id);
}

std::vector<TimelinePoint> TimelineSession::currentPoints(const PointIDSet& ids) const {
    std::vector<TimelinePoint> points;
    points.reserve(ids.size());
    for (const auto id : ids) {
        if (auto current = point(id)) {
            points.push_back(std::move(*current));
        }
    }
    sortByPrecedence(points);
    return points;
}

std::vector<TimelineDay> TimelineSession::days() const {
    std::vector<TimelineDay> days;
    days.reserve(m_index.size());
    for (const auto& [start, ids] : m_index) {
        days.push_back({start, static_cast<std::int64_t>(ids.size())});
    }
    return days;
}

std::vector<TimelinePoint> TimelineSession::pointsOn(Instant day) const {
    const auto start = m_calendar.startOfDay(day);
    const auto found = start ? m_index.find(*start) : m_index.end();
    return found == m_index.end() ? std::vector<TimelinePoint>{} : currentPoints(found->second);
}

std::vector<TimelinePoint> TimelineSession::pointsInSegment(std::int64_t segment) const {
    const auto found = m_segments.find(segment);
    return found == m_segments.end() ? std::vector<TimelinePoint>{} : currentPoints(found->second);
}

std::vector<TimelinePoint> TimelineSession::pointsIn(DateInterval range) const {
    const auto firstDay = m_calendar.startOfDay(range.start);
    if (!firstDay) {
        return {};
    }
    std::vector<std::int64_t> ids;
    for (auto day = m_index.lower_bound(*firstDay); day != m_index.end() && day->first < range.end;
         ++day) {
        ids.insert(ids.end(), day->second.begin(), day->second.end());
    }
    return currentPoints(PointIDSet::fromUnordered(std::move(ids)));
}

std::vector<TimelinePoint> TimelineSession::allPoints() const {
    auto points = recordedPoints();
    sortByPrecedence(points);
    return points;
}

std::vector<TimelinePoint> TimelineSession::recordedPoints() const {
    std::vector<TimelinePoint> points;
    points.reserve(m_document.points().size() + m_created.size());
    for (std::int64_t id = 0; id < m_nextID; ++id) {
        if (auto current = point(id)) {
            points.push_back(std::move(*current));
        }
    }
    return points;
}

TimelineDayIndex TimelineSession::makeDayIndex(const std::vector<TimelinePoint>& points,
                                               const date::time_zone* timeZone,
                                               std::stop_token token,
                                               const ProgressReport& progress) {
    return trackloom::makeDayIndex(points, timeZone, std::move(token), progress);
}

void TimelineSession::applyDayIndex(TimelineDayIndex index) {
    m_calendar = index.calendar;
    m_index = std::move(index.days);
}

void TimelineSession::changeTimeZone(const date::time_zone* timeZone) {
    applyDayIndex(makeDayIndex(allPoints(), timeZone));
}

void TimelineSession::index(const TimelinePoint& point) {
    forEachDayOf(point, m_calendar, [&](Instant day) { m_index[day].insert(point.id); });
    m_segments[point.segment].insert(point.id);
}

void TimelineSession::unindex(const TimelinePoint& point) {
    forEachDayOf(point, m_calendar, [&](Instant day) {
        const auto found = m_index.find(day);
        if (found != m_index.end()) {
            found->second.erase(point.id);
            if (found->second.empty()) {
                m_index.erase(found);
            }
        }
    });
    if (const auto found = m_segments.find(point.segment); found != m_segments.end()) {
        found->second.erase(point.id);
        if (found->second.empty()) {
            m_segments.erase(found);
        }
    }
}

void TimelineSession::apply(const Change& change, bool forward) {
    const auto& target = forward ? change.after : change.before;
    if (const auto current = point(change.id)) {
        unindex(*current);
    }
    if (!target) {
        m_removed.insert(change.id);
        return;
    }
    m_removed.erase(change.id);
    if (!isImported(change.id)) {
        m_created[change.id] = *target;
    } else if (*target == m_document.points()[static_cast<std::size_t>(change.id)]) {
        m_overrides.erase(change.id);
    } else {
        m_overrides[change.id] = *target;
    }
    index(*target);
}

void TimelineSession::record(Group group) {
    for (const auto& change : group) {
        apply(change, true);
    }
    m_undoStack.push_back(std::move(group));
    m_redoStack.clear();
}

std::span<const Change> TimelineSession::nextUndo() const {
    return m_undoStack.empty() ? std::span<const Change>() : std::span(m_undoStack.back());
}

std::span<const Change> TimelineSession::nextRedo() const {
    return m_redoStack.empty() ? std::span<const Change>() : std::span(m_redoStack.back());
}

void TimelineSession::undo() {
    if (m_undoStack.empty()) {
        return;
    }
    auto group = std::move(m_undoStack.back());
    m_undoStack.pop_back();
    for (auto change = group.rbegin(); change != group.rend(); ++change) {
        apply(*change, false);
    }
    m_redoStack.push_back(std::move(group));
}

void TimelineSession::redo() {
    if (m_redoStack.empty()) {
        return;
    }
    auto group = std::move(m_redoStack.back());
    m_redoStack.pop_back();
    for (const auto& change : group) {
        apply(change, true);
    }
    m_undoStack.push_back(std::move(group));
}

void TimelineSession::edit(const TimelinePoint& edited) {
    const auto current = point(edited.id);
    if (!current || current->segment != edited.segment || current->kind != edited.kind ||
        !edited.isValid()) {
        throw GPXError("Bitte prüfe Koordinaten, Datum und Ende des Aufenthalts.");
    }
    if (*current != edited) {
        record({Change{edited.id, current, edited}});
    }
}

void TimelineSession::deletePoints(const std::set<std::int64_t>& ids) {
    Group group;
    for (const auto id : ids) {
        if (auto current = point(id)) {
            group.push_back(Change{id, std::move(current), std::nullopt});
        }
    }
    if (!group.empty()) {
        record(std::move(group));
    }
}

bool TimelineSession::canSplitAt(std::int64_t id) const {
    const auto split = point(id);
    if (!split || split->kind != TimelinePointKind::path) {
        return false;
    }
    const auto members = pointsInSegment(split->segment);
    return members.size() > 2 && members.front().id != id && members.back().id != id;
}

void TimelineSession::splitAt(std::int64_t id, std::string_view firstName,
                              std::string_view secondName) {
    if (!canSplitAt(id)) {
        throw GPXError(
            "Wähle einen Streckenpunkt innerhalb eines Abschnitts, nicht dessen Start oder Ende.");
    }
    const std::string first(trimmedWhitespace(firstName));
    const std::string second(trimmedWhitespace(secondName));
    if (first.empty() || second.empty()) {
        throw GPXError("Bitte gib beiden Abschnitten einen Namen.");
    }
    const auto members = pointsInSegment(point(id)->segment);
    const auto splitPosition = static_cast<std::size_t>(
        std::find_if(members.begin(), members.end(), [&](const auto& p) { return p.id == id; }) -
        members.begin());
    Group group;
    for (std::size_t position = 0; position < members.size(); ++position) {
        auto changed = members[position];
        changed.label = position <= splitPosition ? first : second;
        if (position > splitPosition) {
            changed.segment = m_nextSegment;
        }
        if (changed != members[position]) {
            group.push_back(Change{changed.id, members[position], changed});
        }
    }
    auto copy = members[splitPosition];
    copy.id = m_nextID++;
    copy.segment = m_nextSegment++;
    copy.label = second;
    group.push_back(Change{copy.id, std::nullopt, copy});
    record(std::move(group));
}

std::string TimelineSession::workingCopy() const {
    return TimelineDocument::workingCopy(allPoints());
}

std::string TimelineSession::workingCopy(DateInterval range) const {
    return TimelineDocument::workingCopy(pointsIn(range));
}

TimelineGPX TimelineSession::gpxOn(Instant day, bool includeActivities, bool includeVisits) const {
    const auto interval = m_calendar.dayInterval(day);
    if (!interval) {
        throw GPXError("Ungültiger Tag.");
    }
    return gpxIn(*interval, includeActivities, includeVisits);
}

TimelineGPX TimelineSession::gpxIn(DateInterval range, bool includeActivities, bool includeVisits,
                                   std::optional<std::int64_t> segment) const {
    const auto points = exportSelection(range, includeActivities, includeVisits, segment);
    if (points.empty()) {
        throw GPXError("Für diese Auswahl gibt es keine Punkte zum Exportieren.");
    }
    return writeTimelineGPX(points, range, timelineExportTitle(range, m_calendar));
}

std::vector<TimelinePoint>
TimelineSession::exportSelection(DateInterval range, bool includeActivities, bool includeVisits,
                                 std::optional<std::int64_t> segment) const {
    auto points = pointsIn(range);
    std::erase_if(points, [&](const TimelinePoint& point) {
        const bool kindSelected =
            point.kind == TimelinePointKind::path ||
            (point.kind == TimelinePointKind::activity && includeActivities) ||
            (point.kind == TimelinePointKind::visit && includeVisits);
        return !kindSelected || (segment && point.segment != *segment);
    });
    return points;
}

} // namespace trackloom
