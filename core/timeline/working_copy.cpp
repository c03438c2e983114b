#include "core/timeline/working_copy.h"

#include "core/base/cancellation.h"
#include "core/base/gpx_error.h"
#include "core/base/json_writer.h"
#include "core/timeline/json_reading.h"

#include <cmath>

namespace trackloom {
namespace {

using json::Value;

bool hasOnlyFiniteNumbers(const TimelinePoint& point) {
    const auto finite = [](double number) { return std::isfinite(number); };
    return finite(point.latitude) && finite(point.longitude) && point.time.isFinite() &&
           (!point.endTime || point.endTime->isFinite()) && (!point.order || finite(*point.order));
}

void encodePoint(JsonWriter& json, const TimelinePoint& point) {
    json.beginObject();
    json.key("id").value(point.id);
    json.key("segment").value(point.segment);
    json.key("kind").value(rawValue(point.kind));
    json.key("latitude").value(point.latitude);
    json.key("longitude").value(point.longitude);
    json.key("time").value(point.time.secondsSinceReference());
    if (point.endTime) {
        json.key("endTime").value(point.endTime->secondsSinceReference());
    }
    json.key("label").value(point.label);
    if (point.order) {
        json.key("order").value(*point.order);
    }
    json.endObject();
}

/// One point; every key but endTime and order is required.
TimelinePoint decodePoint(Value& value) {
    TimelinePoint point;
    enum Required { id, segment, kind, latitude, longitude, time, label, requiredCount };
    bool found[requiredCount] = {};
    json::forEachField(value, [&](std::string_view name, Value& member) {
        if (name == "id") {
            point.id = json::readInteger(member);
            found[id] = true;
        } else if (name == "segment") {
            point.segment = json::readInteger(member);
            found[segment] = true;
        } else if (name == "kind") {
            const auto parsed = timelinePointKind(json::readString(member));
            if (!parsed) {
                throw json::ValueMismatch{};
            }
            point.kind = *parsed;
            found[kind] = true;
        } else if (name == "latitude") {
            point.latitude = json::readDouble(member);
            found[latitude] = true;
        } else if (name == "longitude") {
            point.longitude = json::readDouble(member);
            found[longitude] = true;
        } else if (name == "time") {
            point.time = Instant(json::readDouble(member));
            found[time] = true;
        } else if (name == "endTime") {
            const auto seconds = json::readOptionalDouble(member);
            point.endTime = seconds ? std::optional(Instant(*seconds)) : std::nullopt;
        } else if (name == "label") {
            point.label = json::readString(member);
            found[label] = true;
        } else if (name == "order") {
            point.order = json::readOptionalDouble(member);
        }
    });
    for (const bool present : found) {
        if (!present) {
            throw json::ValueMismatch{};
        }
    }
    return point;
}

WorkingCopy decodeCopy(simdjson::ondemand::document& document, const std::stop_token& token) {
    WorkingCopy copy;
    bool hasFormat = false;
    bool hasVersion = false;
    bool hasPoints = false;
    json::forEachField(document, [&](std::string_view name, Value& member) {
        if (name == "format") {
            copy.format = json::readString(member);
            hasFormat = true;
        } else if (name == "version") {
            copy.version = json::readInteger(member);
            hasVersion = true;
        } else if (name == "points") {
            copy.points.clear();
            json::forEachElement(member, [&](Value& element) {
                if (copy.points.size() % 1024 == 0) {
                    throwIfCancelled(token);
                }
                copy.points.push_back(decodePoint(element));
            });
            hasPoints = true;
        }
    });
    if (!hasFormat || !hasVersion || !hasPoints) {
        throw json::ValueMismatch{};
    }
    return copy;
}

} // namespace

std::string encodeWorkingCopy(const std::vector<TimelinePoint>& points) {
    JsonWriter json;
    json.beginObject();
    json.key("format").value(workingCopyFormat);
    json.key("version").value(workingCopyVersion);
    json.key("points").beginArray();
    for (const auto& point : points) {
        if (!hasOnlyFiniteNumbers(point)) {
            throw GPXError("Ungültige Standortpunkte oder Zeitangaben.");
        }
        encodePoint(json, point);
    }
    json.endArray().endObject();
    return json.takeText();
}

std::optional<WorkingCopy> decodeWorkingCopy(json::OnDemandDocument& input,
                                             const std::stop_token& token) {
    auto copy = input.read([&](simdjson::ondemand::document& document) {
        auto decoded = decodeCopy(document, token);
        return json::isAtEnd(document) ? std::optional(std::move(decoded)) : std::nullopt;
    });
    return copy ? std::move(*copy) : std::nullopt;
}

} // namespace trackloom
