#pragma once

// The map every workspace draws on: OpenStreetMap tiles (or, without them, a
// plain background with a graticule and a note), the workspace's overlays in
// the order they were added, and the attribution the tiles require. The wheel
// and pinch zoom, dragging pans; everything else a pointer does goes to the
// active interaction mode.

#include "app/map/map_interaction.h"
#include "app/map/map_overlay.h"
#include "app/map/map_viewport.h"

#include <QPointer>
#include <QWidget>
#include <memory>
#include <optional>
#include <vector>

namespace trackloom {

class TileSource;

class MapWidget : public QWidget, private MapInteractionHost {
    Q_OBJECT

  public:
    /// `tiles` is shared between maps and may be null (no tiles at all).
    explicit MapWidget(TileSource* tiles, QWidget* parent = nullptr);
    ~MapWidget() override;

    const MapViewport& viewport() const { return m_viewport; }
    void setViewport(const MapViewport& viewport);
    /// Shows all `coordinates`; before the widget has a size, once it gets one.
    void fitCoordinates(const std::vector<Coordinate>& coordinates);
    /// Centres `coordinate`, keeping the zoom, when it is not in view; leaves
    /// the view alone when it is.
    void bringIntoView(const Coordinate& coordinate);

    /// Overlays paint in the order they were added, later ones on top.
    void addOverlay(std::shared_ptr<MapOverlay> overlay);
    void removeOverlay(const MapOverlay* overlay);
    /// Repaints after the data of an overlay changed.
    void refreshOverlays() override;

    /// Makes `interaction` the active mode (null: dragging only pans).
    void setInteraction(std::unique_ptr<MapInteraction> interaction);

    QSize sizeHint() const override { return {640, 480}; }

  signals:
    /// The shown region changed (pan, zoom, resize, fit).
    void viewportChanged(const trackloom::MapViewport& viewport);

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    const MapViewport& currentViewport() const override { return m_viewport; }
    void applyViewport(const MapViewport& viewport);
    void paintTiles(QPainter& painter);
    bool paintFallbackTile(QPainter& painter, TileKey tile) const;
    void paintNotes(QPainter& painter) const;
    bool tilesShown() const;

    struct Press {
        QPointF origin;
        QPointF last;
        bool taken = false;
        bool moved = false;
    };

    QPointer<TileSource> m_tiles;
    MapViewport m_viewport;
    std::vector<std::shared_ptr<MapOverlay>> m_overlays;
    std::unique_ptr<MapInteraction> m_interaction;
    std::optional<Press> m_press;
    // The corners of the last fit, while the user has not moved the map since.
    std::optional<std::vector<Coordinate>> m_fitted;
};

} // namespace trackloom
