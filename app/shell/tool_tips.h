#pragma once

#include <QKeySequence>
#include <QString>

class QAction;

namespace trackloom {

/// `help` followed by the shortcut in the platform's notation, "Track speichern
/// (Strg+E)"; `help` alone when there is no shortcut.
QString toolTipNaming(const QString& help, const QKeySequence& shortcut);

/// Gives `action` the tool tip `help` with its current shortcut, for the
/// buttons that show the action.
void describeAction(QAction& action, const QString& help);

} // namespace trackloom
