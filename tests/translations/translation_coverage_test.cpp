// Every German text the application can show must have an English translation:
// lupdate reads the sources as the update target does, and each text it finds
// must be finished in the committed Linguist file, with the same placeholders
// and the same spaces at its ends (pieces are joined into sentences).

#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <gtest/gtest.h>

namespace {

struct Entry {
    QString translation;
    bool finished = false;
};

using Catalogue = QMap<QPair<QString, QString>, Entry>;

Catalogue readCatalogue(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    Catalogue catalogue;
    QXmlStreamReader xml(&file);
    QString context, source;
    Entry entry;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement()) {
            continue;
        }
        if (xml.name() == u"name") {
            context = xml.readElementText();
        } else if (xml.name() == u"source") {
            source = xml.readElementText();
        } else if (xml.name() == u"translation") {
            const auto type = xml.attributes().value(QLatin1String("type"));
            entry.finished = type.isEmpty();
            entry.translation = xml.readElementText(QXmlStreamReader::IncludeChildElements);
            catalogue.insert({context, source}, entry);
        }
    }
    EXPECT_FALSE(xml.hasError()) << path.toStdString() << ": " << xml.errorString().toStdString();
    return catalogue;
}

/// The texts the sources contain now, as the update target would collect them.
Catalogue sourceTexts() {
    QTemporaryDir folder;
    const QString ts = folder.filePath("trackloom_en.ts");
    const QString root = QStringLiteral(TRACKLOOM_SOURCE_DIR);
    QProcess lupdate;
    lupdate.start(TRACKLOOM_LUPDATE, {"-silent", "-locations", "none", "-I", root, "-extensions",
                                      "cpp,h", root + "/app", TRACKLOOM_CORE_MESSAGES, "-ts", ts});
    EXPECT_TRUE(lupdate.waitForFinished(60000));
    EXPECT_EQ(lupdate.exitCode(), 0) << lupdate.readAllStandardError().toStdString();
    return readCatalogue(ts);
}

QStringList placeholdersOf(const QString& text) {
    static const QRegularExpression placeholder(QStringLiteral("%\\d"));
    QStringList found;
    for (const auto& match : placeholder.globalMatch(text)) {
        found << match.captured();
    }
    found.sort();
    return found;
}

std::string describe(const QPair<QString, QString>& key) {
    return (key.first + " / \"" + key.second + "\"").toStdString();
}

class EnglishTranslation : public ::testing::Test {
  protected:
    static void SetUpTestSuite() {
        s_sources = new Catalogue(sourceTexts());
        s_english = new Catalogue(
            readCatalogue(QStringLiteral(TRACKLOOM_SOURCE_DIR "/translations/trackloom_en.ts")));
    }
    static void TearDownTestSuite() {
        delete s_sources;
        delete s_english;
    }

    static inline Catalogue* s_sources = nullptr;
    static inline Catalogue* s_english = nullptr;
};

TEST_F(EnglishTranslation, CoversTheApplicationAndTheCore) {
    // A tree without its texts would pass everything below.
    EXPECT_GT(s_sources->size(), 300);
    const auto core =
        std::count_if(s_sources->keyBegin(), s_sources->keyEnd(), [](const auto& key) {
            return key.first == QLatin1String("trackloom::core");
        });
    EXPECT_GT(core, 40);
}

TEST_F(EnglishTranslation, HasAFinishedTranslationOfEveryText) {
    QStringList missing;
    for (auto it = s_sources->cbegin(); it != s_sources->cend(); ++it) {
        const auto found = s_english->constFind(it.key());
        if (found == s_english->cend() || !found->finished || found->translation.isEmpty()) {
            missing << QString::fromStdString(describe(it.key()));
        }
    }
    EXPECT_TRUE(missing.isEmpty())
        << missing.size() << " texts need an English translation (build the target "
        << "update_translations, then translate them in translations/trackloom_en.ts):\n"
        << missing.join('\n').toStdString();
}

TEST_F(EnglishTranslation, KeepsPlaceholdersAndTheSpacesPiecesAreJoinedWith) {
    for (auto it = s_english->cbegin(); it != s_english->cend(); ++it) {
        const QString& source = it.key().second;
        const QString& english = it->translation;
        if (english.isEmpty()) {
            continue;
        }
        EXPECT_EQ(placeholdersOf(source), placeholdersOf(english)) << describe(it.key());
        EXPECT_EQ(source.startsWith(' '), english.startsWith(' ')) << describe(it.key());
        EXPECT_EQ(source.endsWith(' '), english.endsWith(' ')) << describe(it.key());
    }
}

TEST(TranslationContexts, FileLocalTrHelpersTranslateWhereLupdateFilesTheirTexts) {
    // lupdate files the texts of a free tr() helper under the enclosing
    // namespace; a helper looking them up in another context finds nothing.
    static const QRegularExpression helper(
        QStringLiteral(R"re(QString\s+tr\s*\(\s*const\s+char\s*\*\s*\w+\s*\)\s*\{\s*return\s+)re"
                       R"re(QCoreApplication::translate\(\s*"([^"]*)")re"));
    int helpers = 0;
    QDirIterator sources(QStringLiteral(TRACKLOOM_SOURCE_DIR "/app"), {"*.cpp", "*.h"}, QDir::Files,
                         QDirIterator::Subdirectories);
    while (sources.hasNext()) {
        const QString path = sources.next();
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        for (const auto& match : helper.globalMatch(QString::fromUtf8(file.readAll()))) {
            ++helpers;
            EXPECT_EQ(match.captured(1), "trackloom") << path.toStdString();
        }
    }
    EXPECT_GT(helpers, 0) << "the pattern no longer finds the helpers";
}

} // namespace
