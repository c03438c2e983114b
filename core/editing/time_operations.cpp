#include "core/editing/time_operations.h"

#include "core/base/gpx_error.h"
#include "core/editing/document_points.h"
#include "core/editing/supported_years.h"
#include "core/editing/time_elements.h"

#include <algorithm>

namespace trackloom {
namespace {

/// Writes a computed time into every track and route point. The distance only
/// grows within a section: the gap to the next section (or from the tracks to
/// the routes) is not travelled, so time stands still across it.
template <typename Timestamp>
GPXTrack::EditableCopy generatedTimes(TrackPtr track, Instant start, Timestamp timestamp) {
    // Every time is computed first: the track may hand its document over below.
    const auto& points = track->points();
    std::vector<Instant> times;
    times.reserve(points.size());
    double distance = 0;
    for (std::size_t index = 0; index < points.size(); ++index) {
        if (index > 0 && points[index].segment == points[index - 1].segment) {
            distance += GPXTrack::distance(points[index - 1], points[index]);
        }
        times.push_back(timestamp(index, distance));
    }
    const std::string namespaceURI = track->namespaceURI();
    auto copy = GPXTrack::editableDocument(std::move(track));
    const auto elements = pointElements(namespaceURI, copy.root);
    for (std::size_t index = 0; index < elements.size(); ++index) {
        writeTime(ensuredTimeElement(copy.document, elements[index], namespaceURI), times[index]);
    }
    setDocumentTimes(copy.root, namespaceURI, start);
    return copy;
}

GPXTrack::EditableCopy shiftedDocument(TrackPtr track, Instant target) {
    const auto start = track->start();
    if (!start) {
        throw GPXError("Der Track enthält keine gültigen Zeitstempel. Erzeuge zuerst Zeitstempel.");
    }
    if (track->analysis().invalidTimes != 0 || track->auxiliaryInvalidTimes() != 0) {
        throw GPXError("Die Datei enthält ungültige Zeitstempel. Bitte korrigiere diese vor "
                       "dem Verschieben.");
    }
    if (!liesInSupportedYears(target, currentZoneOrUTC())) {
        throw GPXError("Das Datum muss zwischen den Jahren 1 und 9999 liegen.");
    }
    const double offset = target.secondsSince(*start);
    const std::string namespaceURI = track->namespaceURI();
    auto copy = GPXTrack::editableDocument(std::move(track));
    for (const auto& element : shiftableTimes(copy.root, namespaceURI)) {
        if (const auto time = GPXTrack::parseTime(element.text())) {
            writeTime(element, time->advanced(offset));
        }
    }
    return copy;
}

GPXTrack::EditableCopy generatedDocument(TrackPtr track, Instant start, double speedKMH) {
    // Written so that NaN fails the test too.
    if (!(speedKMH > 0 && speedKMH <= 1000)) {
        throw GPXError("Bitte gib eine Geschwindigkeit größer als 0 und höchstens 1.000 km/h ein.");
    }
    const double metresPerSecond = speedKMH / 3.6;
    return generatedTimes(std::move(track), start, [&](std::size_t, double distance) {
        return start.advanced(distance / metresPerSecond);
    });
}

GPXTrack::EditableCopy generatedDocument(TrackPtr track, Instant start, Instant end) {
    requiredSpeed(*track, start, end);
    const double total = end.secondsSince(start);
    const double trackDistance = track->analysis().distance;
    const auto last = track->points().size() - 1;
    return generatedTimes(std::move(track), start, [&](std::size_t index, double distance) {
        if (index == 0) {
            return start;
        }
        if (index == last) {
            return end;
        }
        // Rounding may carry the running distance past the total; no interior
        // point may come after the end.
        return start.advanced(total * std::min(distance / trackDistance, 1.0));
    });
}

TrackPtr readBackTimes(GPXTrack::EditableCopy copy, const std::string& name) {
    return GPXTrack::readEdited(std::move(copy.document), name);
}

} // namespace

std::string shifted(const GPXTrack& track, Instant target) {
    return shiftedDocument(track.shared_from_this(), target).document.serialize();
}

std::string generated(const GPXTrack& track, Instant start, double speedKMH) {
    return generatedDocument(track.shared_from_this(), start, speedKMH).document.serialize();
}

std::string generated(const GPXTrack& track, Instant start, Instant end) {
    return generatedDocument(track.shared_from_this(), start, end).document.serialize();
}

TrackPtr shiftedTrack(TrackPtr track, Instant target) {
    const auto name = track->name();
    return readBackTimes(shiftedDocument(std::move(track), target), name);
}

TrackPtr generatedTrack(TrackPtr track, Instant start, double speedKMH) {
    const auto name = track->name();
    return readBackTimes(generatedDocument(std::move(track), start, speedKMH), name);
}

TrackPtr generatedTrack(TrackPtr track, Instant start, Instant end) {
    const auto name = track->name();
    return readBackTimes(generatedDocument(std::move(track), start, end), name);
}

double requiredSpeed(const GPXTrack& track, Instant start, Instant end) {
    if (!liesInSupportedYears(start, nullptr) || !liesInSupportedYears(end, nullptr)) {
        throw GPXError("Start und Ende müssen zwischen den Jahren 1 und 9999 liegen.");
    }
    const double seconds = end.secondsSince(start);
    if (seconds <= 0) {
        throw GPXError("Die Endzeit muss nach der Startzeit liegen. Für eine Fahrt über "
                       "Mitternacht wähle auch das passende Enddatum.");
    }
    const double distance = track.analysis().distance;
    if (track.points().size() < 2 || distance <= 0) {
        throw GPXError("Für Start und Ende wird ein Track mit mindestens zwei Punkten und "
                       "einer Strecke größer als 0 m benötigt.");
    }
    return distance / seconds * 3.6;
}

} // namespace trackloom
