#include "core/timeline/timeline_point.h"
#include "timeline_test_support.h"

#include <cmath>
#include <limits>

namespace trackloom {
namespace {

using testing::at;
using testing::pathPoint;
using testing::visitPoint;

TEST(TimelinePointValidity, CoordinateBoundsAreInclusive) {
    auto point = pathPoint(0, 0, "2024-05-01T10:00:00Z");
    for (const double latitude : {90.0, -90.0}) {
        for (const double longitude : {180.0, -180.0}) {
            point.latitude = latitude;
            point.longitude = longitude;
            EXPECT_TRUE(point.isValid()) << latitude << ", " << longitude;
        }
    }
    point.latitude = 90.000001;
    EXPECT_FALSE(point.isValid());
    point.latitude = 0;
    point.longitude = -180.000001;
    EXPECT_FALSE(point.isValid());
    point.longitude = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(point.isValid());
}

TEST(TimelinePointValidity, NonFiniteOrderSpoilsAnOtherwiseGoodPoint) {
    auto point = pathPoint(0, 0, "2024-05-01T10:00:00Z");
    point.order = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(point.isValid());
    point.order = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(point.isValid());
    point.order = -1e300;
    EXPECT_TRUE(point.isValid());
}

TEST(TimelinePointValidity, VisitMayEndWhenItStartsButNotBefore) {
    auto visit = visitPoint(0, 0, "2024-05-01T10:00:00Z", "2024-05-01T10:00:00Z");
    EXPECT_TRUE(visit.isValid());
    visit.endTime = at("2024-05-01T09:59:59Z");
    EXPECT_FALSE(visit.isValid());
    visit.endTime = Instant(std::numeric_limits<double>::infinity());
    EXPECT_FALSE(visit.isValid());
}

TEST(TimelinePointValidity, YearMustLieBetweenOneAndNineThousandNineHundredNinetyNine) {
    // Seconds since 1970 of mid-year dates, far from any zone's day boundary.
    const auto inYear = [](double unixSeconds) {
        auto point = pathPoint(0, 0, "2024-05-01T10:00:00Z");
        point.time = Instant::fromUnixSeconds(unixSeconds);
        return point.isValid();
    };
    EXPECT_FALSE(inYear(-62152000000.0)); // year 0
    EXPECT_TRUE(inYear(-62120000000.0));  // year 1
    EXPECT_TRUE(inYear(253390000000.0));  // year 9999
    EXPECT_FALSE(inYear(253420000000.0)); // year 10000
    EXPECT_FALSE(inYear(std::numeric_limits<double>::infinity()));
}

TEST(TimelinePointOrdering, TimeThenOrderKeyThenID) {
    auto five = pathPoint(5, 0, "2024-05-01T10:00:00Z");
    auto seven = pathPoint(7, 0, "2024-05-01T10:00:00Z");
    EXPECT_TRUE(TimelinePoint::precedes(five, seven));
    EXPECT_FALSE(TimelinePoint::precedes(seven, five));
    seven.order = 4.5;
    EXPECT_TRUE(TimelinePoint::precedes(seven, five));
    seven.order = 5.0;
    EXPECT_TRUE(TimelinePoint::precedes(five, seven));
    EXPECT_FALSE(TimelinePoint::precedes(five, five));
    seven.time = at("2024-05-01T09:00:00Z");
    seven.order = 100;
    EXPECT_TRUE(TimelinePoint::precedes(seven, five));
}

} // namespace
} // namespace trackloom
