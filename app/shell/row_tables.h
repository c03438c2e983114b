#pragma once

// The tables of every workspace list rows to pick, never cells to edit, and
// may hold hundreds of thousands of rows: one set-up keeps them alike and fast.

#include <QAbstractItemView>
#include <QTableView>

namespace trackloom {

/// Whole rows are picked (`mode`), nothing is edited, cells keep one line, and
/// rows share one height, so the view never measures them one by one.
void prepareRowTable(QTableView& table, QAbstractItemView::SelectionMode mode);

} // namespace trackloom
