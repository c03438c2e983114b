#include "app/timeline/timeline_point_view.h"

#include "app/shell/row_tables.h"
#include "app/timeline/timeline_model.h"
#include "app/timeline/timeline_point_table.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

namespace trackloom {

TimelinePointView::TimelinePointView(TimelineModel& model, QWidget* parent)
    : QWidget(parent), m_model(model), m_rows(new TimelinePointTable(model, this)),
      m_sorted(new QSortFilterProxyModel(this)), m_table(new QTableView) {
    m_sorted->setSourceModel(m_rows);
    m_sorted->setSortRole(TimelinePointTable::sortRole);
    m_table->setModel(m_sorted);
    m_table->setSortingEnabled(true);
    m_table->sortByColumn(TimelinePointTable::timeColumn, Qt::AscendingOrder);
    prepareRowTable(*m_table, QAbstractItemView::ExtendedSelection);
    auto* header = m_table->horizontalHeader();
    header->setSectionResizeMode(QHeaderView::Interactive);
    header->setStretchLastSection(true);
    const int digit = m_table->fontMetrics().horizontalAdvance(QLatin1Char('0'));
    header->resizeSection(TimelinePointTable::timeColumn, 11 * digit);
    header->resizeSection(TimelinePointTable::kindColumn, 14 * digit);
    header->resizeSection(TimelinePointTable::latitudeColumn, 13 * digit);
    header->resizeSection(TimelinePointTable::longitudeColumn, 13 * digit);
    header->resizeSection(TimelinePointTable::labelColumn, 20 * digit);
    m_table->installEventFilter(this);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_table);

    connect(&model, &TimelineModel::selectionChanged, this, &TimelinePointView::showSelection);
    // A reset drops the view's selection; the model's comes back after it.
    connect(m_rows, &QAbstractItemModel::modelReset, this, &TimelinePointView::showSelection);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &TimelinePointView::rowsChosen);
    showSelection();
}

void TimelinePointView::showSelection() {
    // The view already shows what it just handed over; reselecting would move
    // the anchor of a Shift-click range.
    if (m_handingOver) {
        return;
    }
    const auto& ids = m_model.selection();
    std::vector<int> rows;
    rows.reserve(ids.size());
    for (const auto id : ids) {
        const int row = m_rows->rowOf(id);
        if (row >= 0) {
            rows.push_back(m_sorted->mapFromSource(m_rows->index(row, 0)).row());
        }
    }
    std::ranges::sort(rows);
    // Consecutive rows become one range: a rubber band over thousands of points
    // stays a handful of ranges.
    QItemSelection selection;
    const int lastColumn = m_sorted->columnCount() - 1;
    for (std::size_t i = 0; i < rows.size();) {
        std::size_t j = i;
        while (j + 1 < rows.size() && rows[j + 1] == rows[j] + 1) {
            ++j;
        }
        selection.select(m_sorted->index(rows[i], 0), m_sorted->index(rows[j], lastColumn));
        i = j + 1;
    }
    m_following = true;
    auto* chosen = m_table->selectionModel();
    chosen->select(selection, QItemSelectionModel::ClearAndSelect);
    if (!rows.empty()) {
        const QModelIndex first = m_sorted->index(rows.front(), 0);
        chosen->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
        m_table->scrollTo(first);
    }
    m_following = false;
}

void TimelinePointView::rowsChosen() {
    if (m_following) {
        return;
    }
    std::set<std::int64_t> ids;
    for (const QModelIndex& row : m_table->selectionModel()->selectedRows()) {
        if (const auto id = m_rows->idAt(m_sorted->mapToSource(row).row())) {
            ids.insert(*id);
        }
    }
    m_handingOver = true;
    m_model.setSelection(std::move(ids));
    m_handingOver = false;
    emit selectionMade();
}

bool TimelinePointView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_table && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->matches(QKeySequence::Delete) || key->key() == Qt::Key_Backspace) {
            m_model.deleteSelection();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace trackloom
