#include "core/timeline/timeline_session.h"
#include "timeline_test_support.h"

namespace trackloom {
namespace {

using testing::at;
using testing::pathPoint;
using testing::refusal;
using testing::visitPoint;
using testing::zone;

/// Two path segments on 2024-05-01 and 2024-05-02 (UTC), and a visit.
TimelineDocument sampleDocument() {
    return TimelineDocument({pathPoint(0, 10, "2024-05-01T08:00:00Z", 50.0, 7.0),
                             pathPoint(0, 10, "2024-05-01T08:10:00Z", 50.1, 7.1),
                             pathPoint(0, 10, "2024-05-01T08:20:00Z", 50.2, 7.2),
                             pathPoint(0, 10, "2024-05-01T08:30:00Z", 50.3, 7.3),
                             visitPoint(0, 20, "2024-05-01T09:00:00Z", "2024-05-01T18:00:00Z"),
                             pathPoint(0, 30, "2024-05-02T08:00:00Z"),
                             pathPoint(0, 30, "2024-05-02T08:10:00Z")},
                            {});
}

std::vector<std::int64_t> ids(const std::vector<TimelinePoint>& points) {
    std::vector<std::int64_t> result;
    for (const auto& point : points) {
        result.push_back(point.id);
    }
    return result;
}

using IDs = std::vector<std::int64_t>;

class TimelineSessionTest : public ::testing::Test {
  protected:
    TimelineSession session{sampleDocument(), zone("UTC")};
    const Instant firstDay = at("2024-05-01T00:00:00Z");
    const Instant secondDay = at("2024-05-02T00:00:00Z");
};

TEST_F(TimelineSessionTest, EditingBackToTheImportedValuesDropsTheEdit) {
    auto moved = *session.point(1);
    moved.latitude = 51;
    session.edit(moved);
    EXPECT_TRUE(session.isEdited(1));
    EXPECT_EQ(session.point(1)->latitude, 51);

    session.edit(session.document().points()[1]);
    EXPECT_FALSE(session.isEdited(1));
    EXPECT_EQ(session.point(1), session.document().points()[1]);

    session.undo();
    EXPECT_TRUE(session.isEdited(1));
    session.undo();
    EXPECT_FALSE(session.isEdited(1));
    EXPECT_FALSE(session.canUndo());
}

TEST_F(TimelineSessionTest, EditMovesAPointBetweenDaysAndUndoMovesItBack) {
    auto later = *session.point(0);
    later.time = at("2024-05-02T07:00:00Z");
    session.edit(later);
    EXPECT_EQ(ids(session.pointsOn(firstDay)), (IDs{1, 2, 3, 4}));
    EXPECT_EQ(ids(session.pointsOn(at("2024-05-02T15:00:00Z"))), (IDs{0, 5, 6}));
    // The segment is in time order again: the moved point comes last.
    EXPECT_EQ(ids(session.pointsInSegment(10)), (IDs{1, 2, 3, 0}));

    session.undo();
    EXPECT_EQ(ids(session.pointsOn(firstDay)), (IDs{0, 1, 2, 3, 4}));
    session.redo();
    EXPECT_EQ(session.point(0)->time, at("2024-05-02T07:00:00Z"));
}

TEST_F(TimelineSessionTest, EditsThatWouldBreakAPointAreRefused) {
    const std::string message = "Bitte prüfe Koordinaten, Datum und Ende des Aufenthalts.";
    auto point = *session.point(4);
    const auto refuses = [&](const TimelinePoint& edited) {
        return refusal([&] { session.edit(edited); }) == message;
    };
    auto changed = point;
    changed.segment = 11;
    EXPECT_TRUE(refuses(changed));
    changed = point;
    changed.kind = TimelinePointKind::path;
    EXPECT_TRUE(refuses(changed));
    changed = point;
    changed.endTime = at("2024-05-01T08:00:00Z");
    EXPECT_TRUE(refuses(changed));
    changed = point;
    changed.id = 99;
    EXPECT_TRUE(refuses(changed));
    session.deletePoints({4});
    EXPECT_TRUE(refuses(point));

    session.undo();
    session.edit(point);
    EXPECT_FALSE(session.canUndo());
    EXPECT_EQ(session.point(4), point);
}

TEST_F(TimelineSessionTest, DeletingNothingRecordsNoStep) {
    session.deletePoints({});
    session.deletePoints({42, -1});
    EXPECT_FALSE(session.canUndo());

    session.deletePoints({5, 6, 42});
    EXPECT_FALSE(session.point(5));
    EXPECT_EQ(session.days().size(), 1u);
    EXPECT_TRUE(session.pointsInSegment(30).empty());
    session.deletePoints({5});
    session.undo();
    EXPECT_EQ(ids(session.pointsOn(secondDay)), (IDs{5, 6}));
    EXPECT_EQ(session.days(), (std::vector<TimelineDay>{{firstDay, 5}, {secondDay, 2}}));
}

TEST_F(TimelineSessionTest, NewEditClearsRedo) {
    session.deletePoints({0});
    session.undo();
    EXPECT_TRUE(session.canRedo());
    session.deletePoints({1});
    EXPECT_FALSE(session.canRedo());
    session.redo();
    EXPECT_TRUE(session.point(0));
}

TEST_F(TimelineSessionTest, SplitIsOnlyPossibleInsideAPathSegment) {
    EXPECT_FALSE(session.canSplitAt(0));
    EXPECT_TRUE(session.canSplitAt(1));
    EXPECT_TRUE(session.canSplitAt(2));
    EXPECT_FALSE(session.canSplitAt(3));
    EXPECT_FALSE(session.canSplitAt(4));
    EXPECT_FALSE(session.canSplitAt(6));
    EXPECT_FALSE(session.canSplitAt(99));
    EXPECT_EQ(
        refusal([&] { session.splitAt(0, "A", "B"); }),
        "Wähle einen Streckenpunkt innerhalb eines Abschnitts, nicht dessen Start oder Ende.");
    EXPECT_EQ(refusal([&] { session.splitAt(1, " \n", "B"); }),
              "Bitte gib beiden Abschnitten einen Namen.");
    EXPECT_FALSE(session.canUndo());
}

TEST_F(TimelineSessionTest, SplitEndsOneSectionAtThePointAndStartsTheNextWithItsCopy) {
    session.deletePoints({3});
    session.splitAt(1, "  Hinweg ", "Rückweg\n");
    const auto first = session.pointsInSegment(10);
    const auto second = session.pointsInSegment(31);
    EXPECT_EQ(ids(first), (IDs{0, 1}));
    EXPECT_EQ(ids(second), (IDs{7, 2}));
    EXPECT_EQ(first[1].label, "Hinweg");
    EXPECT_EQ(second[0].label, "Rückweg");
    EXPECT_EQ(second[0].time, first[1].time);
    EXPECT_EQ(second[0].latitude, first[1].latitude);
    EXPECT_EQ(second[1].label, "Rückweg");
    EXPECT_EQ(ids(session.pointsOn(firstDay)), (IDs{0, 1, 7, 2, 4}));

    session.undo();
    EXPECT_FALSE(session.point(7));
    EXPECT_EQ(ids(session.pointsOn(firstDay)), (IDs{0, 1, 2, 4}));
    EXPECT_TRUE(session.pointsInSegment(31).empty());
    EXPECT_EQ(session.point(2)->label, "");

    session.redo();
    EXPECT_EQ(ids(session.pointsOn(firstDay)), (IDs{0, 1, 7, 2, 4}));
    EXPECT_EQ(session.point(7)->segment, 31);

    // Numbers are never reused, even after an undo.
    session.undo();
    session.undo();
    session.splitAt(2, "A", "B");
    EXPECT_EQ(ids(session.pointsInSegment(32)), (IDs{8, 3}));
}

TEST_F(TimelineSessionTest, TimeZoneChangeKeepsPointsAndHistory) {
    session.deletePoints({6});
    session.changeTimeZone(zone("Asia/Tokyo"));
    // 18:00 UTC is 03:00 the next morning in Tokyo, so the visit reaches 2024-05-02.
    EXPECT_EQ(session.calendar().dateText(firstDay), "2024-05-01");
    EXPECT_EQ(ids(session.pointsOn(at("2024-05-01T12:00:00Z"))), (IDs{0, 1, 2, 3, 4}));
    EXPECT_EQ(ids(session.pointsOn(at("2024-05-01T20:00:00Z"))), (IDs{4, 5}));
    session.undo();
    EXPECT_EQ(ids(session.pointsOn(at("2024-05-01T20:00:00Z"))), (IDs{4, 5, 6}));
}

TEST_F(TimelineSessionTest, RangeTakesWholeDays) {
    EXPECT_EQ(ids(session.pointsIn({at("2024-05-01T23:00:00Z"), at("2024-05-02T00:00:00Z")})),
              (IDs{0, 1, 2, 3, 4}));
    EXPECT_EQ(ids(session.pointsIn({at("2024-05-01T23:00:00Z"), at("2024-05-02T00:00:01Z")})),
              (IDs{0, 1, 2, 3, 4, 5, 6}));
    EXPECT_TRUE(session.pointsIn({at("2024-05-03T00:00:00Z"), at("2024-06-01T00:00:00Z")}).empty());
}

TEST_F(TimelineSessionTest, WorkingCopyHoldsTheCurrentPoints) {
    session.deletePoints({0});
    session.splitAt(2, "A", "B");
    const auto reread = TimelineDocument::read(session.workingCopy());
    const auto current = session.allPoints();
    ASSERT_EQ(reread.points().size(), current.size());
    for (std::size_t i = 0; i < current.size(); ++i) {
        auto expected = current[i];
        expected.id = static_cast<std::int64_t>(i);
        EXPECT_EQ(reread.points()[i], expected);
    }
    const auto secondDayOnly =
        TimelineDocument::read(session.workingCopy({secondDay, at("2024-05-03T00:00:00Z")}));
    EXPECT_EQ(secondDayOnly.points().size(), 2u);
}

} // namespace
} // namespace trackloom
