#pragma once

// The fixture of the editor's screen tests: a model with settings in a
// temporary folder, scripted dialogs and the editor's commands, German number
// formats, and helpers that wait for background work and show a screen.

#include "app/editor/editor_commands.h"
#include "app/editor/editor_model.h"
#include "tests/app/support/qt_test_application.h"
#include "tests/app/support/scripted_dialogs.h"

#include <QDeadlineTimer>
#include <QTemporaryDir>

namespace trackloom::testing {

class EditorScreens : public ApplicationTest {
  protected:
    EditorScreens()
        : store(folder.filePath("settings.ini"), QSettings::IniFormat),
          model(store, dialogs, *date::locate_zone("UTC")), commands(model) {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    }

    void settle() {
        const QDeadlineTimer deadline(30000);
        while (model.busy() && !deadline.hasExpired()) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        }
        QCoreApplication::processEvents();
        ASSERT_FALSE(model.busy());
    }

    void loadSample() {
        model.demo();
        settle();
    }

    template <typename Screen> void show(Screen& screen, QSize size = {900, 600}) {
        screen.resize(size);
        screen.show();
        QCoreApplication::processEvents();
    }

    QTemporaryDir folder;
    QSettings store;
    ScriptedDialogs dialogs;
    EditorModel model;
    EditorCommands commands;
};

} // namespace trackloom::testing
