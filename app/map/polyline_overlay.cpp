#include "app/map/polyline_overlay.h"

#include <QPen>

namespace trackloom {
namespace {

// Points closer than this to the simplified line are dropped: below a pixel
// the difference cannot be seen.
constexpr double tolerancePixels = 0.6;

} // namespace

PolylineOverlay::PolylineOverlay(QColor color, double width) : m_color(color), m_width(width) {}

void PolylineOverlay::setPolylines(const std::vector<MapPolyline>& polylines) {
    m_lines.clear();
    m_lines.reserve(polylines.size());
    for (const MapPolyline& polyline : polylines) {
        std::vector<QRgb> colors;
        colors.reserve(polyline.legColors.size());
        for (const QColor& color : polyline.legColors) {
            colors.push_back(color.rgba());
        }
        m_lines.push_back({SimplifiedPath(polyline.points), std::move(colors)});
    }
}

void PolylineOverlay::paint(QPainter& painter, const MapViewport& viewport) const {
    const double tolerance = tolerancePixels * viewport.unitsPerPixel();
    const MapRect region = viewport.visibleRegion().enlarged(m_width * viewport.unitsPerPixel());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    for (const Prepared& line : m_lines) {
        for (const auto& run : line.path.visibleRuns(region, tolerance)) {
            paintRun(painter, viewport, line, run);
        }
    }
    painter.restore();
}

void PolylineOverlay::paintRun(QPainter& painter, const MapViewport& viewport, const Prepared& line,
                               const std::vector<std::size_t>& run) const {
    const auto colorOf = [&](std::size_t leg) {
        return leg < line.legColors.size() ? line.legColors[leg] : m_color.rgba();
    };
    // A run still this long after simplifying is denser than the pixels it
    // crosses (a logger's noise, not a route): a wide pen would be stroked as
    // one outline of all its vertices, which takes minutes; one-pixel lines are
    // drawn directly and show the same.
    constexpr std::size_t denseRun = 20000;
    QPen pen(QColor::fromRgba(colorOf(run.front())), run.size() > denseRun ? 1.0 : m_width,
             Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    // Consecutive legs of one colour go out as one polyline: far fewer calls,
    // and joins instead of overlapping caps.
    QPolygonF stretch;
    stretch.reserve(static_cast<qsizetype>(run.size()));
    QRgb stretchColor = colorOf(run.front());
    for (std::size_t k = 0; k < run.size(); ++k) {
        stretch.append(viewport.toScreen(line.path.points()[run[k]]));
        const bool last = k + 1 == run.size();
        if (last || colorOf(run[k]) != stretchColor) {
            if (stretch.size() >= 2) {
                pen.setColor(QColor::fromRgba(stretchColor));
                painter.setPen(pen);
                painter.drawPolyline(stretch);
            }
            if (!last) {
                stretchColor = colorOf(run[k]);
                stretch = QPolygonF{stretch.back()};
            }
        }
    }
}

std::optional<MapHit> PolylineOverlay::hitTest(const MapViewport& viewport, QPointF position,
                                               double tolerance) const {
    const MapPoint point = viewport.toMap(position);
    const double unitTolerance = (tolerance + m_width / 2) * viewport.unitsPerPixel();
    std::optional<MapHit> best;
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        const auto leg = m_lines[i].path.nearestLeg(point, unitTolerance);
        const double pixels = leg ? leg->distance / viewport.unitsPerPixel() : 0;
        if (leg && (!best || pixels < best->distance)) {
            best = MapHit{static_cast<int>(i), static_cast<std::int64_t>(leg->index), pixels};
        }
    }
    return best;
}

} // namespace trackloom
