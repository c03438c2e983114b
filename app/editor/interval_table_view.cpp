#include "app/editor/interval_table_view.h"

#include "app/editor/editor_model.h"
#include "app/editor/editor_texts.h"
#include "app/editor/interval_table_model.h"
#include "app/shell/row_tables.h"

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTableView>
#include <array>

namespace trackloom {
namespace {

/// Tints the rows of suspicious intervals.
class SuspiciousTint : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (index.data(IntervalTableModel::suspiciousRole).toBool()) {
            option->backgroundBrush = QColor(255, 224, 224);
        }
    }
};

} // namespace

IntervalTableView::IntervalTableView(EditorModel& model, QWidget* parent)
    : QWidget(parent), m_model(model), m_rows(new IntervalTableModel(this)),
      m_suspiciousOnly(new QCheckBox(tr("Nur auffällige Intervalle"))),
      m_threshold(new QDoubleSpinBox), m_count(new QLabel), m_table(new QTableView) {
    m_threshold->setRange(0, 5000);
    m_threshold->setDecimals(1);
    m_threshold->setSuffix(tr(" km/h"));
    m_threshold->setValue(model.threshold());
    auto* controls = new QHBoxLayout;
    controls->addWidget(m_suspiciousOnly);
    controls->addWidget(new QLabel(tr("Auffällig über")));
    controls->addWidget(m_threshold);
    controls->addStretch();
    controls->addWidget(m_count);

    m_table->setModel(m_rows);
    m_table->setItemDelegate(new SuspiciousTint(m_table));
    prepareRowTable(*m_table, QAbstractItemView::SingleSelection);
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    m_table->horizontalHeader()->setStretchLastSection(true);
    fitColumns();

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(controls);
    layout->addWidget(m_table, 1);

    connect(m_suspiciousOnly, &QCheckBox::toggled, this, &IntervalTableView::applyFilter);
    connect(m_threshold, &QDoubleSpinBox::valueChanged, &model, &EditorModel::setThreshold);
    connect(&model, &EditorModel::thresholdChanged, this, [this] {
        m_threshold->setValue(m_model.threshold());
        applyFilter();
    });
    connect(&model, &EditorModel::trackChanged, this, &IntervalTableView::showTrack);
    connect(&model, &EditorModel::selectionChanged, this, &IntervalTableView::showSelection);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &IntervalTableView::rowChosen);
    showTrack();
}

void IntervalTableView::fitColumns() {
    // Measured on plausible widest values rather than on the rows: a long
    // track has too many to look at, and the widths must not change with it.
    const std::array<QString, IntervalTableModel::speedColumn + 1> widest{
        QStringLiteral("8888888"), QStringLiteral("8888888"), decimalText(88888.8, 1),
        decimalText(8888.888, 3),  decimalText(88888.8, 1),   QString()};
    QHeaderView* header = m_table->horizontalHeader();
    const QFontMetrics metrics = m_table->fontMetrics();
    int total = 0;
    for (int column = 0; column < m_rows->columnCount(); ++column) {
        const int width = std::max(header->sectionSizeHint(column),
                                   metrics.horizontalAdvance(widest[std::size_t(column)]) + 12);
        header->resizeSection(column, width);
        total += width;
    }
    const int frame = 2 * m_table->frameWidth();
    m_table->setMinimumWidth(total + m_table->verticalScrollBar()->sizeHint().width() + frame);
    m_table->setMinimumHeight(header->sizeHint().height() +
                              visibleRows * m_table->verticalHeader()->defaultSectionSize() +
                              frame);
}

void IntervalTableView::showTrack() {
    // The model also reports changes that keep the track, such as an edit starting.
    if (m_rows->track() != m_model.track()) {
        m_rows->setTrack(m_model.track());
    }
    applyFilter();
    // Another file starts at its first interval, not where the last one was left.
    if (m_openedRevision != m_model.openedRevision()) {
        m_openedRevision = m_model.openedRevision();
        if (!m_model.selectedPointID()) {
            m_table->scrollToTop();
        }
    }
}

void IntervalTableView::applyFilter() {
    m_rows->setFilter(m_suspiciousOnly->isChecked(), m_model.threshold());
    m_count->setText(m_suspiciousOnly->isChecked()
                         ? QString::number(m_rows->rowCount()) + tr(" auffällige Intervalle")
                         : QString::number(m_rows->rowCount()) + tr(" Intervalle"));
    showSelection();
}

void IntervalTableView::showSelection() {
    const auto selected = m_model.selectedPointID();
    const int row = selected ? m_rows->rowForPoint(*selected) : -1;
    m_selecting = true;
    if (row < 0) {
        m_table->clearSelection();
    } else {
        m_table->selectRow(row);
        m_table->scrollTo(m_rows->index(row, 0));
    }
    m_selecting = false;
}

void IntervalTableView::rowChosen() {
    if (m_selecting) {
        return;
    }
    const auto rows = m_table->selectionModel()->selectedRows();
    if (!rows.isEmpty()) {
        if (const auto* leg = m_rows->leg(rows.front().row())) {
            m_model.selectPoint(leg->from);
        }
    }
}

} // namespace trackloom
