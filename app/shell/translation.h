#pragma once

// German is the source language of every text, the core's messages included.
// Translations are optional: a "trackloom_<language>.qm" beside the program
// switches the interface to that language; otherwise it stays German, with Qt's
// own dialogs in German too.

#include <QLocale>

class QCoreApplication;

namespace trackloom {

/// Loads the translators for the user's `system` locale, makes the interface
/// language the default locale (keeping the user's region) and routes the
/// core's message lookup through the translators. Call once, before any
/// background work starts.
void installTranslations(QCoreApplication& application, const QLocale& system);

} // namespace trackloom
