#include "app/shell/shortcuts_dialog.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace trackloom {

std::vector<ShortcutEntry> shortcutEntries(const std::vector<QAction*>& actions) {
    std::vector<ShortcutEntry> entries;
    for (const QAction* action : actions) {
        QStringList keys;
        for (const QKeySequence& shortcut : action->shortcuts()) {
            keys += shortcut.toString(QKeySequence::NativeText);
        }
        if (!keys.isEmpty()) {
            // The menu text without its mnemonic marks.
            entries.push_back({action->iconText(), keys.join(QStringLiteral(", "))});
        }
    }
    return entries;
}

ShortcutsDialog::ShortcutsDialog(const std::vector<ShortcutGroup>& groups, QWidget* parent)
    : QDialog(parent) {
    setWindowTitle(tr("Tastenkürzel"));
    auto* tree = new QTreeWidget;
    tree->setColumnCount(2);
    tree->setHeaderLabels({tr("Befehl"), tr("Tastenkürzel")});
    tree->setRootIsDecorated(false);
    tree->setSelectionMode(QAbstractItemView::NoSelection);
    for (const ShortcutGroup& group : groups) {
        if (group.entries.empty()) {
            continue;
        }
        auto* heading = new QTreeWidgetItem(tree, {group.title});
        QFont bold = heading->font(0);
        bold.setBold(true);
        heading->setFont(0, bold);
        heading->setFirstColumnSpanned(true);
        for (const ShortcutEntry& entry : group.entries) {
            new QTreeWidgetItem(heading, {entry.command, entry.keys});
        }
        heading->setExpanded(true);
    }
    tree->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    tree->header()->setStretchLastSection(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tree);
    layout->addWidget(buttons);
    resize(480, 520);
}

} // namespace trackloom
