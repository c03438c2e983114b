#pragma once

// The selected point in detail (see `pointDetails`), or a hint how to select
// one. Follows the selection of the map, the tables and the profiles.

#include <QWidget>

class QFormLayout;
class QLabel;

namespace trackloom {

class EditorModel;

class PointDetailsView : public QWidget {
    Q_OBJECT

  public:
    explicit PointDetailsView(EditorModel& model, QWidget* parent = nullptr);

    /// The value shown beside `label`, empty when there is no such row.
    QString value(const QString& label) const;

  private:
    void refresh();

    EditorModel& m_model;
    QLabel* m_hint;
    QFormLayout* m_rows;
};

} // namespace trackloom
