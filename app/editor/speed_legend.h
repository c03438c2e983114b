#pragma once

#include <QWidget>
#include <optional>

namespace trackloom {

/// The key to the speed colours: a bar from slow to fast and the speed at its
/// top, below which 95 % of the intervals lie. Hidden while the track is not
/// coloured by speed.
class SpeedLegend : public QWidget {
    Q_OBJECT

  public:
    explicit SpeedLegend(QWidget* parent = nullptr);

    /// The colour of a value of the speed scale, 0 (slowest) … 1 (top and faster).
    static QColor colour(double value);

    /// Shows the legend for the top speed, or hides it.
    void setTop(std::optional<double> kmh);
    const QString& text() const { return m_text; }

    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QString m_text;
};

} // namespace trackloom
