#include "app/map/tile_source.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QSaveFile>

namespace trackloom {
namespace {

// Tiles in memory: about 64 MB of decoded 256 × 256 images.
constexpr int memoryTiles = 256;
// OpenStreetMap asks clients to keep tiles at least a week before fetching again.
constexpr qint64 staleAfterSeconds = 7 * 24 * 3600;
// A tile that failed is not asked for again at once, so an offline machine does
// not send a request for every repaint.
constexpr qint64 retryAfterSeconds = 30;

} // namespace

TileSource::TileSource(QString urlTemplate, QString cacheFolder,
                       std::unique_ptr<TileFetcher> fetcher, QObject* parent)
    : QObject(parent), m_urlTemplate(std::move(urlTemplate)), m_cacheFolder(std::move(cacheFolder)),
      m_fetcher(std::move(fetcher)), m_memory(memoryTiles) {}

TileSource::~TileSource() = default;

QUrl TileSource::url(TileKey tile) const {
    QString text = m_urlTemplate;
    text.replace(QLatin1String("{z}"), QString::number(tile.zoom));
    text.replace(QLatin1String("{x}"), QString::number(tile.x));
    text.replace(QLatin1String("{y}"), QString::number(tile.y));
    return QUrl(text);
}

QImage TileSource::tile(TileKey tile) {
    if (const QImage* image = m_memory.object(tile)) {
        return *image;
    }
    QImage image = loadFromDisk(tile);
    if (!image.isNull()) {
        m_memory.insert(tile, new QImage(image));
        return image;
    }
    request(tile);
    return {};
}

QImage TileSource::cachedTile(TileKey tile) const {
    const QImage* image = m_memory.object(tile);
    return image ? *image : QImage();
}

void TileSource::setUrlTemplate(const QString& urlTemplate) {
    if (urlTemplate == m_urlTemplate) {
        return;
    }
    m_urlTemplate = urlTemplate;
    ++m_generation;
    m_memory.clear();
    m_pending.clear();
    m_failedAt.clear();
    m_available = true;
    emit availabilityChanged(isAvailable());
}

void TileSource::clearDiskCache() {
    QDir(m_cacheFolder).removeRecursively();
    m_memory.clear();
}

QString TileSource::diskPath(TileKey tile) const {
    // One folder per template, so switching servers never mixes their tiles.
    const QByteArray server =
        QCryptographicHash::hash(m_urlTemplate.toUtf8(), QCryptographicHash::Sha1).toHex().left(16);
    return QStringLiteral("%1/%2/%3/%4/%5.png")
        .arg(m_cacheFolder, QString::fromLatin1(server))
        .arg(tile.zoom)
        .arg(tile.x)
        .arg(tile.y);
}

QImage TileSource::loadFromDisk(TileKey tile) {
    if (m_cacheFolder.isEmpty() || m_urlTemplate.isEmpty()) {
        return {};
    }
    const QString path = diskPath(tile);
    QImage image(path);
    if (!image.isNull() &&
        QFileInfo(path).lastModified().secsTo(QDateTime::currentDateTime()) > staleAfterSeconds) {
        request(tile);
    }
    return image;
}

void TileSource::request(TileKey tile) {
    if (isOffline() || m_pending.contains(tile)) {
        return;
    }
    if (const auto failed = m_failedAt.find(tile);
        failed != m_failedAt.end() &&
        failed->second.secsTo(QDateTime::currentDateTime()) < retryAfterSeconds) {
        return;
    }
    m_pending.insert(tile);
    QPointer<TileSource> self(this);
    const std::uint64_t generation = m_generation;
    m_fetcher->fetch(url(tile), [self, tile, generation](std::optional<QByteArray> bytes) {
        if (self) {
            self->received(tile, generation, bytes);
        }
    });
}

void TileSource::received(TileKey tile, std::uint64_t generation,
                          const std::optional<QByteArray>& bytes) {
    if (generation != m_generation) {
        return;
    }
    m_pending.erase(tile);
    QImage image;
    if (bytes) {
        image.loadFromData(*bytes);
    }
    if (image.isNull()) {
        m_failedAt[tile] = QDateTime::currentDateTime();
        setAvailable(false);
        return;
    }
    m_failedAt.erase(tile);
    if (!m_cacheFolder.isEmpty()) {
        const QString path = diskPath(tile);
        QDir().mkpath(QFileInfo(path).absolutePath());
        QSaveFile file(path);
        if (file.open(QIODevice::WriteOnly)) {
            file.write(*bytes);
            file.commit();
        }
    }
    m_memory.insert(tile, new QImage(std::move(image)));
    setAvailable(true);
    emit tileArrived(tile);
}

void TileSource::setAvailable(bool available) {
    if (available != m_available) {
        m_available = available;
        emit availabilityChanged(isAvailable());
    }
}

} // namespace trackloom
