#include "app/shell/row_tables.h"

#include <QHeaderView>

namespace trackloom {

void prepareRowTable(QTableView& table, QAbstractItemView::SelectionMode mode) {
    table.setSelectionBehavior(QAbstractItemView::SelectRows);
    table.setSelectionMode(mode);
    table.setEditTriggers(QAbstractItemView::NoEditTriggers);
    table.setWordWrap(false);
    table.verticalHeader()->hide();
    table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + 6);
}

} // namespace trackloom
