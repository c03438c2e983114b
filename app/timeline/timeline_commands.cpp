#include "app/timeline/timeline_commands.h"

#include "app/timeline/timeline_model.h"

namespace trackloom {

TimelineCommands::TimelineCommands(TimelineModel& model, QObject* parent)
    : QObject(parent), saveWorkingCopy(new QAction(tr("Arbeitskopie sichern"), this)),
      saveSelection(new QAction(tr("Auswahl als neue Arbeitskopie sichern"), this)),
      exportSelection(new QAction(tr("Auswahl als GPX exportieren"), this)),
      exportSection(new QAction(tr("Abschnitt als GPX exportieren"), this)),
      openInEditor(new QAction(tr("Im Track-Editor öffnen"), this)),
      explorePlaces(new QAction(tr("Wann war ich hier?"), this)),
      previousDay(new QAction(tr("Einen Tag zurück"), this)),
      nextDay(new QAction(tr("Einen Tag vor"), this)), m_model(model) {
    saveWorkingCopy->setShortcut(QKeySequence::Save);
    exportSelection->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_E));
    previousDay->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Left));
    nextDay->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Right));
    explorePlaces->setToolTip(tr("Tage finden, an denen der Verlauf einen Ort berührt"));

    connect(saveWorkingCopy, &QAction::triggered, &model,
            [this] { m_model.saveWorkingCopy(false); });
    connect(saveSelection, &QAction::triggered, &model, [this] { m_model.saveWorkingCopy(true); });
    connect(exportSelection, &QAction::triggered, &model, &TimelineModel::exportDay);
    connect(exportSection, &QAction::triggered, &model, &TimelineModel::exportSection);
    connect(openInEditor, &QAction::triggered, this, [this] {
        if (m_trackReceiver) {
            m_model.openInEditor(*m_trackReceiver);
        }
    });
    connect(explorePlaces, &QAction::triggered, this, [this] {
        if (m_placeReceiver) {
            m_model.explorePlaces(*m_placeReceiver);
        }
    });
    connect(previousDay, &QAction::triggered, &model, [this] { m_model.stepDay(-1); });
    connect(nextDay, &QAction::triggered, &model, [this] { m_model.stepDay(1); });

    for (auto signal : {&TimelineModel::sourceChanged, &TimelineModel::selectionChanged,
                        &TimelineModel::rangeChanged, &TimelineModel::pointsChanged,
                        &TimelineModel::dirtyChanged, &TimelineModel::daysChanged}) {
        connect(&model, signal, this, &TimelineCommands::update);
    }
    connect(&model, &TimelineModel::busyChanged, this, &TimelineCommands::update);
    update();
}

void TimelineCommands::setTrackReceiver(TrackReceiver* receiver) {
    m_trackReceiver = receiver;
    update();
}

void TimelineCommands::setPlaceScopeReceiver(PlaceScopeReceiver* receiver) {
    m_placeReceiver = receiver;
    update();
}

std::vector<WorkspaceCommand> TimelineCommands::menuCommands() const {
    return {{ShellMenu::file, saveWorkingCopy}, {ShellMenu::file, saveSelection},
            {ShellMenu::file, exportSelection}, {ShellMenu::file, exportSection},
            {ShellMenu::file, openInEditor},    {ShellMenu::file, explorePlaces},
            {ShellMenu::view, previousDay},     {ShellMenu::view, nextDay}};
}

void TimelineCommands::update() {
    const bool editable = m_model.canEdit();
    const bool scoped = editable && m_model.hasScope();
    saveWorkingCopy->setEnabled(editable);
    saveSelection->setEnabled(scoped);
    exportSelection->setEnabled(scoped);
    exportSection->setEnabled(editable && m_model.selectedSection().has_value());
    openInEditor->setEnabled(scoped && m_trackReceiver);
    explorePlaces->setEnabled(editable && m_placeReceiver);
    const bool stepping = editable && !m_model.rangeMode() && !m_model.days().empty();
    previousDay->setEnabled(stepping);
    nextDay->setEnabled(stepping);
}

} // namespace trackloom
