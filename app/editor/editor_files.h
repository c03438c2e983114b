#pragma once

#include <QCoreApplication>
#include <QFile>
#include <QString>
#include <QStringList>
#include <filesystem>

namespace trackloom {

/// The file-system path of a path the dialogs or the shell gave us.
inline std::filesystem::path localPath(const QString& path) {
    return std::filesystem::path(QFile::encodeName(path).toStdString());
}

/// The open and save dialog filters for GPX files.
inline QStringList gpxFileFilters() {
    return {QCoreApplication::translate("EditorModel", "GPX-Dateien (*.gpx)")};
}

} // namespace trackloom
