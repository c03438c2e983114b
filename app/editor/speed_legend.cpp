#include "app/editor/speed_legend.h"

#include "app/editor/editor_texts.h"

#include <QLinearGradient>
#include <QPainter>

namespace trackloom {
namespace {

constexpr int barWidth = 90;
constexpr int gap = 6;

} // namespace

SpeedLegend::SpeedLegend(QWidget* parent) : QWidget(parent) {
    hide();
}

QColor SpeedLegend::colour(double value) {
    // Green for slow over yellow to red for the fastest.
    return QColor::fromHsvF(static_cast<float>((1 - std::clamp(value, 0.0, 1.0)) / 3), 0.9f, 0.85f);
}

void SpeedLegend::setTop(std::optional<double> kmh) {
    setVisible(kmh.has_value());
    if (kmh) {
        m_text = decimalText(*kmh, 1) +
                 tr(" km/h (95 % der Abschnitte sind langsamer) · grau: ohne gültige Zeit");
        updateGeometry();
        update();
    }
}

QSize SpeedLegend::sizeHint() const {
    const QFontMetrics metrics(font());
    return {barWidth + gap + metrics.horizontalAdvance(m_text), metrics.height() + 4};
}

void SpeedLegend::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRect bar(0, height() / 2 - 5, barWidth, 10);
    QLinearGradient gradient(bar.topLeft(), bar.topRight());
    for (double stop : {0.0, 0.5, 1.0}) {
        gradient.setColorAt(stop, colour(stop));
    }
    painter.fillRect(bar, gradient);
    painter.drawText(rect().adjusted(barWidth + gap, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                     m_text);
}

} // namespace trackloom
