#pragma once

#include "app/shell/user_dialogs.h"

namespace trackloom {

/// Dialogs for a run without anyone to answer them (screenshots): nothing is
/// chosen, nothing is confirmed, and messages go to standard error instead of
/// waiting for a click.
class HeadlessDialogs : public UserDialogs {
  public:
    std::optional<QString> fileToOpen(const QString& title,
                                      const QStringList& nameFilters) override;
    std::optional<QString> fileToSave(const QString& title, const QString& suggestedName,
                                      const QStringList& nameFilters,
                                      const QStringList& protectedPaths) override;
    bool confirm(const Confirmation& confirmation) override;
    void inform(const QString& title, const QString& text) override;
};

} // namespace trackloom
