#pragma once

// The point inspector beside the map: the selected point's fields with
// "Änderung übernehmen", picking a new position on the map, splitting its
// section under two names and deleting; below, what the workspace is doing
// (status, error, import progress with a way to stop it, the import summary).

#include <QWidget>

class QDateTimeEdit;
class QGroupBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace trackloom {

class TimelineModel;

class TimelineInspector : public QWidget {
    Q_OBJECT

  public:
    explicit TimelineInspector(TimelineModel& model, QWidget* parent = nullptr);

    QLineEdit* latitude() const { return m_latitude; }
    QLineEdit* longitude() const { return m_longitude; }
    QLineEdit* label() const { return m_label; }
    QDateTimeEdit* visitEnd() const { return m_end; }
    QPushButton* applyButton() const { return m_apply; }
    QPushButton* splitButton() const { return m_split; }
    QPushButton* deleteButton() const { return m_delete; }
    QPushButton* pickButton() const { return m_pick; }
    QString statusText() const;
    QString errorText() const;
    bool progressShown() const;

  private:
    void connectFields();
    void refresh();
    void refreshWork();

    TimelineModel& m_model;
    QLabel* m_heading;
    QLineEdit* m_latitude;
    QLineEdit* m_longitude;
    QDateTimeEdit* m_time;
    QLabel* m_endLabel;
    QDateTimeEdit* m_end;
    QLineEdit* m_label;
    QPushButton* m_apply;
    QPushButton* m_pick;
    QLineEdit* m_firstPart;
    QLineEdit* m_secondPart;
    QPushButton* m_split;
    QPushButton* m_delete;
    QLabel* m_status;
    QLabel* m_error;
    QProgressBar* m_progress;
    QPushButton* m_cancel;
    QLabel* m_summary;
};

} // namespace trackloom
