#include "app/shell/native_dialogs.h"

#include "app/shell/file_names.h"

#include <QCoreApplication>
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
                                                 const QStringList& nameFilters,
                                                 const QStringList& protectedPaths) {
    QFileDialog dialog(m_parent, title, m_settings.lastFolder() + '/' + suggestedName,
                       nameFilters.join(QStringLiteral(";;")));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setDefaultSuffix(QFileInfo(suggestedName).suffix());
    // Some platforms' own panels ask about replacing whatever they are told;
    // an opened file must be refused before that question, so Qt's dialog
    // runs and the question is ours.
    dialog.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite);
    while (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty()) {
        const QString path = dialog.selectedFiles().constFirst();
        if (const auto refusal = protectedDestinationRefusal(path, protectedPaths)) {
            inform(title, *refusal);
            continue;
        }
        if (QFileInfo::exists(path) &&
            !confirm({title,
                      QCoreApplication::translate("trackloom::NativeDialogs",
                                                  "„%1“ ist bereits vorhanden. Soll die Datei "
                                                  "ersetzt werden?")
                          .arg(QFileInfo(path).fileName()),
                      QCoreApplication::translate("trackloom::NativeDialogs", "Abbrechen"),
                      QCoreApplication::translate("trackloom::NativeDialogs", "Ersetzen")})) {
            continue;
        }
        return remembered(path);
    }
    return std::nullopt;
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
