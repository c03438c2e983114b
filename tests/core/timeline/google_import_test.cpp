#include "core/base/cancellation.h"
#include "core/timeline/google_import.h"
#include "timeline_test_support.h"

namespace trackloom {
namespace {

using testing::at;
using testing::noPoints;
using testing::refusal;
using testing::unsupportedExport;

const std::string ignored = R"({"startTime": "2024-05-01T08:00:00Z"})";

std::string pathElement(const std::string& coordinate, const std::string& time) {
    return R"({"point": ")" + coordinate + R"(", "time": ")" + time + R"("})";
}

TEST(GoogleImport, DroppedPathPointStartsANewSegment) {
    // The path is the second entry, so its segments start at 1 × 10000.
    const auto document =
        TimelineDocument::read("[" + ignored + R"(,
        {"startTime": "2024-05-01T10:00:00Z", "timelinePath": [)" +
                               pathElement("50.1, 7.1", "2024-05-01T10:01:00Z") + "," +
                               pathElement("50.2, 7.2", "2024-05-01T10:02:00Z") +
                               R"(, {"time": "2024-05-01T10:03:00Z"},)" +
                               pathElement("50.4, 7.4", "2024-05-01T10:04:00Z") + "," +
                               pathElement("50.5, 7.5", "2024-05-01T10:05:00Z") + "]}]");
    const auto& points = document.points();
    ASSERT_EQ(points.size(), 4u);
    EXPECT_EQ(points[0].segment, 10000);
    EXPECT_EQ(points[1].segment, 10000);
    EXPECT_EQ(points[2].segment, 10001);
    EXPECT_EQ(points[3].segment, 10001);
    EXPECT_EQ(points[2].latitude, 50.4);
    EXPECT_EQ(points[3].id, 3);
    EXPECT_EQ(points[3].order, 3.0);
    EXPECT_EQ(document.report(), (TimelineImportReport{2, 1, 1, 4, 0, 0}));
}

TEST(GoogleImport, PathPointTimeFallsBackToMinuteOffsetFromRecordStart) {
    const auto read = [](const std::string& element) {
        return TimelineDocument::read(
            R"([{"startTime": "2024-05-01T10:00:00+02:00", "timelinePath": [)" + element +
            R"(, {"point": "1,1", "time": "2024-05-01T12:00:00Z"}]}])");
    };
    const auto fromString =
        read(R"({"point": "geo:50,7", "durationMinutesOffsetFromStartTime": "12"})");
    EXPECT_EQ(fromString.points()[0].time, at("2024-05-01T08:12:00Z"));
    const auto fromNumber =
        read(R"({"latLng": "50°, 7°", "durationMinutesOffsetFromStartTime": -1.5})");
    EXPECT_EQ(fromNumber.points()[0].time, at("2024-05-01T07:58:30Z"));
    // An unreadable time is no obstacle when there is an offset.
    const auto badTime =
        read(R"({"point": "50,7", "time": "10:00", "durationMinutesOffsetFromStartTime": 1})");
    EXPECT_EQ(badTime.points()[0].time, at("2024-05-01T08:01:00Z"));
    // The point's own time wins, and it is trimmed first.
    const auto ownTime = read(
        R"({"point": "50,7", "time": " 2024-05-01T09:00:00.5Z\n", "durationMinutesOffsetFromStartTime": 1})");
    EXPECT_EQ(ownTime.points()[0].time, at("2024-05-01T09:00:00.5Z"));

    for (const auto* offset : {R"("525960")", "-525960", R"("abc")", "true", "null"}) {
        const auto rejected =
            read(std::string(R"({"point": "50,7", "durationMinutesOffsetFromStartTime": )") +
                 offset + "}");
        EXPECT_EQ(rejected.points().size(), 1u) << offset;
        EXPECT_EQ(rejected.report().invalidValues, 1) << offset;
    }
}

TEST(GoogleImport, RecordKindFollowsPrecedence) {
    const auto document = TimelineDocument::read(R"([
        {"startTime": "2024-05-01T10:00:00Z", "endTime": "2024-05-01T11:00:00Z",
         "timelinePath": [], "visit": {"topCandidate": {"placeLocation": "geo:50,7"}}},
        {"startTime": "2024-05-01T10:00:00Z", "endTime": "2024-05-01T11:00:00Z",
         "visit": {"topCandidate": {"placeLocation": "geo:50,7"}},
         "activity": {"start": "geo:1,1", "end": "geo:2,2"}},
        {"startTime": "2024-05-01T10:00:00Z", "timelinePath": null, "visit": null,
         "timelineMemory": {"destinations": []}}
    ])");
    ASSERT_EQ(document.points().size(), 1u);
    EXPECT_EQ(document.points()[0].kind, TimelinePointKind::visit);
    EXPECT_EQ(document.points()[0].segment, 10000);
    EXPECT_EQ(document.report(), (TimelineImportReport{3, 1, 0, 0, 1, 0}));
}

TEST(GoogleImport, VisitsNeedAnOrderedIntervalAPlaceAndACoordinate) {
    const auto visit = [](const std::string& start, const std::string& end,
                          const std::string& place) {
        return R"({"startTime": ")" + start + R"(", "endTime": ")" + end +
               R"(", "visit": {"topCandidate": )" + place + "}}";
    };
    const std::string text =
        "[" +
        visit("2024-05-01T10:00:00Z", "2024-05-01T09:00:00Z", R"({"placeLocation": "geo:1,1"})") +
        "," +
        visit("2024-05-01T10:00:00Z", "2024-05-01T10:00:00Z", R"({"placeLocation": "geo:1,1"})") +
        "," +
        visit("2024-05-01T10:00:00Z", "2024-05-01T12:00:00Z",
              R"({"placeLocation": {"latLng": "2°, 2°"}, "semanticType": "Home"})") +
        "," + visit("2024-05-01T10:00:00Z", "2024-05-01T12:00:00Z", R"({"placeLocation": 5})") +
        "," +
        visit("2024-05-01T10:00:00Z", "2024-05-01T12:00:00Z", R"({"placeLocation": "geo:91,1"})") +
        R"(, {"startTime": "2024-05-01T10:00:00Z", "endTime": "2024-05-01T12:00:00Z", "visit": {}}])";
    const auto document = TimelineDocument::read(text);
    ASSERT_EQ(document.points().size(), 2u);
    EXPECT_EQ(document.points()[0].label, "Aufenthalt");
    EXPECT_EQ(document.points()[0].endTime, document.points()[0].time);
    EXPECT_EQ(document.points()[1].label, "Home");
    EXPECT_EQ(document.points()[1].endTime, at("2024-05-01T12:00:00Z"));
    EXPECT_EQ(document.points()[1].latitude, 2);
    EXPECT_EQ(document.report(), (TimelineImportReport{6, 0, 4, 0, 2, 0}));
}

TEST(GoogleImport, ActivityEndpointsAreReadIndependently) {
    const auto document = TimelineDocument::read(R"({"semanticSegments": [
        {"startTime": "2024-05-01T10:00:00Z", "endTime": "2024-05-01T11:00:00Z",
         "activity": {"start": {"latLng": "50.1°, 7.1°"}, "end": {"latLng": "50.2°, 7.2°"},
                      "topCandidate": {"type": "IN_BUS", "probability": 0.9}}},
        {"startTime": "2024-05-01T12:00:00Z", "endTime": "2024-05-01T13:00:00Z",
         "activity": {"start": "geo:50.3,7.3"}},
        {"startTime": "nonsense", "endTime": "2024-05-01T15:00:00Z",
         "activity": {"start": "geo:50.4,7.4", "end": "geo:50.5,7.5", "topCandidate": {}}}
    ]})");
    const auto& points = document.points();
    ASSERT_EQ(points.size(), 4u);
    EXPECT_EQ(points[0].label, "IN_BUS");
    EXPECT_EQ(points[1].time, at("2024-05-01T11:00:00Z"));
    EXPECT_EQ(points[1].longitude, 7.2);
    EXPECT_EQ(points[2].label, "Fahrt");
    EXPECT_EQ(points[2].segment, 10000);
    EXPECT_EQ(points[3].label, "Fahrt");
    EXPECT_EQ(points[3].latitude, 50.5);
    EXPECT_EQ(document.report(), (TimelineImportReport{3, 0, 2, 0, 0, 4}));
}

TEST(GoogleImport, AMemberOfTheWrongTypeCostsOnlyItsRecord) {
    const auto document = TimelineDocument::read(R"([
        {"startTime": 17, "timelinePath": [{"point": "1,1", "time": "2024-05-01T10:00:00Z"}]},
        {"timelinePath": [{"point": ["1", "1"], "time": "2024-05-01T10:00:00Z"}]},
        {"visit": {"topCandidate": "home"}, "startTime": "2024-05-01T10:00:00Z"},
        {"activity": {"start": 5}},
        42, "text", null, [],
        {"startT\u0069me": "2024-05-01T10:00:00Z",
         "timelinePath": [{"point": "2,2", "durationMinutesOffsetFromStartTime": {"value": 1}},
                          {"point": "3,3", "time": "2024-05-01T11:00:00Z", "extra": [1, {"a": null}]}]}
    ])");
    ASSERT_EQ(document.points().size(), 1u);
    EXPECT_EQ(document.points()[0].latitude, 3);
    EXPECT_EQ(document.points()[0].segment, 80001);
    EXPECT_EQ(document.report(), (TimelineImportReport{9, 0, 9, 1, 0, 0}));
}

TEST(GoogleImport, RefusesWhatIsNotAPhoneTimeline) {
    for (const std::string text :
         {"", " \n\t", "{}", R"({"semanticSegments": null})", R"({"semanticSegments": {}})",
          R"({"timelineObjects": []})", "\xef\xbb\xbf[]", "[] []", "[1, 2", "[1 2]", "7",
          R"("text")", "[{\"startTime\": \"2024-05-01T10:00:00Z\"}] x",
          R"({"semanticSegments": [{}, )",
          R"({"format": "TrackloomTimeline", "version": 2, "points": [)"}) {
        EXPECT_EQ(refusal([&] { TimelineDocument::read(text); }), unsupportedExport) << text;
    }
    EXPECT_EQ(refusal([] { TimelineDocument::read("[]"); }), noPoints);
    EXPECT_EQ(
        refusal([] { TimelineDocument::read(R"({"semanticSegments": [{}, {"visit": {}}]})"); }),
        noPoints);
}

TEST(GoogleImport, SizeLimitIsCheckedBeforeParsing) {
    const auto blankList = [](std::size_t size) {
        std::string text(size, ' ');
        text.front() = '[';
        text.back() = ']';
        return text;
    };
    EXPECT_EQ(refusal([&] { TimelineDocument::read(blankList(maximumTimelineFileSize)); }),
              noPoints);
    EXPECT_EQ(refusal([&] { TimelineDocument::read(blankList(maximumTimelineFileSize + 1)); }),
              "Der Standortverlauf ist größer als 250 MB.");
}

TEST(GoogleImport, StopsWhenCancelled) {
    std::stop_source source;
    source.request_stop();
    EXPECT_THROW(TimelineDocument::read(R"([{"timelinePath": []}])", source.get_token()),
                 CancellationError);
}

TEST(CoordinateText, AcceptsTheSpellingsOfBothPhones) {
    for (const auto* text : {"50.1°, 7.2°", "geo:50.1,7.2", "50.1 , 7.2",
                             "\t50.1,\xc2\xa0"
                             "7.2",
                             "geo:50.1,,7.2,", "+50.1,7.2"}) {
        const auto coordinate = parseCoordinate(text);
        ASSERT_TRUE(coordinate) << text;
        EXPECT_EQ(*coordinate, (Coordinate{50.1, 7.2})) << text;
    }
    EXPECT_EQ(parseCoordinate("-90,180"), (Coordinate{-90, 180}));
    for (const auto* text : {"50.1", "50.1,7.2,3", "50.1\n,7.2", "90.5,7", "50,-180.1", "nan,7",
                             "inf,7", "50.1;7.2", "", "geo:", "50.1 7.2, 8", "1e400,7", "50.1, "}) {
        EXPECT_FALSE(parseCoordinate(text)) << text;
    }
}

} // namespace
} // namespace trackloom
