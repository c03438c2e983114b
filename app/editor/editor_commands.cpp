#include "app/editor/editor_commands.h"

#include "app/editor/editor_model.h"

namespace trackloom {

template <typename Receiver>
QAction* EditorCommands::action(Receiver& receiver, const QString& text, void (Receiver::*run)()) {
    auto* created = new QAction(text, this);
    connect(created, &QAction::triggered, &receiver, run);
    return created;
}

EditorCommands::EditorCommands(EditorModel& model, QObject* parent)
    : QObject(parent), sample(action(model, tr("Beispieltrack laden"), &EditorModel::demo)),
      append(action(model, tr("Nächsten GPX-Track anhängen …"), &EditorModel::appendTrack)),
      exportTrack(action(model.exports(), tr("GPX exportieren"), &EditorExports::exportTrack)),
      exportSingleTrack(action(model.exports(), tr("Als ein Track exportieren …"),
                               &EditorExports::exportSingleTrack)),
      exportSection(action(model.exports(), tr("Abschnitt exportieren …"),
                           &EditorExports::exportSelectedSegment)),
      split(action(model, tr("Am gewählten Punkt teilen"), &EditorModel::splitSelected)),
      trimBefore(action(model, tr("Alle Punkte vor dem gewählten entfernen"),
                        &EditorModel::trimBeforeSelected)),
      trimAfter(action(model, tr("Alle Punkte nach dem gewählten entfernen"),
                       &EditorModel::trimAfterSelected)),
      deletePoint(action(model, tr("Gewählten Punkt löschen"), &EditorModel::deleteSelected)),
      merge(action(model, tr("Abschnitte zusammenfügen"), &EditorModel::mergeSegments)),
      colorBySpeed(new QAction(tr("Nach Geschwindigkeit färben"), this)),
      hideAirRoutes(new QAction(tr("Luftlinien-Routen ausblenden"), this)),
      fitTrack(action(model, tr("Ganzen Track zeigen"), &EditorModel::fitMap)), m_model(model) {
    exportTrack->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_E));
    exportSingleTrack->setToolTip(
        tr("Ein Track mit einem Abschnitt, ohne Wegpunkte und Routen, wie "
           "ihn Navigations- und Reise-Apps importieren."));
    merge->setToolTip(tr("Alle Abschnitte in Lesereihenfolge zu einem zusammenfügen, damit sich "
                         "die Lücken dazwischen füllen lassen."));
    deletePoint->setShortcut(QKeySequence::Delete);
    for (QAction* toggle : {colorBySpeed, hideAirRoutes}) {
        toggle->setCheckable(true);
    }
    connect(colorBySpeed, &QAction::triggered, &model, &EditorModel::setColorBySpeed);
    connect(hideAirRoutes, &QAction::triggered, &model, &EditorModel::setAirRouteRemoval);
    hideAirRoutes->setToolTip(tr("Die Einstellung wird für weitere Importe gemerkt."));

    for (auto signal : {&EditorModel::trackChanged, &EditorModel::selectionChanged,
                        &EditorModel::coloursChanged, &EditorModel::removeAirRoutesChanged}) {
        connect(&model, signal, this, &EditorCommands::update);
    }
    update();
}

std::vector<WorkspaceCommand> EditorCommands::menuCommands() const {
    return {{ShellMenu::file, sample},        {ShellMenu::file, append},
            {ShellMenu::file, exportTrack},   {ShellMenu::file, exportSingleTrack},
            {ShellMenu::file, exportSection}, {ShellMenu::edit, split},
            {ShellMenu::edit, trimBefore},    {ShellMenu::edit, trimAfter},
            {ShellMenu::edit, deletePoint},   {ShellMenu::edit, merge},
            {ShellMenu::view, colorBySpeed},  {ShellMenu::view, hideAirRoutes},
            {ShellMenu::view, fitTrack}};
}

void EditorCommands::update() {
    const bool editable = m_model.canEdit();
    const bool pointEditable = editable && m_model.canEditSelected();
    append->setEnabled(editable);
    for (QAction* exporting : {exportTrack, exportSingleTrack}) {
        exporting->setEnabled(m_model.track() != nullptr);
    }
    exportSection->setEnabled(m_model.selectedPointID().has_value());
    for (QAction* edit : {split, trimBefore, trimAfter, deletePoint}) {
        edit->setEnabled(pointEditable);
    }
    merge->setEnabled(editable && m_model.canMerge());
    fitTrack->setEnabled(m_model.track() != nullptr);
    colorBySpeed->setChecked(m_model.colorBySpeed());
    hideAirRoutes->setChecked(m_model.removeAirRoutes());
}

} // namespace trackloom
