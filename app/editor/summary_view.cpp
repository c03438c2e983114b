#include "app/editor/summary_view.h"

#include "app/editor/editor_model.h"
#include "app/editor/editor_texts.h"
#include "app/editor/point_texts.h"
#include "core/track/elevation.h"

#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace trackloom {
namespace {

QString kilometres(double metres) {
    return decimalText(metres / 1000, 2) + QStringLiteral(" km");
}

QString speedText(std::optional<double> kmh) {
    return kmh ? decimalText(*kmh, 1) + QStringLiteral(" km/h") : QStringLiteral("–");
}

QString clockDuration(double seconds) {
    const auto whole = static_cast<long long>(std::llround(std::max(seconds, 0.0)));
    return QStringLiteral("%1:%2:%3")
        .arg(whole / 3600)
        .arg(whole % 3600 / 60, 2, 10, QLatin1Char('0'))
        .arg(whole % 60, 2, 10, QLatin1Char('0'));
}

} // namespace

SummaryView::SummaryView(EditorModel& model, QWidget* parent)
    : QWidget(parent), m_model(model),
      m_synthetic(new QLabel(tr("Beispieldaten: ein erzeugter Track zum Ausprobieren, keine "
                                "echte Aufzeichnung."))) {
    m_synthetic->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_synthetic);
    auto* form = new QFormLayout;
    // Long values (a time with its zone) go below their label in a narrow panel.
    form->setRowWrapPolicy(QFormLayout::WrapLongRows);
    layout->addLayout(form);
    for (const char* label :
         {QT_TR_NOOP("Name"), QT_TR_NOOP("Punkte"), QT_TR_NOOP("Abschnitte"), QT_TR_NOOP("Start"),
          QT_TR_NOOP("Ende"), QT_TR_NOOP("Strecke"), QT_TR_NOOP("Strecke mit Zeit"),
          QT_TR_NOOP("Dauer mit Zeit"), QT_TR_NOOP("Ø Geschwindigkeit"),
          QT_TR_NOOP("Höchstgeschwindigkeit"), QT_TR_NOOP("Anstieg"), QT_TR_NOOP("Abstieg"),
          QT_TR_NOOP("Gültige Intervalle"), QT_TR_NOOP("Ungültige Intervalle"),
          QT_TR_NOOP("Fehlende Zeiten"), QT_TR_NOOP("Unlesbare Zeiten"),
          QT_TR_NOOP("Luftlinien-Routen")}) {
        addRow(tr(label));
    }
    layout->addStretch();
    connect(&model, &EditorModel::trackChanged, this, &SummaryView::refresh);
    // The times are shown in UTC or the local zone, as the time fields are.
    connect(&model.timeFields(), &EditorTimeFields::changed, this, &SummaryView::refresh);
    refresh();
}

void SummaryView::addRow(const QString& label) {
    auto* value = new QLabel;
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    // A time with a long zone name breaks between date, time and zone rather
    // than widening the panel.
    value->setWordWrap(true);
    static_cast<QFormLayout*>(layout()->itemAt(1)->layout())->addRow(label + ':', value);
    m_values[label] = value;
}

void SummaryView::set(const QString& label, const QString& value) {
    m_values.at(label)->setText(value);
}

QString SummaryView::value(const QString& label) const {
    const auto found = m_values.find(label);
    return found == m_values.end() ? QString() : found->second->text();
}

void SummaryView::showClimbing(const GPXTrack& track) {
    const bool hasElevation = std::ranges::any_of(
        track.points(), [](const TrackPoint& point) { return point.elevation.has_value(); });
    const auto gain = elevationGain(track.points());
    set(tr("Anstieg"), hasElevation ? elevationText(std::round(gain.ascent)) : QStringLiteral("–"));
    set(tr("Abstieg"),
        hasElevation ? elevationText(std::round(gain.descent)) : QStringLiteral("–"));
}

void SummaryView::refresh() {
    m_synthetic->setVisible(m_model.isSynthetic());
    const auto& track = m_model.track();
    if (!track) {
        for (auto& [label, value] : m_values) {
            value->setText(QStringLiteral("–"));
        }
        return;
    }
    const auto& analysis = track->analysis();
    const auto& zone = m_model.timeFields().zone();
    set(tr("Name"), QString::fromStdString(track->name()));
    set(tr("Punkte"), QString::number(track->points().size()));
    set(tr("Abschnitte"), QString::number(analysis.segmentCount));
    set(tr("Start"), zonedTimeText(track->start(), zone));
    set(tr("Ende"), zonedTimeText(track->end(), zone));
    set(tr("Strecke"), kilometres(analysis.distance));
    set(tr("Strecke mit Zeit"), kilometres(analysis.timedDistance));
    set(tr("Dauer mit Zeit"), clockDuration(analysis.timedSeconds));
    set(tr("Ø Geschwindigkeit"), speedText(analysis.averageSpeed()));
    set(tr("Höchstgeschwindigkeit"), speedText(analysis.maxSpeed()));
    showClimbing(*track);
    set(tr("Gültige Intervalle"), QString::number(analysis.validIntervals()));
    set(tr("Ungültige Intervalle"), QString::number(analysis.invalidIntervals()));
    set(tr("Fehlende Zeiten"), QString::number(analysis.missingTimes));
    set(tr("Unlesbare Zeiten"),
        QString::number(analysis.invalidTimes + track->auxiliaryInvalidTimes()));
    // Hidden routes are no longer in the displayed track; the edited source still has them.
    const auto* session = m_model.session();
    const auto routes = (session ? session->workingSource() : track)->airRoutes().size();
    set(tr("Luftlinien-Routen"), routes > 0 && m_model.removeAirRoutes()
                                     ? QString::number(routes) + tr(" (ausgeblendet)")
                                     : QString::number(routes));
}

} // namespace trackloom
