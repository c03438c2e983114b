#pragma once

// The editor's screen: before a track is open, a short invitation; then the
// map with its tools above the interval table and the speed profile, beside
// them the summary, the edit commands and the time fields, and at the bottom
// the status line with the progress indicator and the last error.

#include <QWidget>

class QLabel;
class QProgressBar;
class QStackedWidget;

namespace trackloom {

class EditorCommands;
class EditorModel;
class IntervalTableView;
class MapEditor;
class SpeedProfileView;
class SummaryView;
class TileSource;
class TimePanel;

class EditorView : public QWidget {
    Q_OBJECT

  public:
    EditorView(EditorModel& model, EditorCommands& commands, TileSource* tiles,
               QWidget* parent = nullptr);

    MapEditor* mapEditor() const { return m_map; }
    IntervalTableView* intervals() const { return m_intervals; }
    SpeedProfileView* profile() const { return m_profile; }
    SummaryView* summary() const { return m_summary; }
    TimePanel* timePanel() const { return m_time; }
    /// The status line's text and error.
    QString statusText() const;
    QString errorText() const;

  private:
    QWidget* welcomePage(EditorCommands& commands);
    QWidget* editorPage(EditorCommands& commands, TileSource* tiles);
    QWidget* statusLine();
    void refresh();

    EditorModel& m_model;
    QStackedWidget* m_pages;
    MapEditor* m_map = nullptr;
    IntervalTableView* m_intervals = nullptr;
    SpeedProfileView* m_profile = nullptr;
    SummaryView* m_summary = nullptr;
    TimePanel* m_time = nullptr;
    QProgressBar* m_progress = nullptr;
    QLabel* m_status = nullptr;
    QLabel* m_error = nullptr;
};

} // namespace trackloom
