#pragma once

// Before the application quits, every workspace that holds unsaved work gets
// its own question, shown while that workspace is in front.

#include "app/shell/user_dialogs.h"

#include <functional>
#include <vector>

namespace trackloom {

/// What a workspace would lose: the title and text of its warning.
struct UnsavedWork {
    QString title;
    QString text;
};

struct PendingWork {
    UnsavedWork work;
    /// Brings the workspace to the front before its question is asked.
    std::function<void()> reveal;
};

/// Asks about each piece of pending work in turn ("Abbrechen" or "Änderungen
/// verwerfen") and stops at the first refusal. True when nothing is pending or
/// the user discarded all of it.
bool confirmQuit(const std::vector<PendingWork>& pending, UserDialogs& dialogs);

} // namespace trackloom
