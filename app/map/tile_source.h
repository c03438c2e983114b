#pragma once

// Map tiles from a URL template ("{z}", "{x}", "{y}" replaced), kept in memory
// and in a disk cache. Asking for a tile never blocks on the network: the source
// returns what it has, starts at most one request per tile and announces each
// tile as it arrives. An empty template means offline: nothing is ever fetched.

#include "app/map/map_viewport.h"
#include "app/map/tile_fetcher.h"

#include <QCache>
#include <QDateTime>
#include <QHashFunctions>
#include <QImage>
#include <QObject>
#include <QString>
#include <map>
#include <memory>
#include <set>

namespace trackloom {

inline size_t qHash(const TileKey& tile, size_t seed = 0) {
    return qHashMulti(seed, tile.zoom, tile.x, tile.y);
}

class TileSource : public QObject {
    Q_OBJECT

  public:
    /// `cacheFolder` holds one subfolder per template; `fetcher` may be null
    /// when the source stays offline.
    TileSource(QString urlTemplate, QString cacheFolder, std::unique_ptr<TileFetcher> fetcher,
               QObject* parent = nullptr);
    ~TileSource() override;

    bool isOffline() const { return m_urlTemplate.isEmpty() || !m_fetcher; }
    /// False when offline or when the last request failed and none succeeded since.
    bool isAvailable() const { return !isOffline() && m_available; }
    QUrl url(TileKey tile) const;

    /// The tile when it is in memory or on disk (a null image otherwise, after
    /// starting one request for it). Stale disk tiles are returned and renewed.
    QImage tile(TileKey tile);
    /// The tile when it is in memory, without loading or requesting anything.
    QImage cachedTile(TileKey tile) const;

    /// Switches to another server (or offline with an empty template).
    void setUrlTemplate(const QString& urlTemplate);
    /// Deletes every tile this source stored on disk.
    void clearDiskCache();

  signals:
    void tileArrived(trackloom::TileKey tile);
    void availabilityChanged(bool available);

  private:
    QString diskPath(TileKey tile) const;
    QImage loadFromDisk(TileKey tile);
    void request(TileKey tile);
    void received(TileKey tile, std::uint64_t generation, const std::optional<QByteArray>& bytes);
    void setAvailable(bool available);

    QString m_urlTemplate;
    QString m_cacheFolder;
    std::unique_ptr<TileFetcher> m_fetcher;
    QCache<TileKey, QImage> m_memory;
    std::set<TileKey> m_pending;
    std::map<TileKey, QDateTime> m_failedAt;
    // Replies for a template that was replaced meanwhile are dropped. Not a
    // JobRunner lane: many network replies run at once and none is pool work.
    std::uint64_t m_generation = 0;
    bool m_available = true;
};

} // namespace trackloom
