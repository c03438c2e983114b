#include "app/editor/elevation_profile_view.h"

#include "app/editor/editor_model.h"
#include "app/shell/number_texts.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace trackloom {
namespace {

constexpr double leftMargin = 64;
constexpr double rightMargin = 12;
constexpr double verticalMargin = 18;
// A nearly flat track must not fill the height with its GPS jitter.
constexpr double smallestSpan = 40;
constexpr double step = 10;

} // namespace

ElevationProfileView::ElevationProfileView(EditorModel& model, QWidget* parent)
    : QWidget(parent), m_model(model) {
    setMinimumHeight(100);
    connect(&model, &EditorModel::trackChanged, this, &ElevationProfileView::showTrack);
    connect(&model, &EditorModel::selectionChanged, this, qOverload<>(&QWidget::update));
    showTrack();
}

void ElevationProfileView::showTrack() {
    // The model also reports changes that keep the track, such as an edit starting.
    if (m_track == m_model.track()) {
        return;
    }
    m_track = m_model.track();
    m_samples = m_track ? elevationProfile(m_track->points(), m_track->analysis())
                        : std::vector<ElevationSample>{};
    m_axisBottom = m_axisTop = 0;
    if (!m_samples.empty()) {
        const auto [low, high] = std::ranges::minmax(m_samples, {}, &ElevationSample::elevation);
        const double middle = (low.elevation + high.elevation) / 2;
        const double half = std::max(high.elevation - low.elevation, smallestSpan) / 2;
        m_axisBottom = std::floor((middle - half) / step) * step;
        m_axisTop = std::ceil((middle + half) / step) * step;
    }
    rebuild();
}

QRectF ElevationProfileView::plotArea() const {
    return QRectF(leftMargin, verticalMargin, std::max(1.0, width() - leftMargin - rightMargin),
                  std::max(1.0, height() - 2 * verticalMargin));
}

double ElevationProfileView::xOf(double metres) const {
    const double total = m_track ? m_track->analysis().distance : 0;
    const QRectF area = plotArea();
    return area.left() + (total > 0 ? metres / total : 0) * area.width();
}

double ElevationProfileView::yOf(double elevation) const {
    const QRectF area = plotArea();
    const double span = m_axisTop - m_axisBottom;
    return area.bottom() - (span > 0 ? (elevation - m_axisBottom) / span : 0) * area.height();
}

void ElevationProfileView::rebuild() {
    m_columns.assign(static_cast<std::size_t>(plotArea().width()) + 1, Column{});
    const double left = plotArea().left();
    for (const auto& sample : m_samples) {
        const auto x =
            std::min(static_cast<std::size_t>(std::max(0.0, xOf(sample.distance) - left)),
                     m_columns.size() - 1);
        Column& column = m_columns[x];
        if (!column.filled) {
            column = {sample.elevation,  sample.elevation, sample.elevation, sample.elevation, true,
                      !sample.startsLine};
        } else {
            column.last = sample.elevation;
            column.lowest = std::min(column.lowest, sample.elevation);
            column.highest = std::max(column.highest, sample.elevation);
        }
    }
    update();
}

void ElevationProfileView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    rebuild();
}

void ElevationProfileView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    const QRectF area = plotArea();
    painter.setPen(palette().mid().color());
    painter.drawRect(area);
    if (m_samples.empty()) {
        painter.setPen(palette().text().color());
        painter.drawText(area, Qt::AlignCenter, tr("Dieser Track enthält keine Höhenangaben."));
        return;
    }
    painter.setPen(QPen(QColor(46, 125, 50), 1.5));
    const Column* previous = nullptr;
    double previousX = 0;
    for (std::size_t x = 0; x < m_columns.size(); ++x) {
        const Column& column = m_columns[x];
        if (!column.filled) {
            continue;
        }
        const double px = area.left() + static_cast<double>(x);
        if (previous && column.joined) {
            painter.drawLine(QPointF(previousX, yOf(previous->last)),
                             QPointF(px, yOf(column.first)));
        }
        painter.drawLine(QPointF(px, yOf(column.lowest) + 0.5), QPointF(px, yOf(column.highest)));
        previous = &column;
        previousX = px;
    }
    paintSelection(painter, area);
    paintAxes(painter, area);
}

void ElevationProfileView::paintAxes(QPainter& painter, const QRectF& area) const {
    painter.setPen(palette().text().color());
    const QRectF label(0, area.top() - 6, leftMargin - 6, 14);
    painter.drawText(label, Qt::AlignRight, decimalText(m_axisTop, 0) + tr(" m"));
    painter.drawText(label.translated(0, area.height()), Qt::AlignRight,
                     decimalText(m_axisBottom, 0) + tr(" m"));
    const QRectF bottom(area.left(), area.bottom() + 2, area.width(), verticalMargin);
    painter.drawText(bottom, Qt::AlignLeft, tr("0 km"));
    painter.drawText(bottom, Qt::AlignRight,
                     decimalText(m_track->analysis().distance / 1000, 2) + tr(" km"));
}

void ElevationProfileView::paintSelection(QPainter& painter, const QRectF& area) const {
    const auto selected = m_model.selectedPointID();
    if (!selected) {
        return;
    }
    const auto found =
        std::ranges::lower_bound(m_samples, *selected, {}, &ElevationSample::pointID);
    if (found == m_samples.end() || found->pointID != *selected) {
        return;
    }
    const QPointF at(xOf(found->distance), yOf(found->elevation));
    painter.setPen(QPen(QColor(255, 140, 0), 2));
    painter.drawLine(QPointF(at.x(), area.top()), QPointF(at.x(), area.bottom()));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(QColor(255, 140, 0));
    painter.drawEllipse(at, 4, 4);
    painter.setBrush(Qt::NoBrush);
}

void ElevationProfileView::mousePressEvent(QMouseEvent* event) {
    if (m_samples.empty()) {
        return;
    }
    const QRectF area = plotArea();
    const double fraction =
        std::clamp((event->position().x() - area.left()) / area.width(), 0.0, 1.0);
    const double metres = fraction * (m_track ? m_track->analysis().distance : 0);
    auto next = std::ranges::lower_bound(m_samples, metres, {}, &ElevationSample::distance);
    if (next == m_samples.end() || (next != m_samples.begin() &&
                                    metres - std::prev(next)->distance < next->distance - metres)) {
        next = std::prev(next);
    }
    m_model.selectPoint(next->pointID);
}

} // namespace trackloom
