#include "core/track/track_analysis.h"

#include "core/base/geodesy.h"
#include "core/base/localization.h"

#include <algorithm>

namespace trackloom {
namespace {

std::optional<std::string> problemOf(const TrackPoint& from, const TrackPoint& to,
                                     const std::optional<double>& seconds) {
    if (from.invalidTime || to.invalidTime) {
        return localized("Ungültiger Zeitstempel");
    }
    if (!seconds) {
        return localized("Zeitstempel fehlt");
    }
    if (*seconds < 0) {
        return localized("Zeit läuft rückwärts");
    }
    if (*seconds == 0) {
        return localized("Identische Zeitstempel");
    }
    return std::nullopt;
}

} // namespace

TrackAnalysis TrackAnalysis::analyze(const std::vector<TrackPoint>& points) {
    TrackAnalysis analysis;
    analysis.legs.reserve(points.size());
    std::vector<std::int64_t> segments;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const auto& point = points[i];
        if (segments.empty() || segments.back() != point.segment) {
            segments.push_back(point.segment);
        }
        if (point.invalidTime) {
            ++analysis.invalidTimes;
        } else if (!point.time) {
            ++analysis.missingTimes;
        }
        if (i + 1 == points.size() || points[i + 1].segment != point.segment) {
            continue;
        }
        const auto& next = points[i + 1];
        TrackLeg leg;
        leg.id = static_cast<std::int64_t>(analysis.legs.size());
        leg.segment = point.segment;
        leg.from = point.id;
        leg.to = next.id;
        leg.distance =
            haversineDistance(point.latitude, point.longitude, next.latitude, next.longitude);
        analysis.distance += leg.distance;
        leg.cumulativeDistance = analysis.distance;
        if (point.time && next.time) {
            leg.seconds = next.time->secondsSince(*point.time);
        }
        leg.problem = problemOf(point, next, leg.seconds);
        if (!leg.problem) {
            leg.speed = leg.distance / *leg.seconds * 3.6;
            analysis.timedDistance += leg.distance;
            analysis.timedSeconds += *leg.seconds;
        }
        analysis.legs.push_back(std::move(leg));
    }
    // Points of one segment are contiguous in reading order, so only the runs
    // need sorting out to count distinct segments.
    std::sort(segments.begin(), segments.end());
    analysis.segmentCount = std::unique(segments.begin(), segments.end()) - segments.begin();
    return analysis;
}

std::optional<double> TrackAnalysis::averageSpeed() const {
    if (timedSeconds > 0) {
        return timedDistance / timedSeconds * 3.6;
    }
    return std::nullopt;
}

std::optional<double> TrackAnalysis::maxSpeed() const {
    std::optional<double> fastest;
    for (const auto& leg : legs) {
        if (leg.speed && (!fastest || *leg.speed > *fastest)) {
            fastest = leg.speed;
        }
    }
    return fastest;
}

std::int64_t TrackAnalysis::validIntervals() const {
    return std::count_if(legs.begin(), legs.end(), [](const auto& leg) { return leg.speed; });
}

std::int64_t TrackAnalysis::invalidIntervals() const {
    return std::count_if(legs.begin(), legs.end(),
                         [](const auto& leg) { return leg.problem.has_value(); });
}

std::vector<TrackLeg> TrackAnalysis::suspicious(double threshold) const {
    std::vector<TrackLeg> result;
    for (const auto& leg : legs) {
        if (leg.speed.value_or(0) > threshold || leg.problem) {
            result.push_back(leg);
        }
    }
    return result;
}

} // namespace trackloom
