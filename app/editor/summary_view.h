#pragma once

#include <QWidget>
#include <map>

class QLabel;

namespace trackloom {

class EditorModel;
class GPXTrack;

/// The figures of the displayed track: distances, durations, speeds, climbing, and how
/// many intervals and times are valid, missing or unreadable.
class SummaryView : public QWidget {
    Q_OBJECT

  public:
    explicit SummaryView(EditorModel& model, QWidget* parent = nullptr);

    /// The value shown beside `label` (for tests and screen readers).
    QString value(const QString& label) const;

  private:
    void refresh();
    void showClimbing(const GPXTrack& track);
    void addRow(const QString& label);
    void set(const QString& label, const QString& value);

    EditorModel& m_model;
    QLabel* m_synthetic;
    std::map<QString, QLabel*> m_values;
};

} // namespace trackloom
