#include "app/shell/file_names.h"

#include "app/shell/file_paths.h"
#include "core/base/gpx_error.h"
#include "core/base/original_file_protection.h"

namespace trackloom {

QString fileNamePart(QString text) {
    static const QString forbidden = QStringLiteral("/\\:*?\"<>|");
    for (QChar& c : text) {
        if (forbidden.contains(c) || c.isNull()) {
            c = u'-';
        }
    }
    return text.trimmed();
}

std::optional<QString> protectedDestinationRefusal(const QString& destination,
                                                   const QStringList& protectedPaths) {
    try {
        for (const QString& path : protectedPaths) {
            OriginalFileProtection::checkExport(localPath(destination), localPath(path));
        }
    } catch (const GPXError& error) {
        return QString::fromStdString(error.message());
    }
    return std::nullopt;
}

} // namespace trackloom
