#include "app/editor/map_editor.h"

#include "app/editor/editor_model.h"
#include "app/editor/speed_legend.h"
#include "app/map/labelled_markers_overlay.h"
#include "app/map/map_widget.h"
#include "app/map/points_overlay.h"
#include "app/map/polyline_overlay.h"

#include <QHBoxLayout>
#include <QToolButton>
#include <QVBoxLayout>

namespace trackloom {
namespace {

// One line per section; a leg gets the colour of its speed, grey without one.
// Stops early when a newer state of the track replaced this one.
MapEditor::Overlays overlaysOf(const std::vector<EditorMapPoint>& points,
                               const std::shared_ptr<const SpeedValues>& scale,
                               const JobContext* job = nullptr) {
    std::vector<MapPolyline> track;
    std::vector<MapPolyline> airRoutes;
    MapEditor::Overlays overlays{std::make_shared<PolylineOverlay>(),
                                 std::make_shared<PolylineOverlay>(QColor(120, 120, 120), 2),
                                 std::make_shared<PointsOverlay>(),
                                 {}};
    std::vector<Coordinate> coordinates;
    coordinates.reserve(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (job && i % 65536 == 0) {
            job->throwIfCancelled();
        }
        const bool starts = i == 0 || points[i].segment != points[i - 1].segment;
        if (starts && points[i].airRoute) {
            airRoutes.emplace_back();
        } else if (starts) {
            track.emplace_back();
            overlays.lineStarts.push_back(static_cast<std::int64_t>(i));
        }
        MapPolyline& line = points[i].airRoute ? airRoutes.back() : track.back();
        line.points.push_back(points[i].coordinate);
        coordinates.push_back(points[i].coordinate);
        if (scale && !points[i].airRoute) {
            const auto value = scale->find(static_cast<std::int64_t>(i));
            line.legColors.push_back(value == scale->end() ? QColor(150, 150, 150)
                                                           : SpeedLegend::colour(value->second));
        }
    }
    overlays.lines->setPolylines(track);
    overlays.airLines->setPolylines(airRoutes);
    overlays.points->setPoints(coordinates);
    return overlays;
}

std::vector<Coordinate> coordinatesOf(const EditorModel& model) {
    std::vector<Coordinate> coordinates;
    coordinates.reserve(model.mapPoints().size());
    for (const auto& point : model.mapPoints()) {
        coordinates.push_back(point.coordinate);
    }
    return coordinates;
}

} // namespace

MapEditor::MapEditor(EditorModel& model, TileSource* tiles, QWidget* parent)
    : QWidget(parent), m_model(model), m_map(new MapWidget(tiles)), m_legend(new SpeedLegend),
      m_overlays(overlaysOf({}, nullptr)),
      m_selection(std::make_shared<PointsOverlay>(MarkerStyle::selection())),
      m_pending(std::make_shared<PointsOverlay>(MarkerStyle::pending())) {
    auto* tools = new QHBoxLayout;
    tools->addWidget(toolButton(tr("Auswählen"), tr("Einen Punkt anklicken, um ihn zu wählen."),
                                int(MapTool::select)));
    tools->addWidget(toolButton(tr("Verschieben"), tr("Einen Punkt an seine neue Stelle ziehen."),
                                int(MapTool::move)));
    tools->addWidget(toolButton(tr("Einfügen"),
                                tr("Auf die Linie klicken, dann die neuen Punkte setzen."),
                                int(MapTool::insert)));
    m_finish = new QToolButton;
    m_finish->setText(tr("Fertig"));
    m_finish->setToolTip(tr("Die gesetzten Punkte in den Track einfügen"));
    m_cancel = new QToolButton;
    m_cancel->setText(tr("Abbrechen"));
    m_cancel->setToolTip(tr("Die gesetzten Punkte verwerfen, ohne etwas einzufügen"));
    connect(m_finish, &QToolButton::clicked, &model.mapTool(), &EditorMapTool::finishInserting);
    connect(m_cancel, &QToolButton::clicked, &model.mapTool(), &EditorMapTool::cancelInserting);
    tools->addWidget(m_finish);
    tools->addWidget(m_cancel);
    tools->addStretch();

    // The legend has a line of its own: beside the tools it would be cut.
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(tools);
    layout->addWidget(m_map, 1);
    layout->addWidget(m_legend);

    for (auto signal : {&EditorModel::mapPointsChanged, &EditorModel::coloursChanged}) {
        connect(&model, signal, this, &MapEditor::showTrack);
    }
    connect(&model, &EditorModel::fitRequested, this, &MapEditor::fit);
    connect(&model, &EditorModel::selectionChanged, this, &MapEditor::showSelection);
    connect(&model, &EditorModel::selectionChanged, this, &MapEditor::followSelection);
    connect(&model.mapTool(), &EditorMapTool::pendingPointsChanged, this, &MapEditor::showPending);
    connect(&model.mapTool(), &EditorMapTool::toolChanged, this, &MapEditor::applyTool);
    // A refused move leaves the dragged point where the track still has it.
    connect(&model, &EditorModel::errorChanged, this, [this] {
        m_overlays.points->setPoints(coordinatesOf(m_model));
        m_map->refreshOverlays();
    });
    arrangeOverlays();
    showTrack();
    fit();
}

QToolButton* MapEditor::toolButton(const QString& text, const QString& help, int tool) {
    auto* button = new QToolButton;
    button->setText(text);
    button->setToolTip(help);
    button->setCheckable(true);
    button->setAutoExclusive(true);
    connect(button, &QToolButton::clicked, this,
            [this, tool] { m_model.mapTool().setTool(static_cast<MapTool>(tool)); });
    m_tools.push_back(button);
    return button;
}

void MapEditor::showTrack() {
    if (m_model.mapRevision() != m_shownRevision || m_model.speedScale().get() != m_shownScale) {
        m_shownRevision = m_model.mapRevision();
        m_shownScale = m_model.speedScale().get();
        m_annotations.showWaypoints(m_model.track().get());
        m_jobs.start<Overlays>(
            0,
            [points = m_model.mapPoints(), scale = m_model.speedScale()](const JobContext& job) {
                return overlaysOf(points, scale, &job);
            },
            [this](Overlays overlays) { install(std::move(overlays)); }, nullptr);
    }
    m_legend->setTop(m_model.speedScale() ? std::optional(m_model.speedScaleTop()) : std::nullopt);
    showSelection();
}

void MapEditor::fit() {
    if (m_model.mapFitRequest() != m_shownFit) {
        m_shownFit = m_model.mapFitRequest();
        m_map->fitCoordinates(coordinatesOf(m_model));
    }
}

void MapEditor::install(Overlays overlays) {
    for (const auto* old : std::initializer_list<const MapOverlay*>{
             m_overlays.lines.get(), m_overlays.airLines.get(), m_overlays.points.get()}) {
        m_map->removeOverlay(old);
    }
    m_overlays = std::move(overlays);
    // The tools hold the overlays they hit-test.
    applyTool();
}

void MapEditor::arrangeOverlays() {
    for (const auto* overlay : std::initializer_list<const MapOverlay*>{
             m_overlays.airLines.get(), m_annotations.sectionBand().get(), m_overlays.lines.get(),
             m_overlays.points.get(), m_annotations.waypoints().get(), m_selection.get(),
             m_pending.get()}) {
        m_map->removeOverlay(overlay);
    }
    m_map->addOverlay(m_overlays.airLines);
    m_map->addOverlay(m_annotations.sectionBand());
    m_map->addOverlay(m_overlays.lines);
    // Every point is drawn only while points are being dragged; the other tools
    // still find them under the pointer, but the line stays readable.
    if (m_model.mapTool().tool() == MapTool::move) {
        m_map->addOverlay(m_overlays.points);
    }
    m_map->addOverlay(m_annotations.waypoints());
    m_map->addOverlay(m_selection);
    m_map->addOverlay(m_pending);
}

void MapEditor::showSelection() {
    const auto selected = m_model.selectedPointID();
    const auto& points = m_model.mapPoints();
    std::vector<Coordinate> marked;
    if (selected && *selected < static_cast<std::int64_t>(points.size())) {
        marked.push_back(points[static_cast<std::size_t>(*selected)].coordinate);
    }
    m_selection->setPoints(marked);
    m_annotations.showSection(points, selected, m_model.mapRevision());
    m_map->refreshOverlays();
}

void MapEditor::followSelection() {
    // A row chosen in the table may lie far outside the part of the track the
    // user zoomed in on; a point picked on the map is already in view.
    const auto selected = m_model.selectedPointID();
    const auto& points = m_model.mapPoints();
    if (selected && *selected < static_cast<std::int64_t>(points.size())) {
        m_map->bringIntoView(points[static_cast<std::size_t>(*selected)].coordinate);
    }
}

void MapEditor::showPending() {
    const EditorMapTool& tool = m_model.mapTool();
    m_pending->setPoints(tool.pendingPoints());
    const bool inserting = tool.tool() == MapTool::insert;
    m_finish->setVisible(inserting);
    m_cancel->setVisible(inserting);
    m_finish->setEnabled(!tool.pendingPoints().empty());
    m_cancel->setEnabled(!tool.pendingPoints().empty());
    m_map->refreshOverlays();
}

void MapEditor::applyTool() {
    const auto tool = m_model.mapTool().tool();
    m_tools.at(static_cast<std::size_t>(tool))->setChecked(true);
    arrangeOverlays();
    const auto points = m_overlays.points;
    auto picked = [this](std::optional<MapHit> hit, Coordinate where) {
        m_model.mapTool().mapClicked(hit ? std::optional(hit->index) : std::nullopt, where);
    };
    switch (tool) {
    case MapTool::select:
        m_map->setInteraction(std::make_unique<SelectInteraction>(points, picked));
        break;
    case MapTool::move:
        m_map->setInteraction(std::make_unique<DragPointInteraction>(
            points, picked,
            [this, points](std::int64_t index, Coordinate where) {
                points->movePoint(static_cast<std::size_t>(index), where);
                m_map->refreshOverlays();
            },
            [this](std::int64_t index, Coordinate where) { m_model.dragPoint(index, where); }));
        break;
    case MapTool::insert:
        m_map->setInteraction(std::make_unique<InsertPointInteraction>(
            m_overlays.lines,
            [this, starts = m_overlays.lineStarts](Coordinate where, std::optional<MapHit> leg) {
                if (leg && leg->path >= 0 && leg->path < static_cast<int>(starts.size())) {
                    m_model.mapTool().insertOnLine(
                        starts[static_cast<std::size_t>(leg->path)] + leg->index, where);
                } else {
                    m_model.mapTool().mapClicked(std::nullopt, where);
                }
            }));
        break;
    }
    showPending();
}

} // namespace trackloom
