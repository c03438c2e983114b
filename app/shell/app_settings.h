#pragma once

// The application's own entries in the user's settings store. Workspaces keep
// their entries ("colorBySpeed", "removeAirRoutes") in the same store under
// their own keys, through `store()`.

#include <QByteArray>
#include <QSettings>
#include <QString>
#include <QStringList>
#include <optional>

namespace trackloom {

/// A Boolean a workspace stored under `key`, or nothing when the entry is
/// absent or holds anything else. Text-based stores hand back "true" and
/// "false" as strings, others real Booleans; both count.
std::optional<bool> storedFlag(const QSettings& store, const QString& key);

class AppSettings {
  public:
    /// The interface language; the automatic choice follows the system locale.
    enum class Language { automatic, german, english };

    /// The standard OpenStreetMap tiles.
    static QString defaultTileURLTemplate();
    /// Why `urlTemplate` cannot serve tiles, or nothing when it can (an empty
    /// template is valid: it means working offline).
    static std::optional<QString> tileURLTemplateError(const QString& urlTemplate);
    /// The platform's cache folder for map tiles.
    static QString tileCacheFolder();

    explicit AppSettings(QSettings& store) : m_store(store) {}

    QSettings& store() { return m_store; }

    /// The stored template, the OpenStreetMap default when none was ever stored.
    QString tileURLTemplate() const;
    void setTileURLTemplate(const QString& urlTemplate);

    QByteArray windowGeometry() const;
    QByteArray windowState() const;
    void setWindowLayout(const QByteArray& geometry, const QByteArray& state);

    /// The language chosen in the settings; it takes effect at the next start.
    Language language() const;
    void setLanguage(Language language);

    /// The folder the open and save dialogs start in.
    QString lastFolder() const;
    void setLastFolder(const QString& folder);

    /// Files opened lately, the newest first, at most `recentFileLimit`.
    static constexpr int recentFileLimit = 10;
    QStringList recentFiles() const;
    /// Puts `path` first (once, however often it was opened) and drops the
    /// oldest entries beyond the limit.
    void addRecentFile(const QString& path);
    void removeRecentFile(const QString& path);
    void clearRecentFiles();

  private:
    QSettings& m_store;
};

} // namespace trackloom
