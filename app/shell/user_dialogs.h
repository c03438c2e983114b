#pragma once

// How view models ask the user for files and decisions without knowing about
// windows: the screens implement this with native dialogs, tests with scripted
// answers.

#include <QString>
#include <QStringList>
#include <optional>

namespace trackloom {

/// A question with a safe and a destructive answer.
struct Confirmation {
    QString title;
    QString text;
    QString cancelTitle;
    QString acceptTitle;
};

class UserDialogs {
  public:
    virtual ~UserDialogs() = default;

    /// A file chosen to open, or nothing when the user cancelled. `nameFilters`
    /// are dialog filters such as "GPX-Dateien (*.gpx)".
    virtual std::optional<QString> fileToOpen(const QString& title,
                                              const QStringList& nameFilters) = 0;
    /// A destination chosen to save to, or nothing when the user cancelled.
    virtual std::optional<QString> fileToSave(const QString& title, const QString& suggestedName,
                                              const QStringList& nameFilters) = 0;
    /// True only when the user chose the accepting (destructive) answer.
    virtual bool confirm(const Confirmation& confirmation) = 0;
    /// Tells the user something that needs no answer, such as a refusal.
    virtual void inform(const QString& title, const QString& text) = 0;
};

} // namespace trackloom
