#include "app/shell/headless_dialogs.h"

#include <cstdio>

namespace trackloom {

std::optional<QString> HeadlessDialogs::fileToOpen(const QString&, const QStringList&) {
    return std::nullopt;
}

std::optional<QString> HeadlessDialogs::fileToSave(const QString&, const QString&,
                                                   const QStringList&, const QStringList&) {
    return std::nullopt;
}

bool HeadlessDialogs::confirm(const Confirmation&) {
    return false;
}

void HeadlessDialogs::inform(const QString&, const QString& text) {
    std::fprintf(stderr, "%s\n", qPrintable(text));
}

} // namespace trackloom
