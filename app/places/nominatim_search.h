#pragma once

// The online place search on OpenStreetMap's Nominatim service. It follows the
// service's usage policy: the application names itself in the User-Agent, at
// most one request per second leaves the machine, one at a time, and nothing is
// repeated or cached automatically. Results are © OpenStreetMap contributors
// (ODbL); the screen that shows them says so.

#include "app/places/online_place_search.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QTimer>

class QNetworkAccessManager;
class QNetworkReply;

namespace trackloom {

/// The places of a Nominatim "jsonv2" answer, at most `limit` of them; items
/// without a readable coordinate are left out. Absent when `body` is not a JSON
/// array.
std::optional<std::vector<OnlinePlace>> parseNominatimResponse(const QByteArray& body,
                                                               int limit = 15);

class NominatimSearch : public QObject, public OnlinePlaceSearch {
    Q_OBJECT

  public:
    /// `acceptLanguage` is sent as is, e.g. "de-DE,de;q=0.9,en;q=0.8"; empty
    /// takes it from the default locale.
    explicit NominatimSearch(QString acceptLanguage = {}, QObject* parent = nullptr);
    ~NominatimSearch() override;

    void search(const QString& text, Done done) override;
    void cancel() override;

    static constexpr int minimumSpacingMilliseconds = 1000;
    static constexpr int timeoutMilliseconds = 15000;

  private:
    void send();
    void finished(QNetworkReply* reply);

    QNetworkAccessManager* m_network;
    QString m_acceptLanguage;
    QString m_pendingText;
    Done m_done;
    QPointer<QNetworkReply> m_reply;
    QTimer m_delay;
    QElapsedTimer m_lastRequest;
};

} // namespace trackloom
