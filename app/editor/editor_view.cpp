#include "app/editor/editor_view.h"

#include "app/editor/edit_panel.h"
#include "app/editor/editor_commands.h"
#include "app/editor/editor_model.h"
#include "app/editor/elevation_profile_view.h"
#include "app/editor/interval_table_view.h"
#include "app/editor/map_editor.h"
#include "app/editor/point_details_view.h"
#include "app/editor/section_list_view.h"
#include "app/editor/speed_profile_view.h"
#include "app/editor/summary_view.h"
#include "app/editor/time_panel.h"
#include "app/editor/waypoint_list_view.h"
#include "app/shell/tool_tips.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QStackedWidget>
#include <QTabWidget>
#include <QVBoxLayout>

namespace trackloom {
namespace {

// Side panels scroll downwards only: their rows wrap to the width, and the
// area is never narrower than the panel needs, so nothing is cut at the side.
QScrollArea* scrolling(QWidget* content) {
    auto* area = new QScrollArea;
    area->setWidget(content);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setMinimumWidth(content->minimumSizeHint().width() +
                          area->verticalScrollBar()->sizeHint().width());
    return area;
}

} // namespace

EditorView::EditorView(EditorModel& model, EditorCommands& commands, TileSource* tiles,
                       QWidget* parent)
    : QWidget(parent), m_model(model), m_pages(new QStackedWidget) {
    m_pages->addWidget(welcomePage(commands));
    m_pages->addWidget(editorPage(commands, tiles));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_pages, 1);
    layout->addWidget(statusLine());
    for (auto signal :
         {&EditorModel::trackChanged, &EditorModel::statusChanged, &EditorModel::errorChanged}) {
        connect(&model, signal, this, &EditorView::refresh);
    }
    connect(&model, &EditorModel::busyChanged, this, &EditorView::refresh);
    refresh();
}

QWidget* EditorView::welcomePage(EditorCommands& commands) {
    auto* page = new QWidget;
    auto* heading = new QLabel(tr("Track-Editor"));
    QFont large = heading->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    heading->setFont(large);
    auto* text = new QLabel(tr("Öffne eine GPX-Datei (1.0 oder 1.1, bis 50 MB) oder ziehe sie auf "
                               "das Fenster. Die Originaldatei wird nie überschrieben."));
    text->setWordWrap(true);
    auto* open = new QPushButton(tr("GPX-Datei öffnen …"));
    open->setToolTip(
        toolTipNaming(tr("Eine GPX-Datei von diesem Rechner öffnen"), QKeySequence::Open));
    auto* sample = new QPushButton(commands.sample->text());
    sample->setToolTip(commands.sample->toolTip());
    connect(open, &QPushButton::clicked, &m_model, &EditorModel::open);
    connect(sample, &QPushButton::clicked, commands.sample, &QAction::trigger);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(open);
    buttons->addWidget(sample);
    buttons->addStretch();
    auto* layout = new QVBoxLayout(page);
    layout->addStretch();
    layout->addWidget(heading);
    layout->addWidget(text);
    layout->addLayout(buttons);
    layout->addStretch(2);
    layout->setContentsMargins(48, 24, 48, 24);
    return page;
}

QWidget* EditorView::editorPage(EditorCommands& commands, TileSource* tiles) {
    m_map = new MapEditor(m_model, tiles);
    m_intervals = new IntervalTableView(m_model);
    m_profile = new SpeedProfileView(m_model);
    m_summary = new SummaryView(m_model);
    m_time = new TimePanel(m_model);

    auto* below = new QTabWidget;
    below->addTab(m_intervals, tr("Intervalle"));
    below->addTab(m_profile, tr("Geschwindigkeitsprofil"));
    below->addTab(new ElevationProfileView(m_model), tr("Höhenprofil"));
    below->addTab(new SectionListView(m_model, commands.exportSection), tr("Abschnitte"));
    below->addTab(new WaypointListView(m_model, m_map->map()), tr("Wegpunkte"));
    auto* left = new QSplitter(Qt::Vertical);
    left->addWidget(m_map);
    left->addWidget(below);
    left->setStretchFactor(0, 3);
    left->setStretchFactor(1, 2);
    left->setChildrenCollapsible(false);

    auto* side = new QTabWidget;
    side->addTab(scrolling(m_summary), tr("Übersicht"));
    side->addTab(scrolling(new EditPanel(m_model, commands)), tr("Bearbeiten"));
    side->addTab(scrolling(m_time), tr("Zeiten"));
    side->addTab(scrolling(new PointDetailsView(m_model)), tr("Punkt"));

    auto* page = new QSplitter(Qt::Horizontal);
    page->addWidget(left);
    page->addWidget(side);
    page->setStretchFactor(0, 1);
    page->setChildrenCollapsible(false);
    return page;
}

namespace {

// One line whatever the text: a long status or refusal is cut with "…" (the
// whole text in the tool tip) instead of widening or heightening the window's
// layout, which would make everything above it jump.
class ElidedLabel : public QLabel {
  public:
    ElidedLabel() { setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); }

    void setFullText(const QString& text) {
        m_full = text;
        setToolTip(text);
        elide();
    }
    const QString& fullText() const { return m_full; }

  protected:
    void resizeEvent(QResizeEvent* event) override {
        QLabel::resizeEvent(event);
        elide();
    }

  private:
    void elide() { setText(fontMetrics().elidedText(m_full, Qt::ElideRight, width())); }

    QString m_full;
};

} // namespace

QWidget* EditorView::statusLine() {
    auto* line = new QWidget;
    m_progress = new QProgressBar;
    m_progress->setRange(0, 0);
    m_progress->setMaximumWidth(120);
    m_progress->setTextVisible(false);
    m_status = new ElidedLabel;
    m_error = new ElidedLabel;
    m_error->setStyleSheet(QStringLiteral("color: #b00020;"));
    auto* layout = new QHBoxLayout(line);
    layout->setContentsMargins(8, 2, 8, 4);
    layout->addWidget(m_progress);
    layout->addWidget(m_status, 1);
    layout->addWidget(m_error, 1);
    return line;
}

QString EditorView::statusText() const {
    return static_cast<const ElidedLabel*>(m_status)->fullText();
}

QString EditorView::errorText() const {
    return static_cast<const ElidedLabel*>(m_error)->fullText();
}

void EditorView::refresh() {
    m_pages->setCurrentIndex(m_model.track() ? 1 : 0);
    m_progress->setVisible(m_model.busy());
    static_cast<ElidedLabel*>(m_status)->setFullText(m_model.status());
    static_cast<ElidedLabel*>(m_error)->setFullText(m_model.error().value_or(QString()));
}

} // namespace trackloom
