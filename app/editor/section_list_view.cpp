#include "app/editor/section_list_view.h"

#include "app/editor/editor_model.h"
#include "app/editor/section_table_model.h"
#include "app/shell/row_tables.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QTableView>
#include <QToolButton>

namespace trackloom {

SectionListView::SectionListView(EditorModel& model, QAction* exportSection, QWidget* parent)
    : QWidget(parent), m_model(model), m_rows(new SectionTableModel(this)),
      m_table(new QTableView) {
    m_table->setModel(m_rows);
    prepareRowTable(*m_table, QAbstractItemView::SingleSelection);
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_table->horizontalHeader()->setSectionResizeMode(SectionTableModel::nameColumn,
                                                      QHeaderView::Stretch);

    auto* exporting = new QToolButton;
    exporting->setDefaultAction(exportSection);
    exporting->setToolButtonStyle(Qt::ToolButtonTextOnly);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(exporting);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_table, 1);
    layout->addLayout(buttons);

    connect(&model, &EditorModel::trackChanged, this, &SectionListView::showTrack);
    connect(&model, &EditorModel::selectionChanged, this, &SectionListView::showSelection);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &SectionListView::rowChosen);
    showTrack();
}

void SectionListView::showTrack() {
    if (m_rows->track() != m_model.track()) {
        m_rows->setTrack(m_model.track());
    }
    showSelection();
}

void SectionListView::showSelection() {
    const auto selected = m_model.selectedPointID();
    const int row = selected ? m_rows->rowForPoint(*selected) : -1;
    m_selecting = true;
    if (row < 0) {
        m_table->clearSelection();
    } else if (m_table->selectionModel()->selectedRows().value(0).row() != row) {
        m_table->selectRow(row);
        m_table->scrollTo(m_rows->index(row, 0));
    }
    m_selecting = false;
}

void SectionListView::rowChosen() {
    if (m_selecting) {
        return;
    }
    const auto rows = m_table->selectionModel()->selectedRows();
    if (const auto* section = rows.isEmpty() ? nullptr : m_rows->section(rows.front().row())) {
        m_model.selectPoint(section->pointIDs.front());
    }
}

} // namespace trackloom
