#pragma once

// How tile bytes are fetched. The map never talks to the network directly, so
// that tests can answer requests themselves and an empty URL template means no
// request at all.

#include <QByteArray>
#include <QUrl>
#include <functional>
#include <memory>
#include <optional>

class QNetworkAccessManager;

namespace trackloom {

class TileFetcher {
  public:
    /// Receives the tile's bytes, or nothing when it could not be fetched.
    using Completion = std::function<void(std::optional<QByteArray>)>;

    virtual ~TileFetcher() = default;
    /// Starts fetching `url`; `done` is called once, later, on the calling thread.
    virtual void fetch(const QUrl& url, Completion done) = 0;
};

/// Fetches over HTTP with a User-Agent naming Trackloom and its version, as the
/// OpenStreetMap tile servers require.
class NetworkTileFetcher : public TileFetcher {
  public:
    NetworkTileFetcher();
    ~NetworkTileFetcher() override;

    void fetch(const QUrl& url, Completion done) override;

  private:
    std::unique_ptr<QNetworkAccessManager> m_network;
};

} // namespace trackloom
