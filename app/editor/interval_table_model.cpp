#include "app/editor/interval_table_model.h"

#include "app/editor/editor_texts.h"

#include <algorithm>

namespace trackloom {

IntervalTableModel::IntervalTableModel(QObject* parent) : QAbstractTableModel(parent) {}

void IntervalTableModel::setTrack(TrackPtr track) {
    beginResetModel();
    m_track = std::move(track);
    classify();
    endResetModel();
}

void IntervalTableModel::setFilter(bool suspiciousOnly, double threshold) {
    if (suspiciousOnly == m_suspiciousOnly && threshold == m_threshold) {
        return;
    }
    beginResetModel();
    m_suspiciousOnly = suspiciousOnly;
    m_threshold = threshold;
    classify();
    endResetModel();
}

void IntervalTableModel::classify() {
    m_suspiciousIDs.clear();
    m_suspicious.clear();
    if (!m_track) {
        return;
    }
    const auto& analysis = m_track->analysis();
    m_suspicious.assign(analysis.legs.size(), false);
    for (const auto& leg : analysis.suspicious(m_threshold)) {
        m_suspicious[static_cast<std::size_t>(leg.id)] = true;
        m_suspiciousIDs.push_back(leg.id);
    }
}

const TrackLeg* IntervalTableModel::leg(int row) const {
    if (!m_track || row < 0 || row >= rowCount()) {
        return nullptr;
    }
    const auto id = m_suspiciousOnly ? m_suspiciousIDs[static_cast<std::size_t>(row)] : row;
    return &m_track->analysis().legs[static_cast<std::size_t>(id)];
}

int IntervalTableModel::rowForPoint(std::int64_t pointID) const {
    if (!m_track) {
        return -1;
    }
    const auto& legs = m_track->analysis().legs;
    auto found = std::ranges::lower_bound(legs, pointID, {}, &TrackLeg::from);
    if (found == legs.end() || found->from != pointID) {
        // The last point of a section starts no leg; show the leg into it.
        found = std::ranges::lower_bound(legs, pointID, {}, &TrackLeg::to);
        if (found == legs.end() || found->to != pointID) {
            return -1;
        }
    }
    if (!m_suspiciousOnly) {
        return static_cast<int>(found->id);
    }
    const auto row = std::ranges::lower_bound(m_suspiciousIDs, found->id);
    return row != m_suspiciousIDs.end() && *row == found->id
               ? static_cast<int>(row - m_suspiciousIDs.begin())
               : -1;
}

int IntervalTableModel::rowCount(const QModelIndex& parent) const {
    if (parent.isValid() || !m_track) {
        return 0;
    }
    return static_cast<int>(m_suspiciousOnly ? m_suspiciousIDs.size()
                                             : m_track->analysis().legs.size());
}

int IntervalTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : speedColumn + 1;
}

QVariant IntervalTableModel::data(const QModelIndex& index, int role) const {
    const TrackLeg* shown = leg(index.row());
    if (!shown) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
        return text(*shown, index.column());
    case Qt::ToolTipRole:
        // A problem may be longer than the column is wide.
        return index.column() == speedColumn && shown->problem ? text(*shown, index.column())
                                                               : QVariant();
    case Qt::TextAlignmentRole:
        return index.column() == speedColumn && shown->problem
                   ? int(Qt::AlignLeft | Qt::AlignVCenter)
                   : int(Qt::AlignRight | Qt::AlignVCenter);
    case legRole:
        return QVariant::fromValue<qint64>(shown->id);
    case suspiciousRole:
        return bool(m_suspicious[static_cast<std::size_t>(shown->id)]);
    default:
        return {};
    }
}

QString IntervalTableModel::text(const TrackLeg& leg, int column) const {
    switch (column) {
    case fromColumn:
        return QString::number(leg.from + 1);
    case toColumn:
        return QString::number(leg.to + 1);
    case distanceColumn:
        return decimalText(leg.distance, 1);
    case totalColumn:
        return decimalText(leg.cumulativeDistance / 1000, 3);
    case secondsColumn:
        return leg.seconds ? decimalText(*leg.seconds, 1) : QString();
    default:
        return leg.speed ? decimalText(*leg.speed, 1) : QString::fromStdString(*leg.problem);
    }
}

QVariant IntervalTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) {
        return {};
    }
    if (role == Qt::ToolTipRole) {
        return headerToolTip(section);
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    switch (section) {
    case fromColumn:
        return tr("Von Punkt");
    case toColumn:
        return tr("Bis Punkt");
    case distanceColumn:
        return tr("Strecke (m)");
    case totalColumn:
        return tr("Gesamt (km)");
    case secondsColumn:
        return tr("Sekunden");
    default:
        return tr("km/h oder Problem");
    }
}

QString IntervalTableModel::headerToolTip(int section) {
    switch (section) {
    case fromColumn:
        return tr("Nummer des Punkts, an dem das Intervall beginnt");
    case toColumn:
        return tr("Nummer des Punkts, an dem das Intervall endet");
    case distanceColumn:
        return tr("Länge des Intervalls in Metern");
    case totalColumn:
        return tr("Strecke vom Anfang des Tracks bis zum Ende des Intervalls");
    case secondsColumn:
        return tr("Zeit zwischen den beiden Punkten");
    default:
        return tr("Geschwindigkeit im Intervall, oder warum sie sich nicht berechnen lässt");
    }
}

} // namespace trackloom
