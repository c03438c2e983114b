#pragma once

// The "Tastenkürzel" overview: every shortcut of the application, grouped by
// where it works. The menus collect the groups from their actions when the
// overview opens, so that it always shows the shortcuts as they are.

#include <QDialog>
#include <QString>
#include <vector>

class QAction;

namespace trackloom {

struct ShortcutEntry {
    QString command;
    /// The key sequences in the platform's notation, "Strg+E" or "⌘E".
    QString keys;

    friend bool operator==(const ShortcutEntry&, const ShortcutEntry&) = default;
};

struct ShortcutGroup {
    QString title;
    std::vector<ShortcutEntry> entries;
};

/// The entries of those `actions` that have a shortcut, in their order.
std::vector<ShortcutEntry> shortcutEntries(const std::vector<QAction*>& actions);

class ShortcutsDialog : public QDialog {
    Q_OBJECT

  public:
    explicit ShortcutsDialog(const std::vector<ShortcutGroup>& groups, QWidget* parent = nullptr);
};

} // namespace trackloom
