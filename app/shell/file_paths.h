#pragma once

#include <QFile>
#include <QString>
#include <filesystem>

namespace trackloom {

/// The file-system path of a path the dialogs or the shell gave us.
inline std::filesystem::path localPath(const QString& path) {
    return std::filesystem::path(QFile::encodeName(path).toStdString());
}

} // namespace trackloom
