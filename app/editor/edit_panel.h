#pragma once

// The commands that change the track's structure or write it out, with the
// names for the two parts of a split, the display choices and the report of
// the last append.

#include <QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;

namespace trackloom {

class EditorCommands;
class EditorModel;

class EditPanel : public QWidget {
    Q_OBJECT

  public:
    EditPanel(EditorModel& model, EditorCommands& commands, QWidget* parent = nullptr);

  private:
    void refresh();

    EditorModel& m_model;
    QLineEdit* m_firstName;
    QLineEdit* m_secondName;
    QCheckBox* m_colorBySpeed;
    QCheckBox* m_hideAirRoutes;
    QLabel* m_appendSummary;
};

} // namespace trackloom
