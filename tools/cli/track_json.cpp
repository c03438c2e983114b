#include "tools/cli/track_json.h"

#include "core/track/speed_scale.h"

namespace trackloom::cli {
namespace {

void writeSegments(JsonWriter& json, const GPXTrack& track) {
    json.key("segments").beginArray();
    for (const auto& segment : track.segments()) {
        json.beginObject().key("id").value(segment.id).key("name").value(segment.name);
        json.key("pointIDs").beginArray();
        for (const auto id : segment.pointIDs) {
            json.value(id);
        }
        json.endArray().endObject();
    }
    json.endArray();
}

void writeAirRoutes(JsonWriter& json, const GPXTrack& track) {
    json.key("airRoutePointIDs").beginArray();
    for (const auto id : track.airRoutePointIDs()) {
        json.value(id);
    }
    json.endArray();
    json.key("airRoutes").beginArray();
    for (const auto& route : track.airRoutes()) {
        json.beginObject()
            .key("id")
            .value(route.id)
            .key("name")
            .value(route.name)
            .key("distance")
            .value(route.distance)
            .endObject();
    }
    json.endArray();
}

void writeAnalysis(JsonWriter& json, const TrackAnalysis& analysis) {
    json.key("analysis")
        .beginObject()
        .key("distance")
        .value(analysis.distance)
        .key("timedDistance")
        .value(analysis.timedDistance)
        .key("timedSeconds")
        .value(analysis.timedSeconds)
        .key("missingTimes")
        .value(analysis.missingTimes)
        .key("invalidTimes")
        .value(analysis.invalidTimes)
        .key("segmentCount")
        .value(analysis.segmentCount)
        .key("validIntervals")
        .value(analysis.validIntervals())
        .key("invalidIntervals")
        .value(analysis.invalidIntervals())
        .key("averageSpeed")
        .value(analysis.averageSpeed())
        .key("maxSpeed")
        .value(analysis.maxSpeed())
        .key("speedScaleTop")
        .value(SpeedScale::of(analysis).top)
        .endObject();
}

void writeLegs(JsonWriter& json, const TrackAnalysis& analysis) {
    json.key("legs").beginArray();
    for (const auto& leg : analysis.legs) {
        json.beginObject()
            .key("id")
            .value(leg.id)
            .key("segment")
            .value(leg.segment)
            .key("from")
            .value(leg.from)
            .key("to")
            .value(leg.to)
            .key("distance")
            .value(leg.distance)
            .key("cumulativeDistance")
            .value(leg.cumulativeDistance)
            .key("seconds")
            .value(leg.seconds)
            .key("speed")
            .value(leg.speed)
            .key("problem")
            .value(leg.problem)
            .endObject();
    }
    json.endArray();
}

void writePoints(JsonWriter& json, const GPXTrack& track) {
    json.key("pointList").beginArray();
    for (const auto& point : track.points()) {
        json.beginObject()
            .key("id")
            .value(point.id)
            .key("segment")
            .value(point.segment)
            .key("latitude")
            .value(point.latitude)
            .key("longitude")
            .value(point.longitude);
        json.key("time");
        writeTime(json, point.time);
        json.key("invalidTime").value(point.invalidTime).endObject();
    }
    json.endArray();
}

} // namespace

void writeTime(JsonWriter& json, const std::optional<Instant>& time) {
    if (time) {
        json.value(GPXTrack::formatTime(*time));
    } else {
        json.null();
    }
}

void writeTrack(JsonWriter& json, const GPXTrack& track, TrackJsonOptions options) {
    json.beginObject().key("name").value(track.name()).key("namespace").value(track.namespaceURI());
    json.key("start");
    writeTime(json, track.start());
    json.key("end");
    writeTime(json, track.end());
    json.key("points").value(track.points().size());
    json.key("auxiliaryInvalidTimes").value(track.auxiliaryInvalidTimes());
    writeSegments(json, track);
    writeAirRoutes(json, track);
    writeAnalysis(json, track.analysis());
    if (options.legs) {
        writeLegs(json, track.analysis());
    }
    if (options.points) {
        writePoints(json, track);
    }
    json.endObject();
}

} // namespace trackloom::cli
