#include "app/shell/translation.h"

#include "core/base/localization.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace trackloom {
namespace {

// The context the core's messages are translated in.
constexpr const char* coreContext = "trackloom";

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

void installTranslations(QCoreApplication& application, const QLocale& system) {
    const QString translations = QCoreApplication::applicationDirPath() + "/translations";
    QLocale::Language language = QLocale::German;
    if (system.language() != QLocale::German &&
        load(application, "trackloom_" + QLocale::languageToCode(system.language()),
             translations)) {
        language = system.language();
    }
    const QLocale interface(language, system.territory());
    QLocale::setDefault(interface);
    load(application, "qtbase_" + QLocale::languageToCode(language),
         QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    setMessageLookup([](std::string_view germanText) {
        const std::string key(germanText);
        return QCoreApplication::translate(coreContext, key.c_str()).toStdString();
    });
}

} // namespace trackloom
