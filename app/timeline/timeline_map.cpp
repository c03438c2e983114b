#include "app/timeline/timeline_map.h"

#include "app/map/labelled_markers_overlay.h"
#include "app/map/map_widget.h"
#include "app/map/points_overlay.h"
#include "app/map/polyline_overlay.h"
#include "app/timeline/timeline_map_interaction.h"
#include "app/timeline/timeline_model.h"

#include <QFutureWatcher>
#include <QVBoxLayout>
#include <QtConcurrent/QtConcurrentRun>
#include <algorithm>

namespace trackloom {
namespace {

// Beyond this many path points the dots would only thicken the line (and cost
// more than a frame); the points can still be clicked and banded.
constexpr std::size_t maximumDots = 5000;

Coordinate coordinateOf(const TimelinePoint& point) {
    return {point.latitude, point.longitude};
}

TimelineMap::Overlays overlaysOf(const std::vector<TimelinePoint>& shown) {
    TimelineMap::Overlays overlays{std::make_shared<PolylineOverlay>(QColor(0, 102, 204), 3),
                                   std::make_shared<PointsOverlay>(MarkerStyle{
                                       QColor(0, 102, 204), QColor(255, 255, 255, 160), 2.5, 0.5}),
                                   std::make_shared<PointsOverlay>(
                                       MarkerStyle{QColor(52, 199, 89), QColor(Qt::black), 5, 1.5}),
                                   std::make_shared<LabelledMarkersOverlay>(QColor(175, 82, 222)),
                                   std::make_shared<PointsOverlay>(),
                                   {},
                                   {},
                                   {},
                                   false};
    // Lines follow time within each section and never jump between sections.
    std::vector<const TimelinePoint*> ordered;
    ordered.reserve(shown.size());
    for (const auto& point : shown) {
        ordered.push_back(&point);
    }
    std::ranges::stable_sort(ordered, [](const TimelinePoint* a, const TimelinePoint* b) {
        return TimelinePoint::precedes(*a, *b);
    });
    std::vector<MapPolyline> lines;
    std::unordered_map<std::int64_t, std::size_t> lineOf;
    std::vector<Coordinate> dots;
    std::vector<Coordinate> activities;
    std::vector<LabelledMarker> visits;
    std::vector<Coordinate> all;
    all.reserve(shown.size());
    for (const TimelinePoint* point : ordered) {
        const Coordinate at = coordinateOf(*point);
        switch (point->kind) {
        case TimelinePointKind::path: {
            const auto [line, added] = lineOf.try_emplace(point->segment, lines.size());
            if (added) {
                lines.emplace_back();
            }
            lines[line->second].points.push_back(at);
            dots.push_back(at);
            break;
        }
        case TimelinePointKind::visit:
            visits.push_back({at, QString::fromStdString(point->label)});
            break;
        case TimelinePointKind::activity:
            activities.push_back(at);
            break;
        }
        overlays.indexOf.emplace(point->id, overlays.ids.size());
        overlays.ids.push_back(point->id);
        overlays.projected.push_back(project(at));
        all.push_back(at);
    }
    overlays.lines->setPolylines(lines);
    overlays.showDots = dots.size() <= maximumDots;
    if (overlays.showDots) {
        overlays.dots->setPoints(dots);
    }
    overlays.activities->setPoints(activities);
    overlays.visits->setMarkers(std::move(visits));
    overlays.targets->setPoints(all);
    return overlays;
}

} // namespace

TimelineMap::TimelineMap(TimelineModel& model, TileSource* tiles, QWidget* parent)
    : QWidget(parent), m_model(model), m_map(new MapWidget(tiles)), m_overlays(overlaysOf({})),
      m_selection(std::make_shared<PointsOverlay>(MarkerStyle::selection())),
      m_band(std::make_shared<RubberBandOverlay>()) {
    m_pool.setMaxThreadCount(1);
    m_map->setToolTip(tr("Klicken wählt einen Punkt, mit Strg weitere; mit Umschalt ein "
                         "Rechteck aufziehen; gewählte Punkte lassen sich ziehen."));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_map);
    connect(&model, &TimelineModel::pointsChanged, this, &TimelineMap::showPoints);
    connect(&model, &TimelineModel::selectionChanged, this, &TimelineMap::showSelection);
    connect(&model, &TimelineModel::fitRequested, this, &TimelineMap::fit);
    // A refused or finished move puts the dragged marker where the point is.
    connect(&model, &TimelineModel::errorChanged, this, &TimelineMap::showSelection);
    install(overlaysOf({}));
    showPoints();
}

TimelineMap::~TimelineMap() {
    m_pool.waitForDone();
}

void TimelineMap::showPoints() {
    if (m_model.revision() == m_shownRevision) {
        return;
    }
    m_shownRevision = m_model.revision();
    const auto request = ++m_requested;
    auto* watcher = new QFutureWatcher<Overlays>(this);
    connect(watcher, &QFutureWatcherBase::finished, this, [this, watcher, request] {
        watcher->deleteLater();
        if (request == m_requested) {
            m_installed = request;
            install(watcher->result());
        }
    });
    watcher->setFuture(
        QtConcurrent::run(&m_pool, [points = m_model.points()] { return overlaysOf(points); }));
}

void TimelineMap::install(Overlays overlays) {
    for (const auto* old : std::initializer_list<const MapOverlay*>{
             m_overlays.lines.get(), m_overlays.dots.get(), m_overlays.activities.get(),
             m_overlays.visits.get(), m_selection.get(), m_band.get()}) {
        m_map->removeOverlay(old);
    }
    m_overlays = std::move(overlays);
    m_map->addOverlay(m_overlays.lines);
    if (m_overlays.showDots) {
        m_map->addOverlay(m_overlays.dots);
    }
    m_map->addOverlay(m_overlays.activities);
    m_map->addOverlay(m_overlays.visits);
    m_map->addOverlay(m_selection);
    m_map->addOverlay(m_band);
    // The mode holds the overlays it hit-tests.
    m_map->setInteraction(std::make_unique<TimelineMapInteraction>(
        m_overlays.targets, m_selection, m_band,
        [this](std::optional<MapHit> hit, Coordinate where, bool toggle) {
            picked(hit ? std::optional(hit->index) : std::nullopt, where, toggle);
        },
        [this](MapRect region, bool toggle) { spanned(region, toggle); },
        [this](std::int64_t index, Coordinate where) {
            m_selection->movePoint(static_cast<std::size_t>(index), where);
        },
        [this](std::int64_t index, Coordinate where) {
            if (index >= 0 && index < static_cast<std::int64_t>(m_selectedIDs.size())) {
                m_model.movePoint(m_selectedIDs[static_cast<std::size_t>(index)], where.latitude,
                                  where.longitude);
            }
            showSelection();
        }));
    showSelection();
}

void TimelineMap::showSelection() {
    m_selectedIDs.clear();
    std::vector<Coordinate> marked;
    // The model's list, not the prepared one: it may be a step ahead.
    for (const auto& point : m_model.points()) {
        if (m_model.selection().contains(point.id)) {
            m_selectedIDs.push_back(point.id);
            marked.push_back(coordinateOf(point));
        }
    }
    m_selection->setPoints(marked);
    m_map->refreshOverlays();
}

void TimelineMap::fit() {
    std::vector<Coordinate> coordinates;
    coordinates.reserve(m_model.points().size());
    for (const auto& point : m_model.points()) {
        coordinates.push_back(coordinateOf(point));
    }
    m_map->fitCoordinates(coordinates);
}

void TimelineMap::revealSelection() {
    const auto& viewport = m_map->viewport();
    const MapRect region = viewport.visibleRegion();
    std::optional<MapPoint> first;
    for (const auto& point : m_model.points()) {
        if (m_model.selection().contains(point.id)) {
            const MapPoint at = project(coordinateOf(point));
            if (region.contains(at)) {
                return;
            }
            first = first.value_or(at);
        }
    }
    if (first) {
        m_map->setViewport(MapViewport(*first, viewport.zoom(), viewport.size()));
    }
}

void TimelineMap::picked(std::optional<std::int64_t> index, Coordinate where, bool toggle) {
    if (m_model.moveOnMap()) {
        m_model.setCoordinate(where.latitude, where.longitude);
        return;
    }
    const auto& ids = m_overlays.ids;
    if (!index || *index < 0 || *index >= static_cast<std::int64_t>(ids.size())) {
        if (!toggle) {
            m_model.setSelection({});
        }
        return;
    }
    const auto id = ids[static_cast<std::size_t>(*index)];
    if (!toggle) {
        m_model.setSelection({id});
        return;
    }
    auto selection = m_model.selection();
    if (!selection.erase(id)) {
        selection.insert(id);
    }
    m_model.setSelection(std::move(selection));
}

void TimelineMap::spanned(MapRect region, bool toggle) {
    std::set<std::int64_t> selection = toggle ? m_model.selection() : std::set<std::int64_t>{};
    for (std::size_t i = 0; i < m_overlays.projected.size(); ++i) {
        if (region.contains(m_overlays.projected[i])) {
            selection.insert(m_overlays.ids[i]);
        }
    }
    m_model.setSelection(std::move(selection));
}

} // namespace trackloom
