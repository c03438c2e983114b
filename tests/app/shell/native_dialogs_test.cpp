#include "app/shell/native_dialogs.h"
#include "tests/app/support/qt_test_application.h"

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <functional>

namespace trackloom {
namespace {

class SaveDialog : public testing::ApplicationTest {
  protected:
    SaveDialog()
        : store(folder.filePath("settings.ini"), QSettings::IniFormat), settings(store),
          dialogs(settings) {
        settings.setLastFolder(folder.path());
    }

    QString existing(const QString& name) {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("<gpx/>");
        return file.fileName();
    }

    /// Answers each modal window as it comes up, recording what message boxes said.
    std::optional<QString> answer(std::vector<std::function<void(QWidget*)>> steps,
                                  const QStringList& protectedPaths) {
        QTimer driver;
        std::size_t next = 0;
        QWidget* answered = nullptr;
        driver.setInterval(10);
        QObject::connect(&driver, &QTimer::timeout, [&] {
            QWidget* modal = QApplication::activeModalWidget();
            if (!modal || modal == answered || next == steps.size()) {
                return;
            }
            answered = modal;
            steps[next++](modal);
        });
        driver.start();
        auto chosen =
            dialogs.fileToSave("Speichern", "neu.gpx", {"GPX-Dateien (*.gpx)"}, protectedPaths);
        EXPECT_EQ(next, steps.size());
        return chosen;
    }

    std::function<void(QWidget*)> choose(const QString& path) {
        return [path](QWidget* window) {
            auto* dialog = qobject_cast<QFileDialog*>(window);
            ASSERT_TRUE(dialog);
            dialog->selectFile(path);
            // Typed, as a user would: the list's selection reaches the name field late.
            auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            ASSERT_TRUE(name);
            name->setText(QFileInfo(path).fileName());
            static_cast<QDialog*>(dialog)->accept();
        };
    }

    std::function<void(QWidget*)> press(const QString& button) {
        return [this, button](QWidget* window) {
            auto* box = qobject_cast<QMessageBox*>(window);
            ASSERT_TRUE(box);
            said.push_back(box->text());
            for (auto* candidate : box->buttons()) {
                if (candidate->text() == button || button.isEmpty()) {
                    candidate->click();
                    return;
                }
            }
            QStringList texts;
            for (auto* candidate : box->buttons()) {
                texts.push_back(candidate->text());
            }
            box->reject();
            FAIL() << "no button " << button.toStdString() << " in "
                   << texts.join('|').toStdString() << " of " << box->text().toStdString();
        };
    }

    QTemporaryDir folder;
    QSettings store;
    AppSettings settings;
    NativeDialogs dialogs;
    QStringList said;
};

TEST_F(SaveDialog, RefusesAProtectedFileBeforeAskingToReplaceIt) {
    const QString opened = existing("runde.gpx");
    const QString other = existing("andere.gpx");
    const auto chosen = answer({choose(opened), press({}), choose(other), press("Abbrechen"),
                                choose(other), press("Ersetzen")},
                               {opened});
    EXPECT_EQ(chosen, other);
    ASSERT_EQ(said.size(), 3);
    EXPECT_EQ(said[0], "Die Originaldatei darf nicht überschrieben werden. Bitte wähle eine "
                       "andere Datei.");
    EXPECT_EQ(said[1], "„andere.gpx“ ist bereits vorhanden. Soll die Datei ersetzt werden?");
}

TEST_F(SaveDialog, ANewFileNeedsNoQuestionAndCancellingChoosesNothing) {
    const QString fresh = folder.filePath("frisch.gpx");
    EXPECT_EQ(answer({choose(fresh)}, {existing("runde.gpx")}), fresh);
    EXPECT_TRUE(said.isEmpty());
    EXPECT_EQ(answer({[](QWidget* window) { qobject_cast<QDialog*>(window)->reject(); }}, {}),
              std::nullopt);
}

} // namespace
} // namespace trackloom
