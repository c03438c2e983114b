#include "app/editor/editor_commands.h"

#include "app/editor/editor_model.h"
#include "app/shell/tool_tips.h"

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
    deletePoint->setShortcut(QKeySequence::Delete);
    fitTrack->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_0));
    describeActions();
    for (QAction* toggle : {colorBySpeed, hideAirRoutes}) {
        toggle->setCheckable(true);
    }
    connect(colorBySpeed, &QAction::triggered, &model, &EditorModel::setColorBySpeed);
    connect(hideAirRoutes, &QAction::triggered, &model, &EditorModel::setAirRouteRemoval);

    for (auto signal : {&EditorModel::trackChanged, &EditorModel::selectionChanged,
                        &EditorModel::coloursChanged, &EditorModel::removeAirRoutesChanged}) {
        connect(&model, signal, this, &EditorCommands::update);
    }
    update();
}

void EditorCommands::describeActions() {
    describeAction(*sample, tr("Einen erzeugten Track zum Ausprobieren öffnen"));
    describeAction(*append, tr("Einen weiteren GPX-Track hinten anhängen; das lässt sich "
                               "rückgängig machen"));
    describeAction(*exportTrack, tr("Den bearbeiteten Track als neue GPX-Datei speichern; die "
                                    "geöffnete Datei bleibt unverändert"));
    describeAction(*exportSingleTrack,
                   tr("Ein Track mit einem Abschnitt, ohne Wegpunkte und Routen, wie "
                      "ihn Navigations- und Reise-Apps importieren."));
    describeAction(*exportSection,
                   tr("Den Abschnitt des gewählten Punkts als eigene GPX-Datei speichern"));
    describeAction(*split, tr("Den Abschnitt am gewählten Punkt in zwei Tracks mit den "
                              "Namen darüber teilen"));
    describeAction(*trimBefore, tr("Den Track erst am gewählten Punkt beginnen lassen"));
    describeAction(*trimAfter, tr("Den Track am gewählten Punkt enden lassen"));
    describeAction(*deletePoint, tr("Den gewählten Punkt aus dem Track entfernen"));
    describeAction(*merge, tr("Alle Abschnitte in Lesereihenfolge zu einem zusammenfügen, damit "
                              "sich die Lücken dazwischen füllen lassen."));
    describeAction(*colorBySpeed,
                   tr("Die Linie nach der Geschwindigkeit färben, von Grün (langsam) bis Rot"));
    describeAction(*hideAirRoutes, tr("Gerade Linien über große Entfernungen ausblenden; sie "
                                      "werden beim Export entfernt"));
    describeAction(*fitTrack, tr("Die Karte so einstellen, dass der ganze Track zu sehen ist"));
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
