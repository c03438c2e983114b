#include "app/places/places_workspace.h"

#include "app/places/place_explorer_view.h"

namespace trackloom {

PlacesWorkspace::PlacesWorkspace(UserDialogs& dialogs, TileSource* tiles,
                                 std::unique_ptr<OnlinePlaceSearch> onlineSearch, DayReceiver* days,
                                 QObject* parent)
    : Workspace(parent), m_dialogs(dialogs), m_tiles(tiles), m_online(std::move(onlineSearch)),
      m_dayReceiver(days), m_exportDays(tr("Tage exportieren …")) {
    connect(&m_exportDays, &QAction::triggered, this, [this] {
        if (m_model) {
            m_model->exportDays();
        }
    });
    updateCommands();
}

PlacesWorkspace::~PlacesWorkspace() {
    if (m_view) {
        m_view->setModel(nullptr);
    }
}

QString PlacesWorkspace::title() const {
    return tr("Wann war ich hier?");
}

QWidget* PlacesWorkspace::view() {
    if (!m_view) {
        m_view = new PlaceExplorerView(m_tiles);
        m_view->setModel(m_model.get());
        connect(m_view, &PlaceExplorerView::dayChosen, this, [this](PlaceDay day) {
            if (m_dayReceiver && m_model) {
                m_dayReceiver->showDay(day.day, &m_model->zone());
            }
        });
    }
    return m_view;
}

std::vector<WorkspaceCommand> PlacesWorkspace::commands() {
    return {{ShellMenu::file, &m_exportDays}};
}

void PlacesWorkspace::explore(PlaceScope scope) {
    if (!scope.zone) {
        return;
    }
    if (m_view) {
        m_view->setModel(nullptr);
    }
    if (m_model) {
        m_model->close();
    }
    m_model = std::make_unique<PlaceExplorerModel>(std::move(scope), m_dialogs, m_online.get());
    connect(m_model.get(), &PlaceExplorerModel::daysChanged, this,
            &PlacesWorkspace::updateCommands);
    for (auto signal : {&PlaceExplorerModel::pointsChanged, &PlaceExplorerModel::daysChanged}) {
        connect(m_model.get(), signal, this, &Workspace::stateChanged);
    }
    if (m_view) {
        m_view->setModel(m_model.get());
    }
    m_model->rebuild();
    updateCommands();
    emit stateChanged();
    emit activationRequested();
}

void PlacesWorkspace::exploreForScreenshot(PlaceScope scope, PlaceCoordinate centre) {
    explore(std::move(scope));
    if (!m_model) {
        return;
    }
    m_model->setEntireHistory(true);
    m_model->setHeatEnabled(true);
    m_model->choose(tr("Koordinaten"), centre, true);
}

bool PlacesWorkspace::isBusy() const {
    return m_model && m_model->working();
}

void PlacesWorkspace::updateCommands() {
    m_exportDays.setEnabled(m_model && !m_model->days().empty());
}

} // namespace trackloom
