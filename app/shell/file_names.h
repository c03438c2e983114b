#pragma once

// Pieces of the file names the workspaces suggest in their save dialogs, and
// the refusal of destinations that must never be written over.

#include <QString>
#include <QStringList>
#include <optional>

namespace trackloom {

/// `text` (a section name, a title) made usable inside a file name: path
/// separators and characters that some file systems refuse become "-", and
/// surrounding spaces go. May return an empty text.
QString fileNamePart(QString text);

/// The refusal of `destination` when it is, or is a link to, one of
/// `protectedPaths` (the files a workspace opened), or nothing when it may be
/// written. The text is the core's `OriginalFileProtection` message.
std::optional<QString> protectedDestinationRefusal(const QString& destination,
                                                   const QStringList& protectedPaths);

} // namespace trackloom
