#include "app/editor/speed_profile_view.h"

#include "app/editor/editor_model.h"
#include "app/editor/editor_texts.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

namespace trackloom {
namespace {

constexpr double leftMargin = 64;
constexpr double rightMargin = 12;
constexpr double verticalMargin = 18;

// Outliers (one GPS jump at 900 km/h) must not flatten the rest: the axis
// ends a little above the speed that 95 % of the intervals stay under. The
// threshold does not widen it, or a walk would be a flat line at the bottom.
double axisTopFor(const TrackAnalysis& analysis) {
    std::vector<double> speeds;
    for (const auto& leg : analysis.legs) {
        if (leg.speed) {
            speeds.push_back(*leg.speed);
        }
    }
    double top = 0;
    if (!speeds.empty()) {
        const auto k = static_cast<std::size_t>(static_cast<double>(speeds.size() - 1) * 0.95);
        std::nth_element(speeds.begin(), speeds.begin() + static_cast<std::ptrdiff_t>(k),
                         speeds.end());
        top = speeds[k] * 1.15;
    }
    return std::max(top, 1.0);
}

} // namespace

SpeedProfileView::SpeedProfileView(EditorModel& model, QWidget* parent)
    : QWidget(parent), m_model(model) {
    setMinimumHeight(100);
    connect(&model, &EditorModel::trackChanged, this, [this] {
        if (m_track != m_model.track()) {
            rebuild();
        }
    });
    connect(&model, &EditorModel::thresholdChanged, this, &SpeedProfileView::rebuild);
    connect(&model, &EditorModel::selectionChanged, this, qOverload<>(&QWidget::update));
    rebuild();
}

QRectF SpeedProfileView::plotArea() const {
    return QRectF(leftMargin, verticalMargin, std::max(1.0, width() - leftMargin - rightMargin),
                  std::max(1.0, height() - 2 * verticalMargin));
}

double SpeedProfileView::xOf(double metres) const {
    const double total = m_track ? m_track->analysis().distance : 0;
    const QRectF area = plotArea();
    return area.left() + (total > 0 ? metres / total : 0) * area.width();
}

double SpeedProfileView::yOf(double kmh) const {
    const QRectF area = plotArea();
    return area.bottom() - std::min(kmh / m_axisTop, 1.0) * area.height();
}

void SpeedProfileView::rebuild() {
    m_track = m_model.track();
    m_columns.assign(static_cast<std::size_t>(plotArea().width()) + 1, Column{});
    if (m_track) {
        const auto& analysis = m_track->analysis();
        m_axisTop = axisTopFor(analysis);
        const double left = plotArea().left();
        for (const auto& leg : analysis.legs) {
            if (!leg.speed) {
                continue;
            }
            const auto x = static_cast<std::size_t>(
                std::max(0.0, xOf(leg.cumulativeDistance - leg.distance / 2) - left));
            Column& column = m_columns[std::min(x, m_columns.size() - 1)];
            if (column.fastest < 0) {
                column = {*leg.speed, *leg.speed};
            } else {
                column.slowest = std::min(column.slowest, *leg.speed);
                column.fastest = std::max(column.fastest, *leg.speed);
            }
        }
    }
    update();
}

bool SpeedProfileView::thresholdShown() const {
    return m_model.threshold() <= m_axisTop;
}

void SpeedProfileView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    rebuild();
}

std::optional<double> SpeedProfileView::selectedDistance() const {
    const auto selected = m_model.selectedPointID();
    if (!m_track || !selected) {
        return std::nullopt;
    }
    const auto& legs = m_track->analysis().legs;
    const auto leg = std::ranges::lower_bound(legs, *selected, {}, &TrackLeg::from);
    if (leg != legs.end() && leg->from == *selected) {
        return leg->cumulativeDistance - leg->distance;
    }
    if (leg != legs.begin() && std::prev(leg)->to == *selected) {
        return std::prev(leg)->cumulativeDistance;
    }
    return std::nullopt;
}

void SpeedProfileView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    const QRectF area = plotArea();
    painter.setPen(palette().mid().color());
    painter.drawRect(area);
    if (!m_track || m_track->analysis().validIntervals() == 0) {
        painter.setPen(palette().text().color());
        painter.drawText(area, Qt::AlignCenter,
                         tr("Ohne gültige Zeiten gibt es kein Geschwindigkeitsprofil."));
        return;
    }
    painter.setPen(QColor(0, 102, 204));
    for (std::size_t x = 0; x < m_columns.size(); ++x) {
        const Column& column = m_columns[x];
        if (column.fastest >= 0) {
            const double px = area.left() + static_cast<double>(x);
            painter.drawLine(QPointF(px, yOf(column.slowest) + 0.5),
                             QPointF(px, yOf(column.fastest)));
        }
    }
    QPen dashed(QColor(204, 0, 0), 1, Qt::DashLine);
    painter.setPen(dashed);
    const QString thresholdText =
        tr("Auffällig über ") + decimalText(m_model.threshold(), 1) + tr(" km/h");
    if (thresholdShown()) {
        const double thresholdY = yOf(m_model.threshold());
        painter.drawLine(QPointF(area.left(), thresholdY), QPointF(area.right(), thresholdY));
        painter.drawText(QPointF(area.left() + 4, thresholdY - 3), thresholdText);
    } else {
        // Above the axis: a marker at the top edge says where it is.
        painter.drawText(QRectF(area.left(), 0, area.width() - 4, verticalMargin),
                         Qt::AlignRight | Qt::AlignVCenter, QStringLiteral("↑ ") + thresholdText);
    }
    if (const auto selected = selectedDistance()) {
        painter.setPen(QPen(QColor(255, 140, 0), 2));
        painter.drawLine(QPointF(xOf(*selected), area.top()),
                         QPointF(xOf(*selected), area.bottom()));
    }
    painter.setPen(palette().text().color());
    const QRectF axis(0, area.top() - 6, leftMargin - 6, 14);
    painter.drawText(axis, Qt::AlignRight, decimalText(m_axisTop, 0) + tr(" km/h"));
    painter.drawText(axis.translated(0, area.height()), Qt::AlignRight, tr("0 km/h"));
    const QRectF bottom(area.left(), area.bottom() + 2, area.width(), verticalMargin);
    painter.drawText(bottom, Qt::AlignLeft, tr("0 km"));
    painter.drawText(bottom, Qt::AlignRight,
                     decimalText(m_track->analysis().distance / 1000, 2) + tr(" km"));
}

void SpeedProfileView::mousePressEvent(QMouseEvent* event) {
    if (!m_track || m_track->analysis().legs.empty()) {
        return;
    }
    const QRectF area = plotArea();
    const double fraction =
        std::clamp((event->position().x() - area.left()) / area.width(), 0.0, 1.0);
    const double metres = fraction * m_track->analysis().distance;
    const auto& legs = m_track->analysis().legs;
    auto leg = std::ranges::lower_bound(legs, metres, {}, &TrackLeg::cumulativeDistance);
    if (leg == legs.end()) {
        leg = std::prev(legs.end());
    }
    m_model.selectPoint(leg->from);
}

} // namespace trackloom
