// The build installed into a temporary prefix, as `cmake --install` and the
// Debian package lay it out: the files a desktop needs, checked by the
// freedesktop tools where they are installed, and the installed programs
// finding their translations (the application) or ignoring them (the tool).

#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

struct Run {
    int status = -1;
    QString out;
    QString err;
};

Run run(const QString& program, const QStringList& arguments,
        const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment()) {
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    if (!process.waitForFinished(120000)) {
        return {};
    }
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

QString contentsOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

class Installation : public ::testing::Test {
  protected:
    static void SetUpTestSuite() {
        s_prefix = new QTemporaryDir;
        const auto installed =
            run(TRACKLOOM_CMAKE, {"--install", TRACKLOOM_BUILD_DIR, "--prefix", s_prefix->path()});
        ASSERT_EQ(installed.status, 0) << installed.err.toStdString();
    }
    static void TearDownTestSuite() { delete s_prefix; }

    static QString path(const QString& relative) { return s_prefix->filePath(relative); }

    /// The installed programs in a clean session: `language` as the system's,
    /// no display, and settings of their own, so the user's choice of
    /// language does not count.
    static QProcessEnvironment session(const QString& language) {
        auto environment = QProcessEnvironment::systemEnvironment();
        for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANGUAGE"}) {
            environment.remove(variable);
        }
        environment.insert("LANG", language);
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        environment.insert("XDG_CONFIG_HOME", path("config"));
        // Under the sanitizers, Qt's process-lifetime allocations are not what
        // these checks are about.
        environment.insert("ASAN_OPTIONS", "detect_leaks=0");
        return environment;
    }

    static void skipWithout(const QString& tool) {
        if (QStandardPaths::findExecutable(tool).isEmpty()) {
            GTEST_SKIP() << tool.toStdString() << " is not installed";
        }
    }

    static inline QTemporaryDir* s_prefix = nullptr;
};

TEST_F(Installation, LaysOutProgramsDesktopFilesIconsTranslationsAndManuals) {
    for (const char* program : {"bin/trackloom", "bin/trackloom-cli"}) {
        EXPECT_TRUE(QFileInfo(path(program)).isExecutable()) << program;
    }
    for (const char* file :
         {"share/applications/org.trackloom.Trackloom.desktop",
          "share/metainfo/org.trackloom.Trackloom.metainfo.xml",
          "share/mime/packages/trackloom.xml", "share/icons/hicolor/scalable/apps/trackloom.svg",
          "share/trackloom/translations/trackloom_en.qm", "share/man/man1/trackloom.1",
          "share/man/man1/trackloom-cli.1"}) {
        EXPECT_TRUE(QFileInfo(path(file)).isFile()) << file;
    }
    for (int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
        const QString icon =
            path(QStringLiteral("share/icons/hicolor/%1x%1/apps/trackloom.png").arg(size));
        QImageReader reader(icon);
        EXPECT_EQ(reader.format(), "png") << icon.toStdString();
        EXPECT_EQ(reader.size(), QSize(size, size)) << icon.toStdString();
    }
}

TEST_F(Installation, DesktopEntryAndAppStreamDataAreValid) {
    const QString desktop = path("share/applications/org.trackloom.Trackloom.desktop");
    const QString metainfo = path("share/metainfo/org.trackloom.Trackloom.metainfo.xml");
    if (!QStandardPaths::findExecutable("desktop-file-validate").isEmpty()) {
        const auto checked = run("desktop-file-validate", {desktop});
        EXPECT_EQ(checked.status, 0) << checked.out.toStdString() << checked.err.toStdString();
        EXPECT_FALSE(checked.out.contains("error")) << checked.out.toStdString();
    }
    skipWithout("appstreamcli");
    const auto validated = run("appstreamcli", {"validate", "--no-net", metainfo});
    EXPECT_EQ(validated.status, 0) << validated.out.toStdString() << validated.err.toStdString();
}

TEST_F(Installation, FileTypesMatchTheirPatternsAndTheDesktopEntryOffersThemAll) {
    const QString entry = contentsOf(path("share/applications/org.trackloom.Trackloom.desktop"));
    const QString types = contentsOf(path("share/mime/packages/trackloom.xml"));
    const QString metainfo =
        contentsOf(path("share/metainfo/org.trackloom.Trackloom.metainfo.xml"));
    const QRegularExpression declared(QStringLiteral("<mime-type type=\"([^\"]+)\""));
    QStringList declaredTypes;
    for (const auto& match : declared.globalMatch(types)) {
        declaredTypes << match.captured(1);
        EXPECT_TRUE(entry.contains(match.captured(1) + ';')) << match.captured(1).toStdString();
        EXPECT_TRUE(metainfo.contains("<mediatype>" + match.captured(1) + "</mediatype>"))
            << match.captured(1).toStdString();
    }
    EXPECT_EQ(declaredTypes.size(), 2);

    skipWithout("update-mime-database");
    // The freedesktop tool compiles the declaration as a desktop would; its
    // glob table must send both endings to our types.
    QTemporaryDir database;
    QDir(database.path()).mkpath("packages");
    ASSERT_TRUE(QFile::copy(path("share/mime/packages/trackloom.xml"),
                            database.filePath("packages/trackloom.xml")));
    const auto compiled = run("update-mime-database", {database.path()});
    ASSERT_EQ(compiled.status, 0) << compiled.err.toStdString();
    EXPECT_FALSE(compiled.err.contains("trackloom.xml")) << compiled.err.toStdString();
    const QString globs = contentsOf(database.filePath("globs2"));
    EXPECT_TRUE(globs.contains(":application/vnd.trackloom.gpxhistory+json:*.gpxhistory"))
        << globs.toStdString();
    EXPECT_TRUE(globs.contains(":application/gpx+xml:*.gpx")) << globs.toStdString();
}

TEST_F(Installation, TheApplicationSpeaksTheSystemLanguageTheToolStaysGerman) {
    const auto english = run(path("bin/trackloom"), {"--help"}, session("en_US.UTF-8"));
    EXPECT_EQ(english.status, 0) << english.err.toStdString();
    EXPECT_TRUE(english.out.contains("Show this help.")) << english.out.toStdString();
    const auto german = run(path("bin/trackloom"), {"--help"}, session("de_DE.UTF-8"));
    EXPECT_TRUE(german.out.contains("Diese Hilfe anzeigen.")) << german.out.toStdString();

    const auto refused = run(path("bin/trackloom-cli"), {"gpx", "info", path("missing.gpx")},
                             session("en_US.UTF-8"));
    EXPECT_EQ(refused.status, 2);
    EXPECT_TRUE(refused.err.startsWith("Die Datei konnte nicht gelesen werden: "))
        << refused.err.toStdString();
}

TEST_F(Installation, ManualPagesDescribeWhatTheProgramsAccept) {
    const QString cliPage = contentsOf(path("share/man/man1/trackloom-cli.1"));
    const auto roff = [](QString text) { return text.replace('\\', "\\e").replace('-', "\\-"); };
    const auto cli = path("bin/trackloom-cli");
    for (const QStringList& command :
         {QStringList{"gpx", "info"}, QStringList{"gpx", "session"},
          QStringList{"timeline", "export"}, QStringList{"places", "heat"}}) {
        EXPECT_TRUE(cliPage.contains(".SS \"trackloom-cli " + command.join(' ') + '"'))
            << command.join(' ').toStdString();
        // The usage line names the program as it was called.
        const QString help =
            run(cli, command + QStringList{"--help"}).out.replace(cli, "trackloom-cli");
        for (const QString& line : help.split('\n', Qt::SkipEmptyParts)) {
            EXPECT_TRUE(cliPage.contains(roff(line))) << line.toStdString();
        }
    }

    // The application's page is written by hand: every option must be in it.
    const QString appPage = contentsOf(path("share/man/man1/trackloom.1"));
    const auto help = run(path("bin/trackloom"), {"--help"}, session("de_DE.UTF-8"));
    const QRegularExpression option(QStringLiteral("--[a-z-]+"));
    int options = 0;
    for (const auto& match : option.globalMatch(help.out)) {
        ++options;
        EXPECT_TRUE(appPage.contains(roff(match.captured()))) << match.captured().toStdString();
    }
    EXPECT_GE(options, 4);

    if (!QStandardPaths::findExecutable("man").isEmpty()) {
        for (const char* page : {"share/man/man1/trackloom.1", "share/man/man1/trackloom-cli.1"}) {
            auto environment = QProcessEnvironment::systemEnvironment();
            environment.insert("MANWIDTH", "80");
            const auto shown = run("man", {"--warnings", "-l", path(page)}, environment);
            EXPECT_EQ(shown.status, 0) << page;
            EXPECT_TRUE(shown.err.isEmpty()) << page << ": " << shown.err.toStdString();
        }
    }
}

} // namespace
