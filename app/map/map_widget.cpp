#include "app/map/map_widget.h"

#include "app/map/graticule.h"
#include "app/map/scale_bar.h"
#include "app/map/tile_source.h"

#include <QGestureEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPainter>
#include <QPinchGesture>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace trackloom {
namespace {

// Movement in pixels before a press counts as a drag rather than a click.
constexpr double dragThreshold = 4;
// Zoom levels per wheel notch (120 units of angle delta).
constexpr double zoomPerNotch = 0.5;
// How far up the tile pyramid a missing tile may borrow a scaled-up ancestor.
constexpr int fallbackLevels = 5;
constexpr double keyPanPixels = 80;

} // namespace

MapWidget::MapWidget(TileSource* tiles, QWidget* parent) : QWidget(parent), m_tiles(tiles) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::OpenHandCursor);
    grabGesture(Qt::PinchGesture);
    if (m_tiles) {
        connect(m_tiles, &TileSource::tileArrived, this, qOverload<>(&QWidget::update));
        connect(m_tiles, &TileSource::availabilityChanged, this, qOverload<>(&QWidget::update));
    }
}

MapWidget::~MapWidget() = default;

void MapWidget::setViewport(const MapViewport& viewport) {
    m_fitted.reset();
    applyViewport(viewport);
}

void MapWidget::applyViewport(const MapViewport& viewport) {
    const MapViewport sized = viewport.resized(size());
    if (sized == m_viewport) {
        return;
    }
    m_viewport = sized;
    update();
    emit viewportChanged(m_viewport);
}

void MapWidget::fitCoordinates(const std::vector<Coordinate>& coordinates) {
    if (coordinates.empty()) {
        return;
    }
    // The corners of the box keep what `fitting` needs, whatever the number of
    // points: the projection is monotonic in latitude and longitude.
    Coordinate low = coordinates.front();
    Coordinate high = low;
    for (const auto& coordinate : coordinates) {
        low = {std::min(low.latitude, coordinate.latitude),
               std::min(low.longitude, coordinate.longitude)};
        high = {std::max(high.latitude, coordinate.latitude),
                std::max(high.longitude, coordinate.longitude)};
    }
    m_fitted = std::vector<Coordinate>{low, high};
    if (width() > 0 && height() > 0 && testAttribute(Qt::WA_Resized)) {
        applyViewport(m_viewport.resized(size()).fitting(*m_fitted));
    }
}

void MapWidget::bringIntoView(const Coordinate& coordinate) {
    // A marker this close to an edge is cut; one a little further in counts
    // as seen, and a map that moved under it would only confuse.
    constexpr double margin = 8;
    if (width() <= 2 * margin || height() <= 2 * margin) {
        return;
    }
    const QRectF seen = QRectF(rect()).adjusted(margin, margin, -margin, -margin);
    if (!seen.contains(m_viewport.toScreen(coordinate))) {
        setViewport(MapViewport(project(coordinate), m_viewport.zoom(), size()));
    }
}

void MapWidget::addOverlay(std::shared_ptr<MapOverlay> overlay) {
    m_overlays.push_back(std::move(overlay));
    update();
}

void MapWidget::removeOverlay(const MapOverlay* overlay) {
    std::erase_if(m_overlays, [overlay](const auto& held) { return held.get() == overlay; });
    update();
}

void MapWidget::refreshOverlays() {
    update();
}

void MapWidget::setInteraction(std::unique_ptr<MapInteraction> interaction) {
    m_interaction = std::move(interaction);
    m_press.reset();
    setCursor(m_interaction ? m_interaction->cursor() : Qt::OpenHandCursor);
}

bool MapWidget::tilesShown() const {
    return m_tiles && m_tiles->isAvailable();
}

void MapWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintGraticule(painter, m_viewport);
    paintTiles(painter);
    for (const auto& overlay : m_overlays) {
        overlay->paint(painter, m_viewport);
    }
    paintNotes(painter);
}

void MapWidget::paintTiles(QPainter& painter) {
    if (!m_tiles || m_tiles->isOffline()) {
        return;
    }
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform,
                          std::abs(m_viewport.zoom() - m_viewport.tileZoom()) > 1e-6);
    for (const TileKey& key : m_viewport.visibleTiles()) {
        const QImage image = m_tiles->tile(key);
        if (!image.isNull()) {
            painter.drawImage(m_viewport.tileRect(key), image);
        } else {
            paintFallbackTile(painter, key);
        }
    }
    painter.restore();
}

bool MapWidget::paintFallbackTile(QPainter& painter, TileKey tile) const {
    // While a tile loads, a coarser one already in memory stands in, enlarged.
    for (int up = 1; up <= fallbackLevels && up <= tile.zoom; ++up) {
        const TileKey ancestor{tile.zoom - up, tile.x >> up, tile.y >> up};
        const QImage image = m_tiles->cachedTile(ancestor);
        if (image.isNull()) {
            continue;
        }
        const double part = image.width() / std::exp2(up);
        const QRectF source((tile.x - (ancestor.x << up)) * part,
                            (tile.y - (ancestor.y << up)) * part, part, part);
        painter.drawImage(m_viewport.tileRect(tile), image, source);
        return true;
    }
    return false;
}

void MapWidget::paintNotes(QPainter& painter) const {
    QFont font = this->font();
    font.setPointSizeF(font.pointSizeF() * 0.85);
    painter.setFont(font);
    const QFontMetricsF metrics(font);
    double leftNoteHeight = 0;
    const auto note = [&](const QString& text, bool right) {
        const QSizeF box(metrics.horizontalAdvance(text) + 10, metrics.height() + 4);
        const QPointF corner(right ? width() - box.width() : 0, height() - box.height());
        const QRectF rect(corner, box);
        painter.fillRect(rect, QColor(255, 255, 255, 200));
        painter.setPen(QColor(40, 40, 40));
        painter.drawText(rect, Qt::AlignCenter, text);
        if (!right) {
            leftNoteHeight = box.height();
        }
    };
    // Tiles from the disk cache may show while the server is unreachable, and
    // whatever tiles show need their attribution.
    if (m_tiles && !m_tiles->isOffline()) {
        note(tr("© OpenStreetMap-Mitwirkende"), true);
    }
    if (!tilesShown()) {
        note(tr("Kartenmaterial ist nicht verfügbar."), !m_tiles || m_tiles->isOffline());
    }
    // The attribution keeps the bottom-right corner; the scale stands on the
    // left, above a note there.
    paintScaleBar(painter, m_viewport, QPointF(0, height() - leftNoteHeight));
}

void MapWidget::resizeEvent(QResizeEvent*) {
    // Until the user moves the map, it keeps showing what it was fitted to.
    if (m_fitted && width() > 0 && height() > 0) {
        applyViewport(m_viewport.resized(size()).fitting(*m_fitted));
        return;
    }
    applyViewport(m_viewport.resized(size()));
}

bool MapWidget::event(QEvent* event) {
    if (event->type() == QEvent::NativeGesture) {
        auto* gesture = static_cast<QNativeGestureEvent*>(event);
        if (gesture->gestureType() == Qt::ZoomNativeGesture) {
            setViewport(m_viewport.zoomed(std::log2(1 + gesture->value()), gesture->position()));
            return true;
        }
    }
    if (event->type() == QEvent::Gesture) {
        auto* gestures = static_cast<QGestureEvent*>(event);
        if (auto* pinch = static_cast<QPinchGesture*>(gestures->gesture(Qt::PinchGesture))) {
            const double factor = pinch->scaleFactor();
            if (factor > 0) {
                setViewport(
                    m_viewport.zoomed(std::log2(factor), mapFromGlobal(pinch->centerPoint())));
            }
            gestures->accept(pinch);
            return true;
        }
    }
    return QWidget::event(event);
}

void MapWidget::wheelEvent(QWheelEvent* event) {
    const double notches = event->angleDelta().y() / 120.0;
    if (notches != 0) {
        setViewport(m_viewport.zoomed(notches * zoomPerNotch, event->position()));
    }
    event->accept();
}

void MapWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        return QWidget::mousePressEvent(event);
    }
    const bool taken = m_interaction && m_interaction->pressed(*this, event->position());
    m_press = Press{event->position(), event->position(), taken, false};
    if (!taken) {
        setCursor(Qt::ClosedHandCursor);
    }
}

void MapWidget::mouseMoveEvent(QMouseEvent* event) {
    if (!m_press) {
        return;
    }
    const QPointF position = event->position();
    const QPointF travelled = position - m_press->origin;
    if (!m_press->moved && std::hypot(travelled.x(), travelled.y()) < dragThreshold) {
        return;
    }
    m_press->moved = true;
    if (m_press->taken) {
        m_interaction->dragged(*this, position);
    } else {
        setViewport(m_viewport.panned(position - m_press->last));
    }
    m_press->last = position;
}

void MapWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (!m_press || event->button() != Qt::LeftButton) {
        return;
    }
    const Press press = *std::exchange(m_press, std::nullopt);
    setCursor(m_interaction ? m_interaction->cursor() : Qt::OpenHandCursor);
    if (!m_interaction) {
        return;
    }
    if (!press.moved) {
        m_interaction->clicked(*this, event->position());
    } else if (press.taken) {
        m_interaction->released(*this, event->position());
    }
}

void MapWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && !m_interaction) {
        setViewport(m_viewport.zoomed(1, event->position()));
    }
}

void MapWidget::keyPressEvent(QKeyEvent* event) {
    const QPointF centre(width() / 2.0, height() / 2.0);
    switch (event->key()) {
    case Qt::Key_Plus:
        return setViewport(m_viewport.zoomed(1, centre));
    case Qt::Key_Minus:
        return setViewport(m_viewport.zoomed(-1, centre));
    case Qt::Key_Left:
        return setViewport(m_viewport.panned({keyPanPixels, 0}));
    case Qt::Key_Right:
        return setViewport(m_viewport.panned({-keyPanPixels, 0}));
    case Qt::Key_Up:
        return setViewport(m_viewport.panned({0, keyPanPixels}));
    case Qt::Key_Down:
        return setViewport(m_viewport.panned({0, -keyPanPixels}));
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace trackloom
