#include "app/shell/translation.h"

#include "core/base/localization.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QTranslator>

namespace trackloom {
namespace {

bool load(QCoreApplication& application, const QString& name, const QString& folder) {
    auto* translator = new QTranslator(&application);
    if (!translator->load(name, folder)) {
        delete translator;
        return false;
    }
    QCoreApplication::installTranslator(translator);
    return true;
}

} // namespace

QStringList translationFolders() {
    const QDir program(QCoreApplication::applicationDirPath());
    return {program.filePath(QStringLiteral("translations")),
            QDir::cleanPath(program.filePath(QStringLiteral("../share/trackloom/translations")))};
}

QLocale interfaceLocale(AppSettings::Language choice, const QLocale& system) {
    switch (choice) {
    case AppSettings::Language::german:
        return QLocale(QLocale::German, system.territory());
    case AppSettings::Language::english:
        return QLocale(QLocale::English, system.territory());
    case AppSettings::Language::automatic:
        break;
    }
    return system;
}

QLocale::Language installTranslations(QCoreApplication& application, const QLocale& wanted,
                                      const QStringList& folders) {
    QLocale::Language language = QLocale::German;
    if (wanted.language() != QLocale::German) {
        const QString name = "trackloom_" + QLocale::languageToCode(wanted.language());
        for (const QString& folder : folders) {
            if (load(application, name, folder)) {
                language = wanted.language();
                break;
            }
        }
    }
    const QLocale interface(language, wanted.territory());
    QLocale::setDefault(interface);
    load(application, "qtbase_" + QLocale::languageToCode(language),
         QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    if (language == QLocale::German) {
        // The core's texts are German already; no lookup needed.
        setMessageLookup({});
    } else {
        setMessageLookup([](std::string_view germanText) {
            const std::string key(germanText);
            const QString text = QCoreApplication::translate(coreTranslationContext, key.c_str());
            return text.toStdString();
        });
    }
    return language;
}

} // namespace trackloom
