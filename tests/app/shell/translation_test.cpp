#include "app/map/tile_source.h"
#include "app/shell/settings_dialog.h"
#include "app/shell/shell_menus.h"
#include "app/shell/translation.h"
#include "core/base/gpx_error.h"
#include "core/base/localization.h"
#include "tests/app/support/qt_test_application.h"

#include <QComboBox>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QTemporaryDir>
#include <QTranslator>
#include <gtest/gtest.h>

namespace trackloom {
namespace {

const QStringList builtTranslations{QStringLiteral(TRACKLOOM_TRANSLATIONS_DIR)};

// Translators are process-wide; each case starts and ends German.
class InterfaceLanguage : public testing::ApplicationTest {
  protected:
    ~InterfaceLanguage() override {
        for (auto* translator : testing::testApplication().findChildren<QTranslator*>()) {
            QCoreApplication::removeTranslator(translator);
            delete translator;
        }
        setMessageLookup({});
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    }

    static QStringList menuTitles() {
        QMainWindow window;
        ShellMenus menus(window);
        QStringList titles;
        for (QAction* action : window.menuBar()->actions()) {
            titles << action->text();
        }
        return titles;
    }

    static std::string coreMessage() {
        return GPXError("Der Track besteht nur aus einem Abschnitt.").message();
    }
};

TEST_F(InterfaceLanguage, AnEnglishSystemGetsEnglishMenusAndMessages) {
    EXPECT_EQ(installTranslations(testing::testApplication(), QLocale("en_US"), builtTranslations),
              QLocale::English);
    EXPECT_EQ(menuTitles(), (QStringList{"File", "Edit", "View", "Window", "Help"}));
    EXPECT_EQ(coreMessage(), "The track has only one section.");
    EXPECT_EQ(QLocale().language(), QLocale::English);
    EXPECT_EQ(QLocale().territory(), QLocale::UnitedStates) << "the region stays the user's";
}

TEST_F(InterfaceLanguage, GermanAndUntranslatedLanguagesStayGerman) {
    for (const char* system : {"de_DE", "de_AT", "fr_FR", "C"}) {
        EXPECT_EQ(
            installTranslations(testing::testApplication(), QLocale(system), builtTranslations),
            QLocale::German)
            << system;
        EXPECT_EQ(menuTitles(),
                  (QStringList{"Datei", "Bearbeiten", "Darstellung", "Fenster", "Hilfe"}))
            << system;
        EXPECT_EQ(coreMessage(), "Der Track besteht nur aus einem Abschnitt.") << system;
    }
}

TEST_F(InterfaceLanguage, AnEnglishSystemWithoutTheTranslationFileStaysGerman) {
    QTemporaryDir empty;
    EXPECT_EQ(installTranslations(testing::testApplication(), QLocale("en_GB"), {empty.path()}),
              QLocale::German);
    EXPECT_EQ(menuTitles().value(0), "Datei");
    EXPECT_EQ(QLocale().language(), QLocale::German);
}

TEST(LanguageChoice, IsStoredAndOverridesTheSystemLanguageKeepingItsRegion) {
    QTemporaryDir folder;
    QSettings store(folder.filePath("settings.ini"), QSettings::IniFormat);
    AppSettings settings(store);
    EXPECT_EQ(settings.language(), AppSettings::Language::automatic);
    for (auto choice : {AppSettings::Language::english, AppSettings::Language::german,
                        AppSettings::Language::automatic}) {
        settings.setLanguage(choice);
        EXPECT_EQ(AppSettings(store).language(), choice);
    }
    store.setValue("interface/language", "tlh");
    EXPECT_EQ(settings.language(), AppSettings::Language::automatic) << "unknown values fall back";

    const QLocale english("en_US"), swiss("de_CH");
    EXPECT_EQ(interfaceLocale(AppSettings::Language::automatic, english), english);
    EXPECT_EQ(interfaceLocale(AppSettings::Language::german, english),
              QLocale(QLocale::German, QLocale::UnitedStates));
    EXPECT_EQ(interfaceLocale(AppSettings::Language::english, swiss),
              QLocale(QLocale::English, QLocale::Switzerland));
}

TEST_F(InterfaceLanguage, AnInstalledProgramFindsItsTranslationsInTheDataFolder) {
    const auto folders = translationFolders();
    ASSERT_EQ(folders.size(), 2);
    EXPECT_EQ(folders[0], QCoreApplication::applicationDirPath() + "/translations");
    EXPECT_TRUE(folders[1].endsWith("/share/trackloom/translations"));
    EXPECT_FALSE(folders[1].contains("..")) << folders[1].toStdString();
}

TEST_F(InterfaceLanguage, TheSettingsChooseTheLanguageForTheNextStart) {
    QTemporaryDir folder;
    QSettings store(folder.filePath("settings.ini"), QSettings::IniFormat);
    AppSettings settings(store);
    settings.setTileURLTemplate(QString());
    TileSource tiles(QString(), QString(), nullptr);
    const auto choose = [&](const QString& item, bool confirm) {
        SettingsDialog dialog(settings, tiles);
        auto* box = dialog.findChild<QComboBox*>();
        EXPECT_NE(box->findText(item), -1) << item.toStdString();
        box->setCurrentIndex(box->findText(item));
        const auto labels = dialog.findChildren<QLabel*>();
        EXPECT_TRUE(std::any_of(labels.begin(), labels.end(), [](QLabel* label) {
            return label->text().contains("beim nächsten Start");
        }));
        confirm ? dialog.accept() : dialog.reject();
    };
    choose("English", true);
    EXPECT_EQ(settings.language(), AppSettings::Language::english);
    EXPECT_EQ(settings.tileURLTemplate(), QString()) << "the other settings stay as they were";
    choose("Deutsch", false);
    EXPECT_EQ(settings.language(), AppSettings::Language::english) << "cancelled";
    choose("Automatisch (Systemsprache)", true);
    EXPECT_EQ(settings.language(), AppSettings::Language::automatic);
}

} // namespace
} // namespace trackloom
