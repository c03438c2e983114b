#include "app/timeline/timeline_point_table.h"

#include "app/timeline/timeline_model.h"

namespace trackloom {
namespace {

QString degrees(double value) {
    return QString::number(value, 'f', 6);
}

} // namespace

TimelinePointTable::TimelinePointTable(const TimelineModel& model, QObject* parent)
    : QAbstractTableModel(parent), m_model(model) {
    connect(&model, &TimelineModel::pointsChanged, this, &TimelinePointTable::reload);
    // The clock texts follow the zone; the rows stay.
    connect(&model, &TimelineModel::zoneChanged, this, [this] {
        if (!m_points.empty()) {
            emit dataChanged(index(0, timeColumn), index(rowCount() - 1, endColumn));
        }
    });
    reload();
}

void TimelinePointTable::reload() {
    beginResetModel();
    m_points = m_model.points();
    m_rows.clear();
    m_rows.reserve(m_points.size());
    for (std::size_t i = 0; i < m_points.size(); ++i) {
        m_rows.emplace(m_points[i].id, static_cast<int>(i));
    }
    endResetModel();
}

std::optional<std::int64_t> TimelinePointTable::idAt(int row) const {
    if (row < 0 || row >= rowCount()) {
        return std::nullopt;
    }
    return m_points[static_cast<std::size_t>(row)].id;
}

int TimelinePointTable::rowOf(std::int64_t id) const {
    const auto found = m_rows.find(id);
    return found == m_rows.end() ? -1 : found->second;
}

int TimelinePointTable::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_points.size());
}

int TimelinePointTable::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : endColumn + 1;
}

QVariant TimelinePointTable::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) {
        return {};
    }
    const auto& point = m_points[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return text(point, index.column());
    case idRole:
        return QVariant::fromValue<qint64>(point.id);
    case sortRole:
        return sortKey(point, index.column());
    case Qt::TextAlignmentRole:
        if (index.column() == latitudeColumn || index.column() == longitudeColumn) {
            return QVariant(Qt::AlignRight | Qt::AlignVCenter);
        }
        return {};
    default:
        return {};
    }
}

QVariant TimelinePointTable::text(const TimelinePoint& point, int column) const {
    switch (column) {
    case timeColumn:
        return m_model.clockText(point.time);
    case kindColumn:
        return QString::fromStdString(title(point.kind));
    case latitudeColumn:
        return degrees(point.latitude);
    case longitudeColumn:
        return degrees(point.longitude);
    case labelColumn:
        return QString::fromStdString(point.label);
    case endColumn:
        return point.endTime ? m_model.clockText(*point.endTime) : QString();
    default:
        return {};
    }
}

QVariant TimelinePointTable::sortKey(const TimelinePoint& point, int column) const {
    switch (column) {
    case timeColumn:
        return point.time.secondsSinceReference();
    case kindColumn:
        return static_cast<int>(point.kind);
    case latitudeColumn:
        return point.latitude;
    case longitudeColumn:
        return point.longitude;
    case labelColumn:
        return QString::fromStdString(point.label);
    case endColumn:
        // Points without an end sort before every visit.
        return point.endTime ? point.endTime->secondsSinceReference() : -1e300;
    default:
        return {};
    }
}

QVariant TimelinePointTable::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return QAbstractTableModel::headerData(section, orientation, role);
    }
    switch (section) {
    case timeColumn:
        return tr("Zeit");
    case kindColumn:
        return tr("Art");
    case latitudeColumn:
        return tr("Breite");
    case longitudeColumn:
        return tr("Länge");
    case labelColumn:
        return tr("Bezeichnung");
    case endColumn:
        return tr("Ende");
    default:
        return {};
    }
}

} // namespace trackloom
