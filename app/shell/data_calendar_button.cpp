#include "app/shell/data_calendar_button.h"

#include "app/shell/data_calendar_view.h"

#include <QDateTime>
#include <QStyle>

namespace trackloom {

DataCalendarButton::DataCalendarButton(const date::time_zone& zone, QWidget* parent)
    : QToolButton(parent), m_zone(&zone), m_actionTitle(tr("Übernehmen")),
      m_start(Instant::fromUnixSeconds(static_cast<double>(QDateTime::currentSecsSinceEpoch()))) {
    setIcon(style()->standardIcon(QStyle::SP_FileDialogDetailedView));
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    connect(this, &QToolButton::clicked, this, &DataCalendarButton::present);
    updateLabel();
}

void DataCalendarButton::setTitle(const QString& title) {
    m_title = title;
    updateLabel();
}

void DataCalendarButton::setIconOnly(bool iconOnly) {
    m_iconOnly = iconOnly;
    setToolButtonStyle(iconOnly ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextBesideIcon);
    updateLabel();
}

void DataCalendarButton::setRange(bool range) {
    m_range = range;
}
void DataCalendarButton::setZone(const date::time_zone& zone) {
    m_zone = &zone;
}
void DataCalendarButton::setCounts(DayCounts counts) {
    m_counts = std::move(counts);
}
void DataCalendarButton::setLegend(const QString& legend) {
    m_legend = legend;
}
void DataCalendarButton::setActionTitle(const QString& actionTitle) {
    m_actionTitle = actionTitle;
}

void DataCalendarButton::setDays(Instant start, std::optional<Instant> end) {
    m_start = start;
    m_end = end;
    updateLabel();
}

void DataCalendarButton::present() {
    if (m_view) {
        return;
    }
    DataCalendarPicker picker(m_range, *m_zone, m_counts, m_legend, m_actionTitle, m_start, m_end,
                              [this](Instant first, Instant last) {
                                  setDays(first, m_range ? std::optional(last) : std::nullopt);
                                  emit chosen(first, last);
                              },
                              {});
    m_view = new DataCalendarView(std::move(picker), this);
    m_view->move(mapToGlobal(QPoint(0, height())));
    m_view->show();
}

void DataCalendarButton::updateLabel() {
    setToolTip(m_title);
    setText(m_iconOnly ? QString() : m_title);
}

} // namespace trackloom
