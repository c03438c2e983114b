// Every button of the editor and every command it offers explains itself in
// a tool tip, and names its shortcut when it has one.

#include "app/editor/editor_view.h"
#include "tests/app/editor/views/editor_screens.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QCheckBox>
#include <QRadioButton>
#include <QTabBar>

namespace trackloom {
namespace {

using testing::EditorScreens;

// Qt makes a tool tip out of the text when none is set: that explains nothing.
bool explains(const QString& toolTip, const QString& text) {
    QString plain = text;
    plain.remove(QLatin1Char('&'));
    return !toolTip.isEmpty() && toolTip != plain;
}

TEST_F(EditorScreens, EveryCommandExplainsItselfAndNamesItsShortcut) {
    std::vector<QAction*> actions;
    for (const WorkspaceCommand& command : commands.menuCommands()) {
        actions.push_back(command.action);
    }
    ASSERT_FALSE(actions.empty());
    for (const QAction* action : actions) {
        EXPECT_TRUE(explains(action->toolTip(), action->text())) << action->text().toStdString();
        if (!action->shortcut().isEmpty()) {
            EXPECT_TRUE(
                action->toolTip().contains(action->shortcut().toString(QKeySequence::NativeText)))
                << action->toolTip().toStdString();
        }
    }
}

TEST_F(EditorScreens, EveryButtonOfTheEditorHasAToolTip) {
    EditorView view(model, commands, nullptr);
    show(view);
    loadSample();
    int buttons = 0;
    for (const QAbstractButton* button : view.findChildren<QAbstractButton*>()) {
        // Check boxes and radio buttons say what they do in their own text;
        // a tab bar's arrows and a table's corner are Qt's.
        if (qobject_cast<const QCheckBox*>(button) || qobject_cast<const QRadioButton*>(button) ||
            qobject_cast<const QTabBar*>(button->parentWidget()) ||
            qobject_cast<const QAbstractItemView*>(button->parentWidget())) {
            continue;
        }
        ++buttons;
        EXPECT_TRUE(explains(button->toolTip(), button->text()))
            << button->metaObject()->className() << " " << button->text().toStdString();
    }
    EXPECT_GT(buttons, 15);
}

} // namespace
} // namespace trackloom
