#include "app/shell/tool_tips.h"

#include <QAction>

namespace trackloom {

QString toolTipNaming(const QString& help, const QKeySequence& shortcut) {
    if (shortcut.isEmpty()) {
        return help;
    }
    return help + QStringLiteral(" (") + shortcut.toString(QKeySequence::NativeText) +
           QStringLiteral(")");
}

void describeAction(QAction& action, const QString& help) {
    action.setToolTip(toolTipNaming(help, action.shortcut()));
}

} // namespace trackloom
