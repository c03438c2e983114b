#include "app/map/tile_fetcher.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>

namespace trackloom {

NetworkTileFetcher::NetworkTileFetcher() : m_network(std::make_unique<QNetworkAccessManager>()) {
    m_network->setTransferTimeout(15000);
}

NetworkTileFetcher::~NetworkTileFetcher() = default;

void NetworkTileFetcher::fetch(const QUrl& url, Completion done) {
    QNetworkRequest request(url);
    request.setHeader(
        QNetworkRequest::UserAgentHeader,
        QStringLiteral("Trackloom/%1 (desktop GPX editor)").arg(QStringLiteral(TRACKLOOM_VERSION)));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::NoLessSafeRedirectPolicy);
    QNetworkReply* reply = m_network->get(request);
    QObject::connect(reply, &QNetworkReply::finished, reply, [reply, done = std::move(done)] {
        reply->deleteLater();
        const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        if (reply->error() != QNetworkReply::NoError || status != 200) {
            done(std::nullopt);
            return;
        }
        done(reply->readAll());
    });
}

} // namespace trackloom
