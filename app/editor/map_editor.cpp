#include "app/editor/map_editor.h"

#include "app/editor/editor_model.h"
#include "app/editor/speed_legend.h"
#include "app/map/map_widget.h"
#include "app/map/points_overlay.h"
#include "app/map/polyline_overlay.h"

#include <QHBoxLayout>
#include <QToolButton>
#include <QVBoxLayout>

namespace trackloom {
namespace {

struct Lines {
    std::vector<MapPolyline> track;
    std::vector<std::int64_t> trackStarts;
    std::vector<MapPolyline> airRoutes;
};

// One line per section; a leg gets the colour of its speed, grey without one.
Lines linesOf(const EditorModel& model) {
    Lines lines;
    const auto& points = model.mapPoints();
    const auto& scale = model.speedScale();
    for (std::size_t i = 0; i < points.size(); ++i) {
        const bool starts = i == 0 || points[i].segment != points[i - 1].segment;
        if (starts && points[i].airRoute) {
            lines.airRoutes.emplace_back();
        } else if (starts) {
            lines.track.emplace_back();
            lines.trackStarts.push_back(static_cast<std::int64_t>(i));
        }
        MapPolyline& line = points[i].airRoute ? lines.airRoutes.back() : lines.track.back();
        line.points.push_back(points[i].coordinate);
        if (scale && !points[i].airRoute) {
            const auto value = scale->find(static_cast<std::int64_t>(i));
            line.legColors.push_back(value == scale->end() ? QColor(150, 150, 150)
                                                           : SpeedLegend::colour(value->second));
        }
    }
    return lines;
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
      m_lines(std::make_shared<PolylineOverlay>()),
      m_airLines(std::make_shared<PolylineOverlay>(QColor(120, 120, 120), 2)),
      m_points(std::make_shared<PointsOverlay>()),
      m_selection(std::make_shared<PointsOverlay>(MarkerStyle::selection())),
      m_pending(std::make_shared<PointsOverlay>(MarkerStyle::pending())) {
    m_map->addOverlay(m_airLines);
    m_map->addOverlay(m_lines);
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
    m_cancel = new QToolButton;
    m_cancel->setText(tr("Abbrechen"));
    connect(m_finish, &QToolButton::clicked, &model, &EditorModel::finishInserting);
    connect(m_cancel, &QToolButton::clicked, &model, &EditorModel::cancelInserting);
    tools->addWidget(m_finish);
    tools->addWidget(m_cancel);
    tools->addStretch();
    tools->addWidget(m_legend);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(tools);
    layout->addWidget(m_map, 1);

    connect(&model, &EditorModel::mapChanged, this, &MapEditor::showTrack);
    connect(&model, &EditorModel::selectionChanged, this, &MapEditor::showSelection);
    connect(&model, &EditorModel::pendingPointsChanged, this, &MapEditor::showPending);
    connect(&model, &EditorModel::mapToolChanged, this, &MapEditor::applyTool);
    // A refused move leaves the dragged point where the track still has it.
    connect(&model, &EditorModel::errorChanged, this, [this] {
        m_points->setPoints(coordinatesOf(m_model));
        m_map->refreshOverlays();
    });
    showTrack();
    applyTool();
}

QToolButton* MapEditor::toolButton(const QString& text, const QString& help, int tool) {
    auto* button = new QToolButton;
    button->setText(text);
    button->setToolTip(help);
    button->setCheckable(true);
    button->setAutoExclusive(true);
    connect(button, &QToolButton::clicked, this,
            [this, tool] { m_model.setMapTool(static_cast<MapTool>(tool)); });
    m_tools.push_back(button);
    return button;
}

void MapEditor::showTrack() {
    const bool coloured = m_model.speedScale().has_value();
    if (m_model.mapRevision() != m_shownRevision || coloured != m_shownColoured) {
        m_shownRevision = m_model.mapRevision();
        m_shownColoured = coloured;
        auto lines = linesOf(m_model);
        m_lines->setPolylines(lines.track);
        m_airLines->setPolylines(lines.airRoutes);
        m_lineStarts = std::move(lines.trackStarts);
        m_points->setPoints(coordinatesOf(m_model));
    }
    m_legend->setTop(m_model.speedScale() ? std::optional(m_model.speedScaleTop()) : std::nullopt);
    if (m_model.mapFitRequest() != m_shownFit) {
        m_shownFit = m_model.mapFitRequest();
        m_map->fitCoordinates(coordinatesOf(m_model));
    }
    showSelection();
    showPending();
}

void MapEditor::showSelection() {
    const auto selected = m_model.selectedPointID();
    const auto& points = m_model.mapPoints();
    std::vector<Coordinate> marked;
    if (selected && *selected < static_cast<std::int64_t>(points.size())) {
        marked.push_back(points[static_cast<std::size_t>(*selected)].coordinate);
    }
    m_selection->setPoints(marked);
    m_map->refreshOverlays();
}

void MapEditor::showPending() {
    m_pending->setPoints(m_model.pendingPoints());
    const bool inserting = m_model.mapTool() == MapTool::insert;
    m_finish->setVisible(inserting);
    m_cancel->setVisible(inserting);
    m_finish->setEnabled(!m_model.pendingPoints().empty());
    m_cancel->setEnabled(!m_model.pendingPoints().empty());
    m_map->refreshOverlays();
}

void MapEditor::applyTool() {
    const auto tool = m_model.mapTool();
    m_tools.at(static_cast<std::size_t>(tool))->setChecked(true);
    // Every point is drawn only while points are being dragged; the other tools
    // still find them under the pointer, but the line stays readable.
    for (const auto& overlay : {m_points, m_selection, m_pending}) {
        m_map->removeOverlay(overlay.get());
    }
    if (tool == MapTool::move) {
        m_map->addOverlay(m_points);
    }
    m_map->addOverlay(m_selection);
    m_map->addOverlay(m_pending);
    auto picked = [this](std::optional<MapHit> hit, Coordinate where) {
        m_model.mapClicked(hit ? std::optional(hit->index) : std::nullopt, where);
    };
    switch (tool) {
    case MapTool::select:
        m_map->setInteraction(std::make_unique<SelectInteraction>(m_points, picked));
        break;
    case MapTool::move:
        m_map->setInteraction(std::make_unique<DragPointInteraction>(
            m_points, picked,
            [this](std::int64_t index, Coordinate where) {
                m_points->movePoint(static_cast<std::size_t>(index), where);
            },
            [this](std::int64_t index, Coordinate where) { m_model.dragPoint(index, where); }));
        break;
    case MapTool::insert:
        m_map->setInteraction(std::make_unique<InsertPointInteraction>(
            m_lines, [this](Coordinate where, std::optional<MapHit> leg) {
                if (leg && leg->path >= 0 && leg->path < static_cast<int>(m_lineStarts.size())) {
                    m_model.insertOnLine(
                        m_lineStarts[static_cast<std::size_t>(leg->path)] + leg->index, where);
                } else {
                    m_model.mapClicked(std::nullopt, where);
                }
            }));
        break;
    }
    showPending();
}

} // namespace trackloom
