#pragma once

#include "app/shell/app_settings.h"
#include "app/shell/user_dialogs.h"

#include <QPointer>
#include <QWidget>

namespace trackloom {

/// The platform's own open, save and message dialogs, starting in the folder
/// the user last chose.
class NativeDialogs : public UserDialogs {
  public:
    explicit NativeDialogs(AppSettings& settings) : m_settings(settings) {}

    /// The window the dialogs belong to.
    void setParentWindow(QWidget* window) { m_parent = window; }

    std::optional<QString> fileToOpen(const QString& title,
                                      const QStringList& nameFilters) override;
    std::optional<QString> fileToSave(const QString& title, const QString& suggestedName,
                                      const QStringList& nameFilters,
                                      const QStringList& protectedPaths) override;
    bool confirm(const Confirmation& confirmation) override;
    void inform(const QString& title, const QString& text) override;

  private:
    std::optional<QString> remembered(const QString& path);

    AppSettings& m_settings;
    QPointer<QWidget> m_parent;
};

} // namespace trackloom
