#include "app/editor/section_table_model.h"

#include "app/shell/number_texts.h"

#include <algorithm>

namespace trackloom {
namespace {

std::optional<double> timedSpan(const GPXTrack& track, const GPXSegment& section) {
    std::optional<Instant> first;
    std::optional<Instant> last;
    for (const auto id : section.pointIDs) {
        if (const auto& time = track.points()[static_cast<std::size_t>(id)].time) {
            first = first ? first : time;
            last = time;
        }
    }
    return first ? std::optional(last->secondsSince(*first)) : std::nullopt;
}

} // namespace

void SectionTableModel::setTrack(TrackPtr track) {
    beginResetModel();
    m_track = std::move(track);
    m_figures.clear();
    if (m_track) {
        for (const auto& section : m_track->segments()) {
            m_figures.push_back({0, timedSpan(*m_track, section)});
        }
        // Legs are in section order, so one pass sums them all.
        auto figures = m_figures.begin();
        auto section = m_track->segments().begin();
        for (const auto& leg : m_track->analysis().legs) {
            while (section->id != leg.segment) {
                ++section;
                ++figures;
            }
            figures->distance += leg.distance;
        }
    }
    endResetModel();
}

const GPXSegment* SectionTableModel::section(int row) const {
    return m_track && row >= 0 && row < rowCount()
               ? &m_track->segments()[static_cast<std::size_t>(row)]
               : nullptr;
}

int SectionTableModel::rowForPoint(std::int64_t pointID) const {
    if (!m_track || pointID < 0 || pointID >= static_cast<std::int64_t>(m_track->points().size())) {
        return -1;
    }
    const auto segment = m_track->points()[static_cast<std::size_t>(pointID)].segment;
    const auto& sections = m_track->segments();
    const auto found = std::ranges::find(sections, segment, &GPXSegment::id);
    return found == sections.end() ? -1 : static_cast<int>(found - sections.begin());
}

int SectionTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || !m_track ? 0 : static_cast<int>(m_track->segments().size());
}

int SectionTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : 4;
}

QVariant SectionTableModel::data(const QModelIndex& index, int role) const {
    const GPXSegment* shown = section(index.row());
    if (!shown) {
        return {};
    }
    if (role == Qt::TextAlignmentRole && index.column() != nameColumn) {
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    const Figures& figures = m_figures[static_cast<std::size_t>(index.row())];
    switch (index.column()) {
    case nameColumn:
        return QString::fromStdString(shown->name);
    case pointsColumn:
        return QString::number(shown->pointIDs.size());
    case distanceColumn:
        return distanceText(figures.distance);
    case durationColumn:
        return figures.seconds ? durationText(*figures.seconds) : QStringLiteral("–");
    default:
        return {};
    }
}

QVariant SectionTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    switch (section) {
    case nameColumn:
        return tr("Name");
    case pointsColumn:
        return tr("Punkte");
    case distanceColumn:
        return tr("Strecke");
    case durationColumn:
        return tr("Dauer");
    default:
        return {};
    }
}

} // namespace trackloom
