#pragma once

// The place explorer as a workspace of the main window. It has nothing to show
// until the timeline hands it a scope of the history (`explore`); from then on
// it is available in the sidebar. Each new scope replaces the model, closing
// the old one so that nothing it started reports back.

#include "app/places/place_explorer_model.h"
#include "app/shell/hand_over.h"
#include "app/shell/workspace.h"

#include <QPointer>
#include <memory>

namespace trackloom {

class PlaceExplorerView;
class TileSource;

class PlacesWorkspace : public Workspace, public PlaceScopeReceiver {
    Q_OBJECT

  public:
    /// `tiles`, `onlineSearch` and `days` may be null; `days` can be set later.
    /// The workspace keeps the online search for every model it makes.
    PlacesWorkspace(UserDialogs& dialogs, TileSource* tiles,
                    std::unique_ptr<OnlinePlaceSearch> onlineSearch, DayReceiver* days = nullptr,
                    QObject* parent = nullptr);
    ~PlacesWorkspace() override;

    void setDayReceiver(DayReceiver* days) { m_dayReceiver = days; }
    /// The explorer's model; null before the first scope arrived.
    PlaceExplorerModel* model() const { return m_model.get(); }

    void explore(PlaceScope scope) override;
    /// Explores the whole history of `scope` around `centre` with the heat map
    /// on, for pictures of the screen.
    void exploreForScreenshot(PlaceScope scope, PlaceCoordinate centre);

    QString title() const override;
    QWidget* view() override;
    std::vector<WorkspaceCommand> commands() override;
    QStringList fileFilters() const override { return {}; }
    bool canOpen(const QString&) const override { return false; }
    void open(const QString&) override {}
    std::optional<UnsavedWork> unsavedWork() const override { return std::nullopt; }
    bool isBusy() const override;
    bool isAvailable() const override { return m_model != nullptr; }

  private:
    void updateCommands();

    UserDialogs& m_dialogs;
    TileSource* m_tiles;
    // Declared before the model: a closing model still cancels its search.
    std::unique_ptr<OnlinePlaceSearch> m_online;
    DayReceiver* m_dayReceiver;
    std::unique_ptr<PlaceExplorerModel> m_model;
    QPointer<PlaceExplorerView> m_view;
    QAction m_exportDays;
};

} // namespace trackloom
