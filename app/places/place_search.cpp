// Finding a place for the query: among the visits the history stores (on this
// machine), or through the online search when the user asks for it.

#include "app/places/place_explorer_model.h"

#include <QCoreApplication>
#include <QPointer>
#include <cmath>
#include <unordered_set>

namespace trackloom {

namespace {

/// Case and diacritics folded away, so "koln" finds "Köln".
QString folded(const QString& text) {
    const QString decomposed = text.normalized(QString::NormalizationForm_KD);
    QString result;
    result.reserve(decomposed.size());
    for (const QChar c : decomposed) {
        if (c.category() != QChar::Mark_NonSpacing) {
            result.append(c);
        }
    }
    return result.toCaseFolded();
}

std::optional<PlaceCoordinate> typedCoordinate(const QString& text) {
    return PlaceAnalysis::coordinate(text.toStdString());
}

} // namespace

void PlaceExplorerModel::setCandidates(std::vector<PlaceCandidate> candidates,
                                       const QString& message) {
    m_candidates = std::move(candidates);
    m_queryMessage = message;
    emit candidatesChanged();
}

void PlaceExplorerModel::searchSavedPlaces() {
    const QString text = m_query.trimmed();
    if (text.isEmpty()) {
        setCandidates({}, tr("Bitte einen gespeicherten Ortsnamen oder Koordinaten eingeben."));
        return;
    }
    if (const auto coordinate = typedCoordinate(text)) {
        choose(tr("Koordinaten"), *coordinate, true);
        setCandidates({}, tr("Koordinaten lokal übernommen."));
        return;
    }
    const QString needle = folded(text);
    std::vector<PlaceCandidate> found;
    std::unordered_set<QString> taken;
    for (const TimelinePoint& point : *m_scope.points) {
        if (point.kind != TimelinePointKind::visit || point.label.empty()) {
            continue;
        }
        const QString label = QString::fromStdString(point.label);
        if (!folded(label).contains(needle)) {
            continue;
        }
        // About a metre: the same place stored twice is offered once.
        const QString key =
            label + QLatin1Char('|') + QString::number(std::llround(point.latitude * 100000)) +
            QLatin1Char('|') + QString::number(std::llround(point.longitude * 100000));
        if (!taken.insert(key).second) {
            continue;
        }
        found.push_back({QUuid::createUuid(),
                         label,
                         tr("Gespeicherter Aufenthalt"),
                         {point.latitude, point.longitude}});
        if (found.size() == savedPlaceLimit) {
            break;
        }
    }
    QString message;
    if (found.empty()) {
        message = tr("Kein gespeicherter Ortsname gefunden. Kartenpunkt wählen, Koordinaten "
                     "eingeben oder bei OpenStreetMap suchen.");
    } else if (found.size() == savedPlaceLimit) {
        message = QString::number(found.size()) +
                  tr(" Orte aus deinen Daten (maximal 50; Suche ggf. genauer eingrenzen).");
    } else {
        message = QString::number(found.size()) + tr(" Orte aus deinen Daten.");
    }
    setCandidates(std::move(found), message);
}

void PlaceExplorerModel::searchOnline() {
    cancelSearch();
    const QString text = m_query.trimmed();
    if (text.isEmpty()) {
        setCandidates({}, tr("Bitte einen Ort oder eine Adresse eingeben."));
        return;
    }
    if (const auto coordinate = typedCoordinate(text)) {
        // Typed coordinates never leave the machine.
        choose(tr("Koordinaten"), *coordinate, true);
        return;
    }
    if (!m_online) {
        setCandidates({}, tr("OpenStreetMap-Suche nicht verfügbar: ") +
                              tr("In dieser Umgebung ist keine Online-Suche eingerichtet."));
        return;
    }
    m_searchBusy = true;
    emit candidatesChanged();
    const auto generation = ++m_searchGeneration;
    m_online->search(text, [self = QPointer(this), generation](OnlineSearchResult result) {
        if (!self || generation != self->m_searchGeneration || !self->m_searchBusy) {
            return;
        }
        self->m_searchBusy = false;
        if (const auto* failure = std::get_if<QString>(&result)) {
            self->setCandidates({}, tr("OpenStreetMap-Suche nicht verfügbar: ") + *failure);
            return;
        }
        const auto& places = std::get<std::vector<OnlinePlace>>(result);
        std::vector<PlaceCandidate> candidates;
        for (const OnlinePlace& place : places) {
            if (candidates.size() == onlinePlaceLimit) {
                break;
            }
            candidates.push_back({QUuid::createUuid(), place.name.value_or(tr("Ort")),
                                  place.detail.value_or(QStringLiteral("OpenStreetMap")),
                                  place.coordinate});
        }
        const QString message = candidates.empty()
                                    ? tr("Keine Orte bei OpenStreetMap gefunden.")
                                    : tr("Ort auswählen, um deinen Verlauf dort zu prüfen.");
        self->setCandidates(std::move(candidates), message);
    });
}

void PlaceExplorerModel::cancelSearch() {
    ++m_searchGeneration;
    if (m_online) {
        m_online->cancel();
    }
    m_searchBusy = false;
    setCandidates({}, {});
}

} // namespace trackloom
