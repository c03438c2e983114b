#pragma once

// What the timeline shows: a day picked in the calendar or stepped to, or a
// range of days or exact times applied with "Anzeigen"; which kinds of points
// are drawn; the zone in which days are counted.

#include <QWidget>

class QCheckBox;
class QComboBox;
class QDateTimeEdit;
class QLabel;
class QPushButton;
class QToolButton;

namespace trackloom {

class DataCalendarButton;
class TimelineModel;

class TimelineScopeBar : public QWidget {
    Q_OBJECT

  public:
    explicit TimelineScopeBar(TimelineModel& model, QWidget* parent = nullptr);

    DataCalendarButton* calendar() const { return m_calendar; }
    QToolButton* rangeToggle() const { return m_rangeMode; }
    QDateTimeEdit* fromField() const { return m_from; }
    QDateTimeEdit* toField() const { return m_to; }
    QCheckBox* wholeDays() const { return m_wholeDays; }
    QPushButton* applyButton() const { return m_apply; }
    QComboBox* zoneChooser() const { return m_zone; }
    QString titleText() const;

  private:
    void refresh();
    void chooseZone(const QString& identifier);

    TimelineModel& m_model;
    DataCalendarButton* m_calendar;
    QToolButton* m_back;
    QToolButton* m_forward;
    QLabel* m_title;
    QToolButton* m_rangeMode;
    QCheckBox* m_activities;
    QCheckBox* m_visits;
    QComboBox* m_zone;
    QWidget* m_rangeRow;
    QDateTimeEdit* m_from;
    QDateTimeEdit* m_to;
    QCheckBox* m_wholeDays;
    QPushButton* m_apply;
};

} // namespace trackloom
