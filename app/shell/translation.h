#pragma once

// German is the source language of every text, the core's messages included.
// Translations are optional: a "trackloom_<language>.qm" in one of the
// translation folders switches the interface to that language; otherwise it
// stays German, with Qt's own dialogs in German too.

#include "app/shell/app_settings.h"

#include <QLocale>
#include <QStringList>

class QCoreApplication;

namespace trackloom {

/// The context the core's messages are translated in.
inline constexpr const char* coreTranslationContext = "trackloom::core";

/// Where the program looks for its translations: beside the executable in the
/// build tree, and in the data folder of an installation beside its `bin`.
QStringList translationFolders();

/// The locale whose language the interface should speak: the system's for
/// the automatic choice, otherwise the chosen language in the system's region.
QLocale interfaceLocale(AppSettings::Language choice, const QLocale& system);

/// Loads the translators for the `wanted` locale from the first folder that
/// has them, makes the interface language the default locale (keeping the
/// region) and routes the core's message lookup through the translators. Call
/// once, before any background work starts. Returns the interface language.
QLocale::Language installTranslations(QCoreApplication& application, const QLocale& wanted,
                                      const QStringList& folders = translationFolders());

} // namespace trackloom
