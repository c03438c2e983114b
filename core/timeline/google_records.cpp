#include "core/timeline/google_records.h"

#include "core/timeline/json_reading.h"
#include "core/track/number_parsing.h"

namespace trackloom {
namespace {

using json::Value;
using simdjson::ondemand::json_type;

/// Swift-style optional members: a missing key and null both give absent.
template <typename T, typename Decode>
void decodeIfPresent(std::optional<T>& target, Value& value, Decode&& decode) {
    if (json::isNull(value)) {
        target.reset();
    } else {
        target = decode(value);
    }
}

FlexibleNumber decodeFlexibleNumber(Value& value) {
    try {
        switch (json::typeOf(value)) {
        case json_type::number:
            return {json::readDouble(value)};
        case json_type::string:
            return {parseFiniteNumber(json::readString(value))};
        default:
            return {};
        }
    } catch (const json::ValueMismatch&) {
        return {};
    }
}

GooglePathPoint decodePathPoint(Value& value) {
    GooglePathPoint point;
    json::forEachField(value, [&](std::string_view name, Value& member) {
        if (name == "point") {
            point.point = json::readOptionalString(member);
        } else if (name == "latLng") {
            point.latLng = json::readOptionalString(member);
        } else if (name == "time") {
            point.time = json::readOptionalString(member);
        } else if (name == "durationMinutesOffsetFromStartTime") {
            decodeIfPresent(point.durationMinutesOffsetFromStartTime, member, decodeFlexibleNumber);
        }
    });
    return point;
}

/// The path's points, in `storage` (emptied first): reusing one buffer for all
/// records spares growing a new list for each path.
std::vector<GooglePathPoint> decodePath(Value& value, std::vector<GooglePathPoint>& storage) {
    storage.clear();
    json::forEachElement(value,
                         [&](Value& element) { storage.push_back(decodePathPoint(element)); });
    return std::move(storage);
}

/// A location object's `latLng`; absent when the object does not have one as text.
std::optional<GoogleLocation> decodeLocationObject(Value& value) {
    if (json::typeOf(value) != json_type::object) {
        return std::nullopt;
    }
    std::optional<GoogleLocation> location;
    json::forEachField(value, [&](std::string_view name, Value& member) {
        if (name == "latLng") {
            location.reset();
            if (json::typeOf(member) == json_type::string) {
                location = GoogleLocation{json::readString(member)};
            }
        }
    });
    return location;
}

GooglePlace decodePlace(Value& value) {
    GooglePlace place;
    json::forEachField(value, [&](std::string_view name, Value& member) {
        if (name == "placeLocation") {
            place.placeLocation.reset();
            place.placeLocationObject.reset();
            if (json::typeOf(member) == json_type::string) {
                place.placeLocation = json::readString(member);
            } else {
                place.placeLocationObject = decodeLocationObject(member);
            }
        } else if (name == "semanticType") {
            place.semanticType.reset();
            if (json::typeOf(member) == json_type::string) {
                place.semanticType = json::readString(member);
            }
        }
    });
    return place;
}

GoogleVisit decodeVisit(Value& value) {
    GoogleVisit visit;
    json::forEachField(value, [&](std::string_view name, Value& member) {
        if (name == "topCandidate") {
            decodeIfPresent(visit.topCandidate, member, decodePlace);
        }
    });
    return visit;
}

GoogleEndpoint decodeEndpoint(Value& value) {
    if (json::typeOf(value) == json_type::string) {
        return {json::readString(value)};
    }
    GoogleEndpoint endpoint;
    json::forEachField(value, [&](std::string_view name, Value& member) {
        if (name == "latLng") {
            endpoint.coordinate = json::readOptionalString(member);
        }
    });
    return endpoint;
}

GoogleActivityType decodeActivityType(Value& value) {
    GoogleActivityType type;
    json::forEachField(value, [&](std::string_view name, Value& member) {
        if (name == "type") {
            type.type = json::readOptionalString(member);
        }
    });
    return type;
}

GoogleActivity decodeActivity(Value& value) {
    GoogleActivity activity;
    json::forEachField(value, [&](std::string_view name, Value& member) {
        if (name == "start") {
            decodeIfPresent(activity.start, member, decodeEndpoint);
        } else if (name == "end") {
            decodeIfPresent(activity.end, member, decodeEndpoint);
        } else if (name == "topCandidate") {
            decodeIfPresent(activity.topCandidate, member, decodeActivityType);
        }
    });
    return activity;
}

GoogleRecord decodeRecord(Value& value, std::vector<GooglePathPoint>& pathStorage) {
    GoogleRecord record;
    json::forEachField(value, [&](std::string_view name, Value& member) {
        if (name == "startTime") {
            record.startTime = json::readOptionalString(member);
        } else if (name == "endTime") {
            record.endTime = json::readOptionalString(member);
        } else if (name == "timelinePath") {
            decodeIfPresent(record.timelinePath, member,
                            [&](Value& path) { return decodePath(path, pathStorage); });
        } else if (name == "visit") {
            decodeIfPresent(record.visit, member, decodeVisit);
        } else if (name == "activity") {
            decodeIfPresent(record.activity, member, decodeActivity);
        }
    });
    return record;
}

/// Decodes one entry; an entry that is not a record leaves `record` absent.
RecordWrapper decodeWrapper(Value& value, std::vector<GooglePathPoint>& pathStorage) {
    try {
        return {decodeRecord(value, pathStorage)};
    } catch (const json::ValueMismatch&) {
        return {};
    }
}

template <typename Container>
void decodeEntries(Container& list, const std::function<void(const RecordWrapper&)>& visit) {
    std::vector<GooglePathPoint> pathStorage;
    json::forEachElement(list, [&](Value& entry) {
        const char* position = nullptr;
        const bool located = entry.current_location().get(position) == simdjson::SUCCESS;
        auto wrapper = decodeWrapper(entry, pathStorage);
        wrapper.position = located ? position : nullptr;
        visit(wrapper);
        if (wrapper.record && wrapper.record->timelinePath) {
            pathStorage = std::move(*wrapper.record->timelinePath);
        }
    });
}

/// Reads the Android form's entries; returns whether the object has a member
/// "format".
bool decodeEnvelope(simdjson::ondemand::document& document,
                    const std::function<void(const RecordWrapper&)>& visit) {
    bool hasSegments = false;
    bool hasFormat = false;
    json::forEachField(document, [&](std::string_view name, Value& member) {
        if (name == "semanticSegments") {
            decodeEntries(member, visit);
            hasSegments = true;
        } else if (name == "format") {
            hasFormat = true;
        }
    });
    if (!hasSegments) {
        throw json::ValueMismatch{};
    }
    return hasFormat;
}

} // namespace

GoogleExportDecoding decodeGoogleExport(json::OnDemandDocument& input,
                                        const std::function<void(const RecordWrapper&)>& visit) {
    const auto decoded = input.read([&](simdjson::ondemand::document& document) {
        simdjson::ondemand::json_type type{};
        json::check(document.type().get(type));
        bool hasFormat = false;
        if (type == json_type::array) {
            decodeEntries(document, visit);
        } else {
            hasFormat = decodeEnvelope(document, visit);
        }
        return GoogleExportDecoding{json::isAtEnd(document), hasFormat};
    });
    return decoded.value_or(GoogleExportDecoding{});
}

} // namespace trackloom
