#include "app/shell/launch_options.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QRegularExpression>
#include <cstring>

namespace trackloom {
namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("trackloom", text);
}

std::optional<QSize> parseSize(const QString& text) {
    static const QRegularExpression pattern(QStringLiteral("^(\\d{2,5})x(\\d{2,5})$"));
    const auto match = pattern.match(text);
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    if (size.width() < 320 || size.height() < 240 || size.width() > 8000 || size.height() > 8000) {
        return std::nullopt;
    }
    return size;
}

} // namespace

std::variant<LaunchOptions, LaunchExit> parseLaunchOptions(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        tr("Trackloom – GPX-Tracks, Google-Zeitachsen und Orte, alles auf diesem Rechner."));
    const QCommandLineOption help({"h", "help"}, tr("Diese Hilfe anzeigen."));
    const QCommandLineOption version({"v", "version"}, tr("Die Version anzeigen."));
    const QCommandLineOption screenshot(
        "screenshot", tr("Das Fenster ohne Bildschirm zeichnen, als PNG schreiben und beenden."),
        tr("DATEI.png"));
    const QCommandLineOption size("size", tr("Fenstergröße für --screenshot, etwa 1280x800."),
                                  tr("BxH"));
    const QCommandLineOption explore(
        "explore",
        tr("Mit --screenshot einer Datei: den Ort im Ort-Explorer zeigen, etwa \"50.7, 7.1\"."),
        tr("BREITE, LÄNGE"));
    parser.addOptions({help, version, screenshot, size, explore});
    parser.addPositionalArgument(tr("DATEI"), tr("Zu öffnende Dateien."), tr("[DATEI …]"));
    if (!parser.parse(arguments)) {
        return LaunchExit{parser.errorText(), 1};
    }
    if (parser.isSet(help)) {
        return LaunchExit{parser.helpText(), 0};
    }
    if (parser.isSet(version)) {
        return LaunchExit{
            QStringLiteral("Trackloom %1").arg(QCoreApplication::applicationVersion()), 0};
    }
    LaunchOptions options;
    options.files = parser.positionalArguments();
    if (parser.isSet(screenshot)) {
        options.screenshotPath = parser.value(screenshot);
    }
    if (parser.isSet(size)) {
        const auto parsed = parseSize(parser.value(size));
        if (!parsed || !options.screenshotPath) {
            return LaunchExit{
                tr("--size braucht --screenshot und eine Größe wie 1280x800 (mindestens 320x240)."),
                1};
        }
        options.screenshotSize = *parsed;
    }
    if (parser.isSet(explore)) {
        if (!options.screenshotPath || options.files.isEmpty()) {
            return LaunchExit{tr("--explore braucht --screenshot und eine Datei."), 1};
        }
        options.explorePlace = PlaceAnalysis::coordinate(parser.value(explore).toStdString());
        if (!options.explorePlace) {
            return LaunchExit{tr("Bitte gültige Koordinaten eingeben."), 2};
        }
    }
    return options;
}

bool wantsScreenshot(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--screenshot") == 0 ||
            std::strncmp(argv[i], "--screenshot=", 13) == 0) {
            return true;
        }
    }
    return false;
}

} // namespace trackloom
