#pragma once

// The time fields: move the whole track to a new start (applied while
// exporting), or generate times from a speed or from a start and an end, with
// the speed that start and end imply shown while they are typed. Dates can be
// picked in the data calendar, where the track's days are marked.

#include "core/track/gpx_track.h"

#include <QWidget>
#include <date/tz.h>

class QCheckBox;
class QDateTimeEdit;
class QDoubleSpinBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace trackloom {

class DataCalendarButton;
class EditorModel;

class TimePanel : public QWidget {
    Q_OBJECT

  public:
    explicit TimePanel(EditorModel& model, QWidget* parent = nullptr);

    QPushButton* applyButton() const { return m_apply; }
    /// What the panel says about the fields: the implied speed, a refusal or a note.
    QString feedback() const;
    QDateTimeEdit* startEdit() const { return m_start; }

  private:
    void refresh();
    void connectEdits();
    QDateTimeEdit* dateTimeEdit();

    EditorModel& m_model;
    QRadioButton* m_shift;
    QRadioButton* m_generate;
    QRadioButton* m_bySpeed;
    QRadioButton* m_byEndpoints;
    QCheckBox* m_utc;
    QLabel* m_startLabel;
    QLabel* m_endLabel;
    QDateTimeEdit* m_start;
    DataCalendarButton* m_startDay;
    QWidget* m_endRow;
    QDateTimeEdit* m_end;
    DataCalendarButton* m_endDay;
    QDoubleSpinBox* m_speed;
    QLabel* m_feedback;
    QPushButton* m_apply;
    TrackPtr m_countedTrack;
    const date::time_zone* m_countedZone = nullptr;
};

} // namespace trackloom
