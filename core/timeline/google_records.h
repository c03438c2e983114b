#pragma once

// The records of a Google Maps timeline export as the phone writes them, before
// any interpretation. The iOS form is a list of records; the Android form an
// object whose `semanticSegments` holds them. Decoding is lenient where phones
// differ (numbers as strings, locations as text or objects) and strict where a
// record would otherwise be misread: a member of the wrong type makes its whole
// record fail, which the import counts instead of stopping.
//
// Texts are views into the bytes being read and live only as long as they do.

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

namespace trackloom {

/// A number the exporter may have written as a JSON number or as a string.
struct FlexibleNumber {
    /// Absent when the value was neither a number nor a string holding one.
    std::optional<double> value;
};

struct GooglePathPoint {
    std::optional<std::string_view> point;
    std::optional<std::string_view> latLng;
    std::optional<std::string_view> time;
    std::optional<FlexibleNumber> durationMinutesOffsetFromStartTime;
};

struct GoogleLocation {
    std::string_view latLng;
};

struct GooglePlace {
    /// The location as text ("geo:50.1,7.2" or "50.1°, 7.2°").
    std::optional<std::string_view> placeLocation;
    /// The location as an object with a `latLng` text, when it was not text.
    std::optional<GoogleLocation> placeLocationObject;
    std::optional<std::string_view> semanticType;
};

struct GoogleVisit {
    std::optional<GooglePlace> topCandidate;
};

/// One end of a coarse movement: a coordinate text, written directly (iOS)
/// or as the `latLng` of an object (Android).
struct GoogleEndpoint {
    std::optional<std::string_view> coordinate;
};

struct GoogleActivityType {
    std::optional<std::string_view> type;
};

struct GoogleActivity {
    std::optional<GoogleEndpoint> start;
    std::optional<GoogleEndpoint> end;
    std::optional<GoogleActivityType> topCandidate;
};

struct GoogleRecord {
    std::optional<std::string_view> startTime;
    std::optional<std::string_view> endTime;
    std::optional<std::vector<GooglePathPoint>> timelinePath;
    std::optional<GoogleVisit> visit;
    std::optional<GoogleActivity> activity;
};

/// One entry of the export's list; `record` is absent when the entry did not
/// decode as a record.
struct RecordWrapper {
    std::optional<GoogleRecord> record;
    /// Where the entry begins in the export's bytes, when the parser tells.
    const char* position = nullptr;
};

namespace json {
class OnDemandDocument;
}

/// How far an export decoded.
struct GoogleExportDecoding {
    /// The data is one of the two forms, read to its end.
    bool complete = false;
    /// The object at the top has a member "format", the marker of a working
    /// copy; only such data can also be one.
    bool hasFormatMember = false;
};

/// Decodes the export in `document` and calls `visit` with each entry of its
/// list, in order. A list at the top is read as the iOS form, anything else as
/// the Android form. Stops early, possibly after some entries, when the data is
/// neither form; exceptions from `visit` pass through.
GoogleExportDecoding decodeGoogleExport(json::OnDemandDocument& document,
                                        const std::function<void(const RecordWrapper&)>& visit);

} // namespace trackloom
