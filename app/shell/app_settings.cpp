#include "app/shell/app_settings.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUrl>

namespace trackloom {
namespace {

const QString tileKey = QStringLiteral("map/tileURLTemplate");
const QString geometryKey = QStringLiteral("window/geometry");
const QString stateKey = QStringLiteral("window/state");
const QString folderKey = QStringLiteral("dialogs/lastFolder");
const QString languageKey = QStringLiteral("interface/language");
const QString recentKey = QStringLiteral("files/recent");

// One spelling per file, so that a file opened by two paths is one entry.
QString canonical(const QString& path) {
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

} // namespace

std::optional<bool> storedFlag(const QSettings& store, const QString& key) {
    const QVariant value = store.value(key);
    if (value.typeId() == QMetaType::Bool) {
        return value.toBool();
    }
    if (value.typeId() == QMetaType::QString) {
        if (value.toString() == QLatin1String("true")) {
            return true;
        }
        if (value.toString() == QLatin1String("false")) {
            return false;
        }
    }
    return std::nullopt;
}

QString AppSettings::defaultTileURLTemplate() {
    return QStringLiteral("https://tile.openstreetmap.org/{z}/{x}/{y}.png");
}

std::optional<QString> AppSettings::tileURLTemplateError(const QString& urlTemplate) {
    if (urlTemplate.isEmpty()) {
        return std::nullopt;
    }
    const QUrl url(urlTemplate);
    const bool web = url.isValid() && (url.scheme() == QLatin1String("https") ||
                                       url.scheme() == QLatin1String("http"));
    const bool complete = urlTemplate.contains(QLatin1String("{z}")) &&
                          urlTemplate.contains(QLatin1String("{x}")) &&
                          urlTemplate.contains(QLatin1String("{y}"));
    if (web && complete && !url.host().isEmpty()) {
        return std::nullopt;
    }
    return QCoreApplication::translate("trackloom",
                                       "Die Kachel-Adresse muss mit http:// oder https:// beginnen "
                                       "und {z}, {x} und {y} enthalten.");
}

QString AppSettings::tileCacheFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::CacheLocation) +
           QStringLiteral("/tiles");
}

QString AppSettings::tileURLTemplate() const {
    return m_store.value(tileKey, defaultTileURLTemplate()).toString();
}

void AppSettings::setTileURLTemplate(const QString& urlTemplate) {
    m_store.setValue(tileKey, urlTemplate);
}

QByteArray AppSettings::windowGeometry() const {
    return m_store.value(geometryKey).toByteArray();
}

QByteArray AppSettings::windowState() const {
    return m_store.value(stateKey).toByteArray();
}

void AppSettings::setWindowLayout(const QByteArray& geometry, const QByteArray& state) {
    m_store.setValue(geometryKey, geometry);
    m_store.setValue(stateKey, state);
}

AppSettings::Language AppSettings::language() const {
    const QString stored = m_store.value(languageKey).toString();
    if (stored == QLatin1String("de")) {
        return Language::german;
    }
    if (stored == QLatin1String("en")) {
        return Language::english;
    }
    return Language::automatic;
}

void AppSettings::setLanguage(Language language) {
    switch (language) {
    case Language::german:
        m_store.setValue(languageKey, QStringLiteral("de"));
        break;
    case Language::english:
        m_store.setValue(languageKey, QStringLiteral("en"));
        break;
    case Language::automatic:
        m_store.remove(languageKey);
        break;
    }
}

QString AppSettings::lastFolder() const {
    return m_store.value(folderKey, QDir::homePath()).toString();
}

void AppSettings::setLastFolder(const QString& folder) {
    m_store.setValue(folderKey, folder);
}

QStringList AppSettings::recentFiles() const {
    return m_store.value(recentKey).toStringList();
}

void AppSettings::addRecentFile(const QString& path) {
    QStringList files = recentFiles();
    files.removeAll(canonical(path));
    files.prepend(canonical(path));
    m_store.setValue(recentKey, files.mid(0, recentFileLimit));
}

void AppSettings::removeRecentFile(const QString& path) {
    QStringList files = recentFiles();
    files.removeAll(canonical(path));
    m_store.setValue(recentKey, files);
}

void AppSettings::clearRecentFiles() {
    m_store.remove(recentKey);
}

} // namespace trackloom
