#pragma once

// Tile fetching without a network: requests are recorded, and answered either
// by the test when it chooses or at once with a fixed reply.

#include "app/map/tile_fetcher.h"

#include <QBuffer>
#include <QColor>
#include <QImage>
#include <vector>

namespace trackloom::testing {

struct ScriptedFetcher : TileFetcher {
    struct Request {
        QUrl url;
        Completion done;
    };
    std::vector<Request>* requests;
    /// When set, every request is answered at once with it.
    std::optional<std::optional<QByteArray>> immediateReply;

    explicit ScriptedFetcher(std::vector<Request>* log) : requests(log) {}
    void fetch(const QUrl& url, Completion done) override {
        if (immediateReply) {
            done(*immediateReply);
            return;
        }
        requests->push_back({url, std::move(done)});
    }
};

/// A PNG tile of one colour.
inline QByteArray pngTile(QColor color) {
    QImage image(256, 256, QImage::Format_RGB32);
    image.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

} // namespace trackloom::testing
