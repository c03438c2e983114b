#pragma once

// The timeline's commands as actions: in the menus while the timeline is in
// front. They only call the model (and the receivers of hand-overs) and are
// enabled from its state.

#include "app/shell/hand_over.h"
#include "app/shell/workspace.h"

#include <QAction>
#include <QObject>

namespace trackloom {

class TimelineModel;

class TimelineCommands : public QObject {
    Q_OBJECT

  public:
    explicit TimelineCommands(TimelineModel& model, QObject* parent = nullptr);

    std::vector<WorkspaceCommand> menuCommands() const;
    /// Where "Im Track-Editor öffnen" and "Wann war ich hier?" hand their work;
    /// each command stays disabled without its receiver.
    void setTrackReceiver(TrackReceiver* receiver);
    void setPlaceScopeReceiver(PlaceScopeReceiver* receiver);

    QAction* const saveWorkingCopy;
    QAction* const saveSelection;
    QAction* const exportSelection;
    QAction* const exportSection;
    QAction* const openInEditor;
    QAction* const explorePlaces;
    QAction* const previousDay;
    QAction* const nextDay;

  private:
    void update();

    TimelineModel& m_model;
    TrackReceiver* m_trackReceiver = nullptr;
    PlaceScopeReceiver* m_placeReceiver = nullptr;
};

} // namespace trackloom
