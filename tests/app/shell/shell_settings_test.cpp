#include "app/shell/app_settings.h"
#include "app/shell/launch_options.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace trackloom {
namespace {

TEST(AppSettings, TilesComeFromOpenStreetMapUntilTheUserChoosesOtherwise) {
    QTemporaryDir folder;
    QSettings store(folder.filePath("settings.ini"), QSettings::IniFormat);
    AppSettings settings(store);
    EXPECT_EQ(settings.tileURLTemplate(), "https://tile.openstreetmap.org/{z}/{x}/{y}.png");
    settings.setTileURLTemplate(QString());
    EXPECT_EQ(settings.tileURLTemplate(), QString()) << "offline is a choice that is kept";
}

TEST(AppSettings, RefusesTileAddressesThatCannotServeTiles) {
    EXPECT_FALSE(AppSettings::tileURLTemplateError(QString()));
    EXPECT_FALSE(AppSettings::tileURLTemplateError("https://tiles.example.org/{z}/{x}/{y}.png"));
    EXPECT_FALSE(AppSettings::tileURLTemplateError("http://localhost:8080/{z}/{x}/{y}"));
    for (const char* bad : {"tiles.example.org/{z}/{x}/{y}.png", "https://example.org/{z}/{x}.png",
                            "ftp://example.org/{z}/{x}/{y}", "https:///{z}/{x}/{y}"}) {
        const auto error = AppSettings::tileURLTemplateError(bad);
        ASSERT_TRUE(error) << bad;
        EXPECT_EQ(*error, "Die Kachel-Adresse muss mit http:// oder https:// beginnen und {z}, "
                          "{x} und {y} enthalten.");
    }
}

LaunchOptions optionsOf(const QStringList& arguments) {
    auto parsed = parseLaunchOptions(QStringList{"trackloom"} + arguments);
    EXPECT_TRUE(std::holds_alternative<LaunchOptions>(parsed)) << arguments.join(' ').toStdString();
    return std::holds_alternative<LaunchOptions>(parsed) ? std::get<LaunchOptions>(parsed)
                                                         : LaunchOptions{};
}

TEST(AppSettings, KeepsTheLastOpenedFilesNewestFirstAndOnceEach) {
    QTemporaryDir folder;
    const QString path = folder.filePath("settings.ini");
    const auto file = [&folder](int i) { return folder.filePath(QString("Runde %1.gpx").arg(i)); };
    {
        QSettings store(path, QSettings::IniFormat);
        AppSettings settings(store);
        EXPECT_TRUE(settings.recentFiles().isEmpty());
        for (int i = 0; i < AppSettings::recentFileLimit + 2; ++i) {
            settings.addRecentFile(file(i));
        }
        // Opened again by another spelling of the same path: moves up, no twin.
        settings.addRecentFile(folder.path() + "/./Runde 5.gpx");
    }
    QSettings store(path, QSettings::IniFormat);
    AppSettings settings(store);
    const QStringList recent = settings.recentFiles();
    ASSERT_EQ(recent.size(), AppSettings::recentFileLimit);
    EXPECT_EQ(recent.front(), file(5));
    EXPECT_EQ(recent.at(1), file(11));
    EXPECT_EQ(recent.count(file(5)), 1);
    EXPECT_FALSE(recent.contains(file(0))) << "the oldest fell off the end";
    EXPECT_FALSE(recent.contains(file(1)));

    settings.removeRecentFile(file(11));
    EXPECT_EQ(settings.recentFiles().at(1), file(10));
    settings.clearRecentFiles();
    EXPECT_TRUE(settings.recentFiles().isEmpty());
}

TEST(LaunchOptions, ReadsFilesAndTheScreenshotRequest) {
    const auto plain = optionsOf({"a.gpx", "b.json"});
    EXPECT_EQ(plain.files, (QStringList{"a.gpx", "b.json"}));
    EXPECT_FALSE(plain.screenshotPath);

    const auto shot = optionsOf({"--screenshot", "out.png", "--size", "1024x640", "a.gpx"});
    EXPECT_EQ(shot.screenshotPath, "out.png");
    EXPECT_EQ(shot.screenshotSize, QSize(1024, 640));
    EXPECT_EQ(shot.files, QStringList{"a.gpx"});
    EXPECT_EQ(optionsOf({"--screenshot=x.png"}).screenshotSize, QSize(1280, 800));
}

TEST(LaunchOptions, RefusesBadSizesAndUnknownOptions) {
    for (const QStringList& arguments :
         {QStringList{"--screenshot", "x.png", "--size", "big"},
          QStringList{"--screenshot", "x.png", "--size", "100x100"},
          QStringList{"--size", "800x600"}, QStringList{"--frobnicate"}}) {
        const auto parsed = parseLaunchOptions(QStringList{"trackloom"} + arguments);
        ASSERT_TRUE(std::holds_alternative<LaunchExit>(parsed))
            << arguments.join(' ').toStdString();
        EXPECT_EQ(std::get<LaunchExit>(parsed).status, 1);
    }
    const auto help = parseLaunchOptions({"trackloom", "--help"});
    ASSERT_TRUE(std::holds_alternative<LaunchExit>(help));
    EXPECT_EQ(std::get<LaunchExit>(help).status, 0);
    EXPECT_TRUE(std::get<LaunchExit>(help).text.contains("--screenshot"));
}

TEST(LaunchOptions, ExploresAPlaceOnlyInAScreenshotOfAFile) {
    const auto shot = optionsOf({"--screenshot", "x.png", "--explore", " 50.7, 7.1", "h.json"});
    ASSERT_TRUE(shot.explorePlace);
    EXPECT_EQ(*shot.explorePlace, (PlaceCoordinate{50.7, 7.1}));
    EXPECT_FALSE(optionsOf({"--screenshot", "x.png", "h.json"}).explorePlace);

    const auto refused = [](const QStringList& arguments) {
        const auto parsed = parseLaunchOptions(QStringList{"trackloom"} + arguments);
        return std::holds_alternative<LaunchExit>(parsed) ? std::get<LaunchExit>(parsed)
                                                          : LaunchExit{{}, -1};
    };
    const auto bad = refused({"--screenshot", "x.png", "--explore", "50,7, 7,1", "h.json"});
    EXPECT_EQ(bad.status, 2);
    EXPECT_EQ(bad.text, "Bitte gültige Koordinaten eingeben.");
    EXPECT_EQ(refused({"--screenshot", "x.png", "--explore", "91, 7"}).status, 1);
    EXPECT_EQ(refused({"--explore", "50.7, 7.1", "h.json"}).status, 1);
}

TEST(LaunchOptions, NoticesAScreenshotBeforeTheApplicationExists) {
    char program[] = "trackloom", shot[] = "--screenshot=x.png", file[] = "a.gpx";
    char* withShot[] = {program, file, shot};
    char* without[] = {program, file};
    EXPECT_TRUE(wantsScreenshot(3, withShot));
    EXPECT_FALSE(wantsScreenshot(2, without));
}

} // namespace
} // namespace trackloom
