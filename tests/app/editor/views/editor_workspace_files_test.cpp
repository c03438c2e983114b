// The editor tells the shell about every file it read, for "Zuletzt geöffnet":
// only files that opened, and not the built-in sample.

#include "app/editor/editor_workspace.h"
#include "tests/app/support/qt_test_application.h"
#include "tests/app/support/scripted_dialogs.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace trackloom {
namespace {

class EditorFiles : public testing::ApplicationTest {
  protected:
    void settle() {
        while (workspace.isBusy()) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        }
    }

    QString write(const QString& name, const QByteArray& content) {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return file.fileName();
    }

    QTemporaryDir folder;
    QSettings store{folder.filePath("settings.ini"), QSettings::IniFormat};
    testing::ScriptedDialogs dialogs;
    EditorWorkspace workspace{store, dialogs, nullptr, *date::locate_zone("UTC")};
    QSignalSpy opened{&workspace, &Workspace::fileOpened};
};

TEST_F(EditorFiles, AnnouncesFilesThatOpenedOnly) {
    workspace.openSample();
    settle();
    EXPECT_EQ(opened.count(), 0);

    const QString good = write("Runde.gpx", R"(<gpx xmlns="http://www.topografix.com/GPX/1/1"
        version="1.1" creator="test"><trk><trkseg><trkpt lat="48.1" lon="11.5"/>
        <trkpt lat="48.2" lon="11.5"/></trkseg></trk></gpx>)");
    workspace.open(good);
    settle();
    ASSERT_EQ(opened.count(), 1);
    EXPECT_EQ(opened.at(0).at(0).toString(), good);

    // An edit of the same file is no new opening; a broken file opens nothing.
    workspace.model().selectPoint(0);
    workspace.model().deleteSelected();
    settle();
    workspace.model().undo();
    settle();
    dialogs.confirmations = {true};
    workspace.open(write("kaputt.gpx", "<gpx"));
    settle();
    ASSERT_TRUE(workspace.model().error());
    EXPECT_EQ(opened.count(), 1);
}

} // namespace
} // namespace trackloom
