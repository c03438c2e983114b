#pragma once

// The left column of the explorer: the query with its two searches, the
// candidates, map picking, the radius and the switches, and the notes that say
// what stays on this machine.

#include <QPointer>
#include <QWidget>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace trackloom {

class PlaceExplorerModel;

class PlaceSearchPanel : public QWidget {
    Q_OBJECT

  public:
    explicit PlaceSearchPanel(QWidget* parent = nullptr);

    /// Shows `model` (or nothing); the panel never owns it.
    void setModel(PlaceExplorerModel* model);

    /// The radii offered, in metres, in the order of the picker.
    static const std::vector<std::pair<QString, double>>& radiusChoices();

  private:
    void showOptions();
    void showQuery();
    void showCandidates();
    void showPlace();

    QPointer<PlaceExplorerModel> m_model;
    QLabel* m_scope;
    QLineEdit* m_query;
    QPushButton* m_searchSaved;
    QPushButton* m_searchOnline;
    QLabel* m_queryMessage;
    QListWidget* m_candidates;
    QLabel* m_credit;
    QLabel* m_place;
    QPushButton* m_pick;
    QLabel* m_pickHint;
    QComboBox* m_radius;
    QCheckBox* m_entireHistory;
    QCheckBox* m_visits;
    QCheckBox* m_activities;
    QCheckBox* m_heat;
    QLabel* m_status;
};

} // namespace trackloom
