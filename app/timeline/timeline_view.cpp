#include "app/timeline/timeline_view.h"

#include "app/timeline/timeline_day_view.h"
#include "app/timeline/timeline_inspector.h"
#include "app/timeline/timeline_map.h"
#include "app/timeline/timeline_point_view.h"
#include "app/timeline/timeline_scope_bar.h"

#include <QScrollArea>
#include <QSplitter>
#include <QVBoxLayout>

namespace trackloom {

TimelineView::TimelineView(TimelineModel& model, TileSource* tiles, QWidget* parent)
    : QWidget(parent), m_scope(new TimelineScopeBar(model)), m_days(new TimelineDayView(model)),
      m_map(new TimelineMap(model, tiles)), m_points(new TimelinePointView(model)),
      m_inspector(new TimelineInspector(model)) {
    auto* middle = new QSplitter(Qt::Vertical);
    middle->addWidget(m_map);
    middle->addWidget(m_points);
    middle->setStretchFactor(0, 3);
    middle->setStretchFactor(1, 2);

    auto* side = new QScrollArea;
    side->setWidget(m_inspector);
    side->setWidgetResizable(true);
    side->setFrameShape(QFrame::NoFrame);
    side->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    side->setMinimumWidth(220);

    m_days->setMinimumWidth(200);
    auto* page = new QSplitter(Qt::Horizontal);
    page->addWidget(m_days);
    page->addWidget(middle);
    page->addWidget(side);
    page->setStretchFactor(0, 0);
    page->setStretchFactor(1, 1);
    page->setStretchFactor(2, 0);
    page->setSizes({240, 1000, 240});

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_scope);
    layout->addWidget(page, 1);

    // A selection made in the table may lie outside the map's view.
    connect(m_points, &TimelinePointView::selectionMade, m_map, &TimelineMap::revealSelection);
}

} // namespace trackloom
