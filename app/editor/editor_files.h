#pragma once

#include "app/shell/file_paths.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

namespace trackloom {

/// The open and save dialog filters for GPX files.
inline QStringList gpxFileFilters() {
    return {QCoreApplication::translate("EditorModel", "GPX-Dateien (*.gpx)")};
}

} // namespace trackloom
