#include "core/timeline/working_copy.h"
#include "timeline_test_support.h"

#include <limits>

namespace trackloom {
namespace {

using testing::at;
using testing::noPoints;
using testing::pathPoint;
using testing::refusal;
using testing::unsupportedExport;
using testing::visitPoint;

std::string copyWith(const std::string& version, const std::string& points) {
    return R"({"format": "TrackloomTimeline", "version": )" + version + R"(, "points": )" + points +
           "}";
}

const std::string onePoint =
    R"([{"id": 9, "segment": 3, "kind": "path", "latitude": 50, "longitude": 7, "time": 0, "label": ""}])";

TEST(WorkingCopy, WritesKeysInDeclaredOrderAndOptionalOnesOnlyWhenPresent) {
    auto visit =
        visitPoint(4, 2, "2001-01-01T00:00:10Z", "2001-01-01T00:01:00.25Z", "Zu \"Hause\"");
    visit.order = 1.5;
    const auto text =
        TimelineDocument::workingCopy({pathPoint(7, 1, "2001-01-01T00:00:00Z"), visit});
    EXPECT_EQ(
        text,
        R"({"format":"TrackloomTimeline","version":2,"points":[)"
        R"({"id":7,"segment":1,"kind":"path","latitude":50,"longitude":7,"time":0,"label":""},)"
        R"({"id":4,"segment":2,"kind":"visit","latitude":50,"longitude":7,"time":10,)"
        R"("endTime":60.25,"label":"Zu \"Hause\"","order":1.5}]})");
}

TEST(WorkingCopy, ReadsBackWithIDsRenumberedAndEveryOrderPresent) {
    auto first = pathPoint(40, 3, "2024-05-01T10:00:00.123456Z", 50.123456789, -7.987654321);
    first.label = "Weg\nnach Köln";
    auto second = visitPoint(12, 5, "2024-05-01T09:00:00Z", "2024-05-02T09:00:00Z");
    second.order = -2.5;
    const auto document = TimelineDocument::read(TimelineDocument::workingCopy({first, second}));

    first.id = 0;
    first.order = 0.0;
    second.id = 1;
    EXPECT_EQ(document.points(), (std::vector<TimelinePoint>{first, second}));
    EXPECT_EQ(document.report(), TimelineImportReport{});
}

TEST(WorkingCopy, IsRecognisedByContentAfterLeadingBlanks) {
    const auto document = TimelineDocument::read("\n\r\n \t" + copyWith("1", onePoint));
    ASSERT_EQ(document.points().size(), 1u);
    EXPECT_EQ(document.points()[0].segment, 3);
    EXPECT_EQ(document.points()[0].time, Instant(0));
    EXPECT_EQ(TimelineDocument::read(copyWith("2.0", onePoint)).points().size(), 1u);
}

TEST(WorkingCopy, UnknownVersionsAreRefused) {
    for (const auto* version : {"0", "3", "-1", "1000"}) {
        EXPECT_EQ(refusal([&] { TimelineDocument::read(copyWith(version, onePoint)); }),
                  "Diese Arbeitskopie benötigt eine neuere App-Version.")
            << version;
    }
}

TEST(WorkingCopy, EmptyOrInvalidPointListsAreRefused) {
    EXPECT_EQ(refusal([] { TimelineDocument::read(copyWith("2", "[]")); }), noPoints);
    const auto outOfRange =
        R"([{"id": 0, "segment": 0, "kind": "visit", "latitude": 91, "longitude": 7, "time": 0, "label": ""}])";
    EXPECT_EQ(refusal([&] { TimelineDocument::read(copyWith("2", outOfRange)); }),
              "Ungültige Standortpunkte oder Zeitangaben.");
    auto endsEarly = visitPoint(0, 0, "2024-05-01T10:00:00Z", "2024-05-01T11:00:00Z");
    endsEarly.endTime = at("2024-05-01T09:00:00Z");
    EXPECT_EQ(refusal([&] { TimelineDocument::read(TimelineDocument::workingCopy({endsEarly})); }),
              "Ungültige Standortpunkte oder Zeitangaben.");
}

TEST(WorkingCopy, AnythingElseInBracesIsReadAsAGoogleExport) {
    const std::string brokenPoints[] = {
        R"([{"id": 0, "segment": 0, "kind": "path", "latitude": 50, "longitude": 7, "time": 0}])",
        R"([{"id": 0, "segment": 0, "kind": "walk", "latitude": 50, "longitude": 7, "time": 0, "label": ""}])",
        R"([{"id": 0.5, "segment": 0, "kind": "path", "latitude": 50, "longitude": 7, "time": 0, "label": ""}])",
        R"([{"id": 0, "segment": 0, "kind": "path", "latitude": "50", "longitude": 7, "time": 0, "label": ""}])",
        R"([{"id": 0, "segment": 0, "kind": "path", "latitude": 50, "longitude": 7, "time": null, "label": ""}])",
    };
    // A point that does not decode makes the file no working copy, whatever its version.
    for (const auto& points : brokenPoints) {
        EXPECT_EQ(refusal([&] { TimelineDocument::read(copyWith("3", points)); }),
                  unsupportedExport)
            << points;
    }
    EXPECT_EQ(refusal([] { TimelineDocument::read(R"({"version": 2, "points": []})"); }),
              unsupportedExport);
    const auto foreign = TimelineDocument::read(
        R"({"format": "Other", "version": 2, "points": [], "semanticSegments": [
            {"timelinePath": [{"point": "1,2", "time": "2024-05-01T10:00:00Z"}]}]})");
    EXPECT_EQ(foreign.report().pathPoints, 1);
}

TEST(WorkingCopy, TakesPrecedenceOverAnExportInTheSameObject) {
    const auto document = TimelineDocument::read(
        R"({"semanticSegments": [{"timelinePath": [{"point": "1,2", "time": "2024-05-01T10:00:00Z"}]}],
            "points": )" +
        onePoint + R"(, "version": 1, "format": "TrackloomTimeline"})");
    EXPECT_EQ(document.report(), TimelineImportReport{});
    EXPECT_EQ(document.points()[0].latitude, 50);
}

TEST(WorkingCopy, OptionalMembersMayBeNullOrMissing) {
    const auto document = TimelineDocument::read(
        copyWith("2", R"([{"id": 0, "segment": 0, "kind": "visit", "latitude": 50, "longitude": 7,
                  "time": 5, "endTime": null, "order": null, "label": "", "unknown": [1]}])"));
    EXPECT_FALSE(document.points()[0].endTime);
    EXPECT_EQ(document.points()[0].order, 0.0);
}

TEST(WorkingCopy, NonFiniteNumbersCannotBeWritten) {
    auto point = pathPoint(0, 0, "2024-05-01T10:00:00Z");
    point.order = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(refusal([&] { TimelineDocument::workingCopy({point}); }),
              "Ungültige Standortpunkte oder Zeitangaben.");
}

} // namespace
} // namespace trackloom
