#include "app/shell/native_dialogs.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

namespace trackloom {

std::optional<QString> NativeDialogs::fileToOpen(const QString& title,
                                                 const QStringList& nameFilters) {
    return remembered(QFileDialog::getOpenFileName(m_parent, title, m_settings.lastFolder(),
                                                   nameFilters.join(QStringLiteral(";;"))));
}

std::optional<QString> NativeDialogs::fileToSave(const QString& title, const QString& suggestedName,
                                                 const QStringList& nameFilters) {
    const QString start = m_settings.lastFolder() + '/' + suggestedName;
    return remembered(QFileDialog::getSaveFileName(m_parent, title, start,
                                                   nameFilters.join(QStringLiteral(";;"))));
}

bool NativeDialogs::confirm(const Confirmation& confirmation) {
    QMessageBox box(QMessageBox::Warning, confirmation.title, confirmation.text,
                    QMessageBox::NoButton, m_parent);
    box.setWindowModality(Qt::WindowModal);
    QPushButton* cancel = box.addButton(confirmation.cancelTitle, QMessageBox::RejectRole);
    QPushButton* accept = box.addButton(confirmation.acceptTitle, QMessageBox::DestructiveRole);
    box.setDefaultButton(cancel);
    box.setEscapeButton(cancel);
    box.exec();
    return box.clickedButton() == accept;
}

void NativeDialogs::inform(const QString& title, const QString& text) {
    QMessageBox::warning(m_parent, title, text);
}

std::optional<QString> NativeDialogs::remembered(const QString& path) {
    if (path.isEmpty()) {
        return std::nullopt;
    }
    m_settings.setLastFolder(QFileInfo(path).absolutePath());
    return path;
}

} // namespace trackloom
