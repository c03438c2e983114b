#include "app/editor/edit_panel.h"

#include "app/editor/editor_commands.h"
#include "app/editor/editor_model.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>

namespace trackloom {
namespace {

QToolButton* button(QAction* action) {
    auto* made = new QToolButton;
    made->setDefaultAction(action);
    made->setToolButtonStyle(Qt::ToolButtonTextOnly);
    made->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return made;
}

QLabel* note(const QString& text) {
    auto* label = new QLabel(text);
    label->setWordWrap(true);
    QFont small = label->font();
    small.setPointSizeF(small.pointSizeF() * 0.9);
    label->setFont(small);
    return label;
}

QGroupBox* box(const QString& title, std::initializer_list<QWidget*> widgets) {
    auto* group = new QGroupBox(title);
    auto* layout = new QVBoxLayout(group);
    for (QWidget* widget : widgets) {
        layout->addWidget(widget);
    }
    return group;
}

} // namespace

EditPanel::EditPanel(EditorModel& model, EditorCommands& commands, QWidget* parent)
    : QWidget(parent), m_model(model), m_firstName(new QLineEdit), m_secondName(new QLineEdit),
      m_colorBySpeed(new QCheckBox(commands.colorBySpeed->text())),
      m_hideAirRoutes(new QCheckBox(commands.hideAirRoutes->text())),
      m_appendSummary(note(QString())) {
    auto* names = new QWidget;
    auto* form = new QFormLayout(names);
    form->setContentsMargins(0, 0, 0, 0);
    form->addRow(tr("Erster Teil"), m_firstName);
    form->addRow(tr("Zweiter Teil"), m_secondName);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(box(tr("Teilen"), {names, button(commands.split)}));
    layout->addWidget(
        box(tr("Punkte und Abschnitte"),
            {button(commands.trimBefore), button(commands.trimAfter), button(commands.deletePoint),
             button(commands.merge), note(commands.merge->toolTip())}));
    m_colorBySpeed->setToolTip(commands.colorBySpeed->toolTip());
    m_hideAirRoutes->setToolTip(commands.hideAirRoutes->toolTip());
    layout->addWidget(
        box(tr("Darstellung"), {m_colorBySpeed, m_hideAirRoutes,
                                note(tr("Die Einstellung wird für weitere Importe gemerkt."))}));
    layout->addWidget(
        box(tr("Datei"),
            {button(commands.append), m_appendSummary, button(commands.exportTrack),
             button(commands.exportSingleTrack), note(commands.exportSingleTrack->toolTip()),
             button(commands.exportSection)}));
    layout->addStretch();

    connect(m_firstName, &QLineEdit::textEdited, &model, &EditorModel::setFirstPartName);
    connect(m_secondName, &QLineEdit::textEdited, &model, &EditorModel::setSecondPartName);
    connect(m_colorBySpeed, &QCheckBox::clicked, &model, &EditorModel::setColorBySpeed);
    connect(m_hideAirRoutes, &QCheckBox::clicked, &model, &EditorModel::setAirRouteRemoval);
    for (auto signal : {&EditorModel::splitNamesChanged, &EditorModel::coloursChanged,
                        &EditorModel::removeAirRoutesChanged, &EditorModel::trackChanged}) {
        connect(&model, signal, this, &EditPanel::refresh);
    }
    refresh();
}

void EditPanel::refresh() {
    if (m_firstName->text() != m_model.firstPartName()) {
        m_firstName->setText(m_model.firstPartName());
    }
    if (m_secondName->text() != m_model.secondPartName()) {
        m_secondName->setText(m_model.secondPartName());
    }
    m_colorBySpeed->setChecked(m_model.colorBySpeed());
    m_hideAirRoutes->setChecked(m_model.removeAirRoutes());
    m_appendSummary->setText(m_model.appendSummary());
    m_appendSummary->setVisible(!m_model.appendSummary().isEmpty());
}

} // namespace trackloom
