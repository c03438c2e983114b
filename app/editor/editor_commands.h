#pragma once

// The editor's commands as actions: in the menus while the editor is in
// front, and on the buttons of its panels. They only call the model and are
// enabled from its state.

#include "app/shell/workspace.h"

#include <QAction>
#include <QObject>

namespace trackloom {

class EditorModel;

class EditorCommands : public QObject {
    Q_OBJECT

  public:
    explicit EditorCommands(EditorModel& model, QObject* parent = nullptr);

    std::vector<WorkspaceCommand> menuCommands() const;

    QAction* const sample;
    QAction* const append;
    QAction* const exportTrack;
    QAction* const exportSingleTrack;
    QAction* const exportSection;
    QAction* const split;
    QAction* const trimBefore;
    QAction* const trimAfter;
    QAction* const deletePoint;
    QAction* const merge;
    QAction* const colorBySpeed;
    QAction* const hideAirRoutes;
    QAction* const fitTrack;

  private:
    // Takes the receiver as an argument: the actions are made before `m_model` is set.
    template <typename Receiver>
    QAction* action(Receiver& receiver, const QString& text, void (Receiver::*run)());
    void describeActions();
    void update();

    EditorModel& m_model;
};

} // namespace trackloom
