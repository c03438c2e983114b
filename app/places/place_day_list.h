#pragma once

// The days found near the chosen place, newest first, each with its first and
// last evidence. A click hands the whole day on to the timeline.

#include "core/places/place_analysis.h"

#include <QPointer>
#include <QWidget>

class QLabel;
class QListWidget;
class QPushButton;
class QStackedWidget;

namespace trackloom {

class PlaceExplorerModel;

class PlaceDayList : public QWidget {
    Q_OBJECT

  public:
    explicit PlaceDayList(QWidget* parent = nullptr);

    void setModel(PlaceExplorerModel* model);
    QListWidget* list() const { return m_list; }

  signals:
    void dayChosen(trackloom::PlaceDay day);

  private:
    void showDays();

    QPointer<PlaceExplorerModel> m_model;
    QLabel* m_title;
    QStackedWidget* m_pages;
    QLabel* m_empty;
    QListWidget* m_list;
    QPushButton* m_export;
};

} // namespace trackloom
