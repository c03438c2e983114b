#include "app/timeline/timeline_day_list.h"

#include "app/shell/number_texts.h"

namespace trackloom {

TimelineDayList::TimelineDayList(const TimelineModel& model, QObject* parent)
    : QAbstractListModel(parent), m_model(model) {
    for (auto signal : {&TimelineModel::daysChanged, &TimelineModel::filterChanged,
                        &TimelineModel::zoneChanged}) {
        connect(&model, signal, this, &TimelineDayList::reload);
    }
    // Only the mark of the shown day moves.
    connect(&model, &TimelineModel::rangeChanged, this, [this] {
        if (!m_rows.empty()) {
            emit dataChanged(index(0), index(rowCount() - 1), {shownRole});
        }
    });
    reload();
}

void TimelineDayList::reload() {
    beginResetModel();
    m_rows = m_model.session() ? m_model.visibleDays() : std::vector<TimelineDayRow>{};
    endResetModel();
}

int TimelineDayList::rowOf(Instant day) const {
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        if (m_rows[i].day == day) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

std::optional<Instant> TimelineDayList::dayAt(int row) const {
    if (row < 0 || row >= rowCount()) {
        return std::nullopt;
    }
    return m_rows[static_cast<std::size_t>(row)].day;
}

int TimelineDayList::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QString TimelineDayList::count(const TimelineDayRow& row) const {
    QString text = QString::number(row.count) + (row.count == 1 ? tr(" Punkt") : tr(" Punkte"));
    if (row.summary.pathDistance > 0) {
        text += QStringLiteral(" · ") + distanceText(row.summary.pathDistance);
    }
    return text;
}

QString TimelineDayList::times(const TimelineDayRow& row) const {
    const auto& summary = row.summary;
    QStringList parts;
    const QString first = m_model.clockText(summary.first);
    const QString last = m_model.clockTextOn(row.day, summary.last);
    if (!first.isEmpty()) {
        parts += last == first ? first : first + QStringLiteral(" – ") + last;
    }
    if (summary.visits > 0) {
        parts += QString::number(summary.visits) +
                 (summary.visits == 1 ? tr(" Aufenthalt") : tr(" Aufenthalte"));
    }
    return parts.join(QStringLiteral(" · "));
}

QVariant TimelineDayList::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) {
        return {};
    }
    const auto& row = m_rows[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return m_model.dayText(row.day);
    case Qt::ToolTipRole:
    case detailRole: {
        const QString below = times(row);
        return below.isEmpty() ? count(row) : count(row) + QStringLiteral(" · ") + below;
    }
    case countRole:
        return count(row);
    case timesRole:
        return times(row);
    case dayRole:
        return row.day.secondsSinceReference();
    case shownRole:
        return !m_model.rangeMode() && m_model.selectedDay() == row.day;
    default:
        return {};
    }
}

} // namespace trackloom
