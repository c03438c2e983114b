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
    /// A destination that is one of `protectedPaths` (the files the workspace
    /// opened, which no export may overwrite) is refused with the text of
    /// `protectedDestinationRefusal` before anyone asks whether to replace an
    /// existing file; only then is the user asked about replacing. Pass an
    /// empty list when nothing is protected. Callers still check the returned
    /// path themselves before writing.
    virtual std::optional<QString> fileToSave(const QString& title, const QString& suggestedName,
                                              const QStringList& nameFilters,
                                              const QStringList& protectedPaths) = 0;
    /// True only when the user chose the accepting (destructive) answer.
    virtual bool confirm(const Confirmation& confirmation) = 0;
    /// Tells the user something that needs no answer, such as a refusal.
    virtual void inform(const QString& title, const QString& text) = 0;
};

} // namespace trackloom
