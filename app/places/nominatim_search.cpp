#include "app/places/nominatim_search.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QUrlQuery>
#include <cmath>

namespace trackloom {

namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("trackloom", text);
}

std::optional<double> degrees(const QJsonValue& value) {
    // The service writes coordinates as strings; plain numbers are taken too.
    if (value.isDouble()) {
        return value.toDouble();
    }
    bool ok = false;
    const double number = value.toString().trimmed().toDouble(&ok);
    if (!ok || !std::isfinite(number)) {
        return std::nullopt;
    }
    return number;
}

std::optional<QString> nonEmpty(const QJsonValue& value) {
    const QString text = value.toString().trimmed();
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

QString defaultAcceptLanguage() {
    const QStringList languages = QLocale().uiLanguages();
    QStringList parts;
    for (int i = 0; i < languages.size() && i < 4; ++i) {
        parts << (i == 0
                      ? languages[i]
                      : QStringLiteral("%1;q=%2").arg(languages[i]).arg(1.0 - 0.1 * i, 0, 'f', 1));
    }
    parts << QStringLiteral("en;q=0.5");
    return parts.join(QLatin1Char(','));
}

QString failureText(QNetworkReply& reply) {
    const int status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (status == 403) {
        return tr("Der Dienst hat die Anfrage abgelehnt.");
    }
    if (status == 429) {
        return tr("Zu viele Anfragen. Bitte etwas später erneut suchen.");
    }
    if (status >= 500) {
        return tr("Der Dienst ist gerade gestört.");
    }
    switch (reply.error()) {
    case QNetworkReply::HostNotFoundError:
    case QNetworkReply::UnknownNetworkError:
    case QNetworkReply::NetworkSessionFailedError:
        return tr("Keine Internetverbindung.");
    case QNetworkReply::TimeoutError:
    case QNetworkReply::OperationCanceledError:
        return tr("Zeitüberschreitung.");
    default:
        return status > 0 ? tr("Antwort mit Status ") + QString::number(status) + '.'
                          : tr("Die Verbindung ist fehlgeschlagen.");
    }
}

} // namespace

std::optional<std::vector<OnlinePlace>> parseNominatimResponse(const QByteArray& body, int limit) {
    QJsonParseError error;
    const auto document = QJsonDocument::fromJson(body, &error);
    if (error.error != QJsonParseError::NoError || !document.isArray()) {
        return std::nullopt;
    }
    std::vector<OnlinePlace> places;
    for (const QJsonValue& item : document.array()) {
        if (static_cast<int>(places.size()) >= limit) {
            break;
        }
        const QJsonObject object = item.toObject();
        const auto latitude = degrees(object.value(QLatin1String("lat")));
        const auto longitude = degrees(object.value(QLatin1String("lon")));
        if (!latitude || !longitude || std::abs(*latitude) > 90 || std::abs(*longitude) > 180) {
            continue;
        }
        places.push_back({nonEmpty(object.value(QLatin1String("name"))),
                          nonEmpty(object.value(QLatin1String("display_name"))),
                          {*latitude, *longitude}});
    }
    return places;
}

NominatimSearch::NominatimSearch(QString acceptLanguage, QObject* parent)
    : QObject(parent), m_network(new QNetworkAccessManager(this)),
      m_acceptLanguage(acceptLanguage.isEmpty() ? defaultAcceptLanguage()
                                                : std::move(acceptLanguage)) {
    m_delay.setSingleShot(true);
    connect(&m_delay, &QTimer::timeout, this, &NominatimSearch::send);
}

NominatimSearch::~NominatimSearch() {
    cancel();
}

void NominatimSearch::search(const QString& text, Done done) {
    cancel();
    m_pendingText = text;
    m_done = std::move(done);
    const qint64 since = m_lastRequest.isValid() ? m_lastRequest.elapsed() : -1;
    if (since >= 0 && since < minimumSpacingMilliseconds) {
        m_delay.start(static_cast<int>(minimumSpacingMilliseconds - since));
    } else {
        send();
    }
}

void NominatimSearch::cancel() {
    m_delay.stop();
    m_done = nullptr;
    if (m_reply) {
        QNetworkReply* reply = m_reply;
        m_reply = nullptr;
        reply->disconnect(this);
        reply->abort();
        reply->deleteLater();
    }
}

void NominatimSearch::send() {
    QUrl url(QStringLiteral("https://nominatim.openstreetmap.org/search"));
    QUrlQuery query;
    query.addQueryItem(QStringLiteral("q"), m_pendingText);
    query.addQueryItem(QStringLiteral("format"), QStringLiteral("jsonv2"));
    query.addQueryItem(QStringLiteral("limit"), QStringLiteral("15"));
    query.addQueryItem(QStringLiteral("accept-language"), m_acceptLanguage);
    url.setQuery(query);
    QNetworkRequest request(url);
    request.setHeader(QNetworkRequest::UserAgentHeader,
                      QStringLiteral("Trackloom/%1 (desktop; local location history)")
                          .arg(QCoreApplication::applicationVersion().isEmpty()
                                   ? QStringLiteral(TRACKLOOM_VERSION)
                                   : QCoreApplication::applicationVersion()));
    request.setRawHeader("Accept-Language", m_acceptLanguage.toUtf8());
    request.setTransferTimeout(timeoutMilliseconds);
    m_lastRequest.start();
    m_reply = m_network->get(request);
    QNetworkReply* reply = m_reply;
    connect(reply, &QNetworkReply::finished, this, [this, reply] { finished(reply); });
}

void NominatimSearch::finished(QNetworkReply* reply) {
    reply->deleteLater();
    if (reply != m_reply || !m_done) {
        return;
    }
    m_reply = nullptr;
    auto done = std::move(m_done);
    m_done = nullptr;
    if (reply->error() != QNetworkReply::NoError) {
        done(failureText(*reply));
        return;
    }
    auto places = parseNominatimResponse(reply->readAll());
    if (!places) {
        done(tr("Die Antwort war nicht lesbar."));
        return;
    }
    done(std::move(*places));
}

} // namespace trackloom
