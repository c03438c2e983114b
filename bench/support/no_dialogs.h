#pragma once

// The answers a benchmark gives a view model: no files chosen, every question
// answered with yes, nothing shown.

#include "app/shell/user_dialogs.h"

namespace trackloom::bench {

struct NoDialogs : UserDialogs {
    std::optional<QString> fileToOpen(const QString&, const QStringList&) override { return {}; }
    std::optional<QString> fileToSave(const QString&, const QString&, const QStringList&,
                                      const QStringList&) override {
        return {};
    }
    bool confirm(const Confirmation&) override { return true; }
    void inform(const QString&, const QString&) override {}
};

} // namespace trackloom::bench
