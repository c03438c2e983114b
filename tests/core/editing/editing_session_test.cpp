#include "core/editing/editing_session.h"
#include "gpx_fixtures.h"

#include <gtest/gtest.h>

namespace trackloom {
namespace {

using testing::at;
using testing::gpx11;
using testing::point;
using testing::refusal;
using testing::segment;
using testing::trackFrom;

// A two-point route before a four-point track, joining its ends: an air route
// whose points come after the track's.
const std::string withAirRoute = gpx11("<rte>" + point("rtept", 0, 0.003) + point("rtept", 0, 0) +
                                       "</rte><trk><name>T</name>" + segment(0, 4) + "</trk>");

const Instant start = at("2024-05-01T10:00:00Z");

TEST(EditingSession, HiddenAirRoutesAreSkippedByDisplayedIndices) {
    GPXEditingSession session(trackFrom(withAirRoute), true);
    EXPECT_EQ(session.track()->points().size(), 4u);
    EXPECT_TRUE(session.canEdit(3));
    EXPECT_FALSE(session.canEdit(4));
    EXPECT_EQ(refusal([&] { session.deletePoint(4); }), "Bitte wähle einen Streckenpunkt aus.");
    EXPECT_EQ(refusal([&] { session.move(-1, {0, 0}); }), "Bitte wähle einen Streckenpunkt aus.");
    EXPECT_FALSE(session.canUndo());

    session.setRemovesAirRoutes(false);
    EXPECT_EQ(session.track()->points().size(), 6u);
    EXPECT_FALSE(session.canEdit(4)) << "shown, but not editable";
    EXPECT_FALSE(session.canInsertAfterDisplayed(3));
    EXPECT_TRUE(session.canInsertAfterDisplayed(2));
    EXPECT_FALSE(session.canMerge()) << "the air route is no section of its own";
}

TEST(EditingSession, GeneratedTimesAreARuleReappliedAfterEveryEdit) {
    GPXEditingSession session(trackFrom(gpx11("<trk>" + segment(0, 4) + "</trk>")), false);
    session.generate(start, 36.0);
    EXPECT_FALSE(session.canUndo()) << "generating is no undo step";
    const auto thirdBefore = *session.track()->points()[2].time;

    session.deletePoint(1);

    EXPECT_EQ(session.workingSource()->points().size(), 3u);
    EXPECT_FALSE(session.workingSource()->points()[0].time) << "the source has no times";
    EXPECT_EQ(session.track()->points()[1].time, thirdBefore)
        << "distance along the track is unchanged by removing a point on the line";
    session.undo();
    EXPECT_EQ(session.track()->points().size(), 4u);
    EXPECT_TRUE(session.hasGeneratedTimes());
    EXPECT_EQ(session.track()->points()[2].time, thirdBefore);
}

TEST(EditingSession, UndoGoesBackToTheTimingOfTheEditsSnapshot) {
    GPXEditingSession session(trackFrom(gpx11("<trk>" + segment(0, 4) + "</trk>")), false);
    session.deletePoint(0);
    session.generate(start, 10.0);
    session.undo();
    EXPECT_EQ(session.track()->points().size(), 4u);
    EXPECT_FALSE(session.hasGeneratedTimes());
    EXPECT_FALSE(session.track()->points()[0].time);
    EXPECT_TRUE(session.canRedo());
    session.redo();
    EXPECT_TRUE(session.hasGeneratedTimes());
    EXPECT_TRUE(session.track()->points()[0].time);
}

TEST(EditingSession, UndoAndRedoWalkALongHistoryExactly) {
    const auto opened = trackFrom(gpx11("<trk><name>T</name>" + segment(0, 12) + "</trk>"));
    GPXEditingSession session(opened, false);
    std::vector<std::string> states{opened->data()};
    for (int edit = 0; edit < 8; ++edit) {
        if (edit % 2 == 0) {
            session.deletePoint(edit % 3);
        } else {
            session.move(edit, {1.0 + edit, 2.0});
        }
        states.push_back(session.workingSource()->data());
    }
    for (auto state = states.rbegin(); state != states.rend(); ++state) {
        EXPECT_EQ(session.workingSource()->data(), *state);
        session.undo();
    }
    EXPECT_FALSE(session.canUndo());
    session.undo();
    EXPECT_EQ(session.source()->data(), opened->data());
    for (const auto& state : states) {
        EXPECT_EQ(session.workingSource()->data(), state);
        session.redo();
    }
    EXPECT_FALSE(session.canRedo());
}

TEST(EditingSession, ANewEditAfterUndoEmptiesTheRedoStack) {
    GPXEditingSession session(trackFrom(gpx11("<trk>" + segment(0, 5) + "</trk>")), false);
    session.deletePoint(0);
    session.deletePoint(0);
    session.undo();
    EXPECT_TRUE(session.canRedo());
    session.move(0, {1, 1});
    EXPECT_FALSE(session.canRedo());
    session.redo();
    EXPECT_EQ(session.workingSource()->points()[0].latitude, 1);
}

TEST(EditingSession, AFailedEditChangesNothing) {
    GPXEditingSession session(
        trackFrom(gpx11("<trk><trkseg>" + point("trkpt", 0, 0) + point("trkpt", 0, 0.01) +
                        point("trkpt", 0, 0) + "</trkseg></trk>")),
        false);
    session.generate(start, start.advanced(3600));
    const auto shown = session.track();
    const auto working = session.workingSource();
    // Without its middle point the track has no length, so no end can be reached.
    EXPECT_EQ(refusal([&] { session.deletePoint(1); }),
              "Für Start und Ende wird ein Track mit mindestens zwei Punkten und einer Strecke "
              "größer als 0 m benötigt.");
    EXPECT_EQ(refusal([&] { session.split(0, "A", "B"); }),
              "Wähle einen Punkt innerhalb eines Abschnitts, nicht dessen Start oder Ende.");
    EXPECT_EQ(session.track(), shown);
    EXPECT_EQ(session.workingSource(), working);
    EXPECT_FALSE(session.canUndo());
}

TEST(EditingSession, AppendingMakesTheShownTimesDataAndUndoBringsTheRuleBack) {
    const auto opened = trackFrom(withAirRoute);
    GPXEditingSession session(opened, true);
    session.generate(start, 12.0);
    const auto shownTimes = session.track()->points();

    session.append(*trackFrom(gpx11("<trk><name>Zwei</name>" + segment(1, 2) + "</trk>")));

    EXPECT_TRUE(session.hasGeneratedTimes());
    const auto& points = session.workingSource()->points();
    ASSERT_EQ(points.size(), 8u);
    for (std::size_t id = 0; id < 4; ++id) {
        // Written times are truncated to microseconds, so a time read back and
        // written again may lose one.
        EXPECT_NEAR(points[id].time->secondsSince(*shownTimes[id].time), 0, 1.1e-6) << id;
    }
    EXPECT_FALSE(points[6].time) << "the air route got no time";
    EXPECT_EQ(session.workingSource()->airRoutes().size(), 1u);
    EXPECT_EQ(session.track()->points().size(), 6u);

    session.undo();
    EXPECT_TRUE(session.hasGeneratedTimes());
    EXPECT_FALSE(session.workingSource()->points()[0].time);
    EXPECT_EQ(session.track()->points()[3].time, shownTimes[3].time) << "the timing is back";
}

TEST(EditingSession, RestoredStatesKeepANameTakenFromTheFileName) {
    GPXEditingSession session(
        GPXTrack::read(gpx11("<trk>" + segment(0, 4) + "</trk>"), "tour.2024.gpx"), false);
    ASSERT_EQ(session.track()->name(), "tour.2024");
    session.deletePoint(0);
    session.undo();
    EXPECT_EQ(session.workingSource()->name(), "tour.2024");
    EXPECT_EQ(session.source()->name(), "tour.2024");
}

} // namespace
} // namespace trackloom
