#pragma once

// The sections of the track in a table. Choosing one selects its first point,
// which makes it the section the map highlights and the section export
// writes; a point chosen elsewhere selects its section here.

#include <QWidget>

class QAction;
class QTableView;

namespace trackloom {

class EditorModel;
class SectionTableModel;

class SectionListView : public QWidget {
    Q_OBJECT

  public:
    /// `exportSection` is the command that writes the selected point's section.
    SectionListView(EditorModel& model, QAction* exportSection, QWidget* parent = nullptr);

    QTableView* table() const { return m_table; }
    SectionTableModel* rows() const { return m_rows; }

  private:
    void showTrack();
    void showSelection();
    void rowChosen();

    EditorModel& m_model;
    SectionTableModel* m_rows;
    QTableView* m_table;
    bool m_selecting = false;
};

} // namespace trackloom
