#include "core/base/cancellation.h"
#include "core/places/place_analysis.h"
#include "core/track/track_time.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace trackloom {
namespace {

Instant at(std::string_view text) {
    return *parseTrackTime(text);
}

TimelinePoint point(std::int64_t id, TimelinePointKind kind, std::string_view time,
                    double latitude = 50.7, double longitude = 7.1) {
    TimelinePoint p;
    p.id = id;
    p.kind = kind;
    p.latitude = latitude;
    p.longitude = longitude;
    p.time = at(time);
    return p;
}

TimelinePoint visit(std::int64_t id, std::string_view from, std::string_view to) {
    auto p = point(id, TimelinePointKind::visit, from);
    p.endTime = at(to);
    return p;
}

const date::time_zone& berlin() {
    return *date::locate_zone("Europe/Berlin");
}

TEST(PlaceCoordinateText, AcceptsSignedDecimalDegreesWithLenientCommasAndBlanks) {
    const auto read = [](std::string_view text) { return PlaceAnalysis::coordinate(text); };
    EXPECT_EQ(read("50.7, 7.1"), (PlaceCoordinate{50.7, 7.1}));
    EXPECT_EQ(read(" \t50.7 ,\n7.1  "), (PlaceCoordinate{50.7, 7.1}));
    EXPECT_EQ(read("50.7,\xc2\xa0-7.1"), (PlaceCoordinate{50.7, -7.1}));
    EXPECT_EQ(read("50.7,,7.1"), (PlaceCoordinate{50.7, 7.1}));
    EXPECT_EQ(read(",50.7, 7.1,"), (PlaceCoordinate{50.7, 7.1}));
    EXPECT_EQ(read("90, 180"), (PlaceCoordinate{90, 180}));
    EXPECT_EQ(read("-90,-180"), (PlaceCoordinate{-90, -180}));
}

TEST(PlaceCoordinateText, RejectsAnythingButExactlyTwoNumbersInRange) {
    for (const auto* text :
         {"", "50.7", "50,7, 7,1", "50.7, 7.1, 3", "90.0001, 7", "-90.5, 7", "50, 180.5", "nan, 7",
          "50, inf", "50.7 7.1", "50.7N, 7.1E", ", ,", "50.7, ", "1e400, 7"}) {
        EXPECT_FALSE(PlaceAnalysis::coordinate(text)) << text;
    }
}

TEST(PlaceDistance, IsTheGreatCircleOnTheMeanEarth) {
    EXPECT_EQ(PlaceAnalysis::distance({50.7, 7.1}, {50.7, 7.1}), 0);
    EXPECT_NEAR(PlaceAnalysis::distance({0, 0}, {0, 180}), 20015114.4, 0.1);
    EXPECT_NEAR(PlaceAnalysis::distance({0, 0}, {1, 0}), 111195.08, 0.01);
}

TEST(PlaceSelect, KindFlagsDropVisitsAndActivitiesButNeverPaths) {
    const std::vector points{point(1, TimelinePointKind::activity, "2024-05-01T08:00:00Z"),
                             point(2, TimelinePointKind::path, "2024-05-01T09:00:00Z"),
                             visit(3, "2024-05-01T10:00:00Z", "2024-05-01T11:00:00Z")};
    const auto ids = [](const std::vector<TimelinePoint>& selected) {
        std::vector<std::int64_t> result;
        for (const auto& p : selected) {
            result.push_back(p.id);
        }
        return result;
    };
    EXPECT_EQ(ids(PlaceAnalysis::select(points, std::nullopt, true, true)),
              (std::vector<std::int64_t>{1, 2, 3}));
    EXPECT_EQ(ids(PlaceAnalysis::select(points, std::nullopt, false, false)),
              (std::vector<std::int64_t>{2}));
    EXPECT_EQ(ids(PlaceAnalysis::select(points, std::nullopt, true, false)),
              (std::vector<std::int64_t>{2, 3}));
}

TEST(PlaceSelect, IntervalIsHalfOpenAndClipsOverlappingVisits) {
    const DateInterval interval{at("2024-05-01T10:00:00Z"), at("2024-05-01T12:00:00Z")};
    const std::vector points{point(1, TimelinePointKind::path, "2024-05-01T10:00:00Z"),
                             point(2, TimelinePointKind::path, "2024-05-01T12:00:00Z"),
                             visit(3, "2024-05-01T09:00:00Z", "2024-05-01T11:00:00Z"),
                             visit(4, "2024-05-01T08:00:00Z", "2024-05-01T10:00:00Z"),
                             visit(5, "2024-05-01T11:30:00Z", "2024-05-01T13:00:00Z"),
                             point(6, TimelinePointKind::visit, "2024-05-01T09:59:00Z")};
    const auto selected = PlaceAnalysis::select(points, interval, true, true);
    ASSERT_EQ(selected.size(), 3u);
    EXPECT_EQ(selected[0], points[0]);
    EXPECT_EQ(selected[1].id, 3);
    EXPECT_EQ(selected[1].time, at("2024-05-01T10:00:00Z"));
    EXPECT_EQ(selected[1].endTime, at("2024-05-01T11:00:00Z"));
    EXPECT_EQ(selected[2].id, 5);
    EXPECT_EQ(selected[2].endTime, at("2024-05-01T12:00:00Z"));

    const DateInterval empty{interval.start, interval.start};
    EXPECT_TRUE(PlaceAnalysis::select(points, empty, true, true).empty());
}

TEST(PlaceDays, APointExactlyOnTheRadiusCounts) {
    // Due north, where rounding puts the point a hair outside the latitude band
    // that the radius implies; south; east.
    const std::pair<PlaceCoordinate, PlaceCoordinate> cases[] = {
        {{11.175543792335461, 7.1}, {11.207309000938965, 7.1}},
        {{50.7, 7.1}, {50.69775, 7.1}},
        {{50.7, 7.1}, {50.7, 7.1035}}};
    for (const auto& [centre, edge] : cases) {
        const std::vector points{point(1, TimelinePointKind::path, "2024-05-01T10:00:00Z",
                                       edge.latitude, edge.longitude)};
        const double radius = PlaceAnalysis::distance(centre, edge);
        EXPECT_EQ(PlaceAnalysis::days(centre, radius, points, berlin()).size(), 1u);
        EXPECT_TRUE(
            PlaceAnalysis::days(centre, std::nextafter(radius, 0.0), points, berlin()).empty());
    }
}

TEST(PlaceDays, CollectsEvidencePerDayNewestFirst) {
    const std::vector points{point(1, TimelinePointKind::path, "2024-05-01T12:00:00Z"),
                             point(2, TimelinePointKind::path, "2024-05-03T09:00:00Z"),
                             point(3, TimelinePointKind::path, "2024-05-01T06:00:00Z"),
                             point(4, TimelinePointKind::path, "2024-05-02T08:00:00Z", 51.7),
                             point(5, TimelinePointKind::path, "2024-05-02T08:00:00Z", NAN)};
    const auto days = PlaceAnalysis::days({50.7, 7.1}, 250, points, berlin());
    ASSERT_EQ(days.size(), 2u);
    EXPECT_EQ(days[0],
              (PlaceDay{at("2024-05-03T00:00:00+02:00"), points[1].time, points[1].time, 1}));
    EXPECT_EQ(days[1],
              (PlaceDay{at("2024-05-01T00:00:00+02:00"), points[2].time, points[0].time, 2}));
}

TEST(PlaceDays, AVisitCountsOnEveryDayItReachesButNotPastMidnight) {
    const std::vector overnight{visit(1, "2024-05-01T22:00:00+02:00", "2024-05-02T02:00:00+02:00")};
    const auto days = PlaceAnalysis::days({50.7, 7.1}, 250, overnight, berlin());
    const auto midnight = at("2024-05-02T00:00:00+02:00");
    ASSERT_EQ(days.size(), 2u);
    EXPECT_EQ(days[0], (PlaceDay{midnight, midnight, at("2024-05-02T02:00:00+02:00"), 1}));
    EXPECT_EQ(days[1], (PlaceDay{at("2024-05-01T00:00:00+02:00"), at("2024-05-01T22:00:00+02:00"),
                                 midnight, 1}));

    const std::vector toMidnight{
        visit(1, "2024-05-01T22:00:00+02:00", "2024-05-02T00:00:00+02:00")};
    ASSERT_EQ(PlaceAnalysis::days({50.7, 7.1}, 250, toMidnight, berlin()).size(), 1u);
}

TEST(PlaceDays, DaysFollowTheZoneIncludingShortDaylightSavingDays) {
    const std::vector points{point(1, TimelinePointKind::path, "2024-06-01T23:30:00Z")};
    EXPECT_EQ(PlaceAnalysis::days({50.7, 7.1}, 250, points, *date::locate_zone("UTC"))[0].day,
              at("2024-06-01T00:00:00Z"));
    EXPECT_EQ(PlaceAnalysis::days({50.7, 7.1}, 250, points, berlin())[0].day,
              at("2024-06-02T00:00:00+02:00"));

    // The clocks go forward in the night of 30 to 31 March, so 31 March has 23 hours.
    const std::vector stay{visit(1, "2024-03-30T12:00:00+01:00", "2024-04-01T12:00:00+02:00")};
    const auto days = PlaceAnalysis::days({50.7, 7.1}, 250, stay, berlin());
    ASSERT_EQ(days.size(), 3u);
    EXPECT_EQ(days[1].first, at("2024-03-31T00:00:00+01:00"));
    EXPECT_EQ(days[1].last, at("2024-04-01T00:00:00+02:00"));
}

TEST(PlaceDays, InvalidCentreOrRadiusGivesNoDays) {
    const std::vector points{point(1, TimelinePointKind::path, "2024-05-01T12:00:00Z")};
    const double inf = std::numeric_limits<double>::infinity();
    for (const double radius : {0.0, -5.0, inf, double(NAN)}) {
        EXPECT_TRUE(PlaceAnalysis::days({50.7, 7.1}, radius, points, berlin()).empty()) << radius;
    }
    EXPECT_TRUE(PlaceAnalysis::days({91, 7.1}, 250, points, berlin()).empty());
    EXPECT_TRUE(PlaceAnalysis::days({50.7, NAN}, 250, points, berlin()).empty());
}

TEST(PlaceAnalysisCancellation, StoppedSearchesThrow) {
    std::stop_source source;
    source.request_stop();
    const std::vector points{point(1, TimelinePointKind::path, "2024-05-01T12:00:00Z")};
    EXPECT_THROW(PlaceAnalysis::select(points, std::nullopt, true, true, source.get_token()),
                 CancellationError);
    EXPECT_THROW(PlaceAnalysis::days({50.7, 7.1}, 250, points, berlin(), source.get_token()),
                 CancellationError);
}

} // namespace
} // namespace trackloom
