#include "app/shell/quit_guard.h"

#include <QCoreApplication>

namespace trackloom {

bool confirmQuit(const std::vector<PendingWork>& pending, UserDialogs& dialogs) {
    for (const PendingWork& item : pending) {
        if (item.reveal) {
            item.reveal();
        }
        const Confirmation question{
            item.work.title, item.work.text, QCoreApplication::translate("trackloom", "Abbrechen"),
            QCoreApplication::translate("trackloom", "Änderungen verwerfen")};
        if (!dialogs.confirm(question)) {
            return false;
        }
    }
    return true;
}

} // namespace trackloom
