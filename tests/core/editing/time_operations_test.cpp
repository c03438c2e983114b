#include "core/base/geodesy.h"
#include "core/base/gpx_error.h"
#include "core/editing/time_operations.h"
#include "gpx_fixtures.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace trackloom {
namespace {

using testing::at;
using testing::gpx11;
using testing::point;
using testing::refusal;
using testing::timed;
using testing::trackFrom;

std::vector<std::optional<Instant>> pointTimes(const std::string& bytes) {
    std::vector<std::optional<Instant>> times;
    const auto track = GPXTrack::read(bytes, "result.gpx");
    for (const auto& point : track->points()) {
        times.push_back(point.time);
    }
    return times;
}

// Tolerance for times that went through the six-digit written form.
constexpr double microsecond = 1e-6;

void expectNear(const std::optional<Instant>& actual, Instant expected) {
    ASSERT_TRUE(actual);
    EXPECT_NEAR(actual->secondsSinceReference(), expected.secondsSinceReference(), microsecond);
}

TEST(Shifting, MovesEveryKindOfTimeByTheSameOffset) {
    const auto track = trackFrom(
        gpx11("<metadata>" + timed("2024-05-01T09:00:00Z") + "</metadata>" +
              point("wpt", 1, 1, timed("2024-05-01T09:30:00Z")) + "<rte>" +
              point("rtept", 1, 1, timed("2024-05-01T12:00:00Z")) + "</rte><trk><trkseg>" +
              point("trkpt", 1, 1, timed("2024-05-01T10:00:00+02:00")) + point("trkpt", 1, 2) +
              point("trkpt", 1, 3, timed("2024-05-01T11:00:00Z")) + "</trkseg></trk>"));

    const auto bytes = shifted(*track, at("2024-05-02T08:00:00Z"));

    const auto times = pointTimes(bytes);
    expectNear(times[0], at("2024-05-02T08:00:00Z"));
    EXPECT_FALSE(times[1]) << "a point without time stays without one";
    expectNear(times[2], at("2024-05-02T11:00:00Z"));
    expectNear(times[3], at("2024-05-02T12:00:00Z"));
    EXPECT_NE(bytes.find("<metadata><time>2024-05-02T09:00:00.000000Z</time>"), std::string::npos);
    EXPECT_NE(bytes.find("<time>2024-05-02T09:30:00.000000Z</time></wpt>"), std::string::npos);
    EXPECT_EQ(testing::withoutTimeElements(bytes), testing::withoutTimeElements(track->data()));
}

TEST(Shifting, ReusesADocumentOnlyWhenNobodyElseHoldsTheTrack) {
    const auto bytes =
        gpx11("<trk><trkseg>" + point("trkpt", 1, 1, timed("2024-05-01T10:00:00Z")) +
              point("trkpt", 1, 2, timed("2024-05-01T11:00:00Z")) + "</trkseg></trk>");
    const auto target = at("2025-01-01T00:00:00Z");
    const auto shared = trackFrom(bytes);
    const auto fromShared = shiftedTrack(shared, target);
    EXPECT_EQ(shared->data(), bytes) << "a track somebody still holds never changes";
    EXPECT_EQ(shared->points()[0].time, at("2024-05-01T10:00:00Z"));

    const auto fromSole = shiftedTrack(trackFrom(bytes), target);
    EXPECT_EQ(fromSole->data(), fromShared->data());
    EXPECT_EQ(fromSole->data(), shifted(*shared, target));
    expectNear(fromSole->points()[1].time, at("2025-01-01T01:00:00Z"));
}

TEST(Shifting, MovesTheRootTimeOfGPX10AndLeavesUnreadableTimesAlone) {
    // The reader only counts the first metadata's times, so a second one with an
    // unreadable time does not stop the shift; it must come through untouched.
    const auto track = trackFrom(
        "<gpx xmlns=\"http://www.topografix.com/GPX/1/0\" version=\"1.0\">"
        "<time>2024-05-01T08:00:00Z</time><metadata/><metadata><time>gestern</time></metadata>"
        "<trk><trkseg>" +
        point("trkpt", 1, 1, timed("2024-05-01T10:00:00Z")) + "</trkseg></trk></gpx>");

    const auto bytes = shifted(*track, at("2024-05-01T11:00:00Z"));

    EXPECT_NE(bytes.find("<time>2024-05-01T09:00:00.000000Z</time><metadata/>"), std::string::npos);
    EXPECT_NE(bytes.find("<metadata><time>gestern</time></metadata>"), std::string::npos);
}

TEST(Shifting, RefusesInTheDocumentedOrder) {
    const auto untimed =
        trackFrom(gpx11("<trk><trkseg>" + point("trkpt", 1, 1) +
                        point("trkpt", 1, 2, timed("kaputt")) + "</trkseg></trk>"));
    EXPECT_EQ(refusal([&] { shifted(*untimed, at("2024-01-01T00:00:00Z")); }),
              "Der Track enthält keine gültigen Zeitstempel. Erzeuge zuerst Zeitstempel.");

    const auto invalidPoint =
        trackFrom(gpx11("<trk><trkseg>" + point("trkpt", 1, 1, timed("2024-05-01T10:00:00Z")) +
                        point("trkpt", 1, 2, timed("kaputt")) + "</trkseg></trk>"));
    const auto invalidWaypoint =
        trackFrom(gpx11(point("wpt", 1, 1, timed("kaputt")) + "<trk><trkseg>" +
                        point("trkpt", 1, 1, timed("2024-05-01T10:00:00Z")) + "</trkseg></trk>"));
    const std::string invalid =
        "Die Datei enthält ungültige Zeitstempel. Bitte korrigiere diese vor dem Verschieben.";
    const Instant year10000 = at("9999-06-01T00:00:00Z").advanced(365 * 86400.0);
    EXPECT_EQ(refusal([&] { shifted(*invalidPoint, year10000); }), invalid);
    EXPECT_EQ(refusal([&] { shifted(*invalidWaypoint, at("2024-01-01T00:00:00Z")); }), invalid);
}

TEST(Shifting, ChecksOnlyTheTargetYear) {
    const std::string outOfRange = "Das Datum muss zwischen den Jahren 1 und 9999 liegen.";
    const auto track =
        trackFrom(gpx11("<trk><trkseg>" + point("trkpt", 1, 1, timed("2024-05-01T10:00:00Z")) +
                        point("trkpt", 1, 2, timed("2024-05-03T10:00:00Z")) + "</trkseg></trk>"));
    EXPECT_EQ(refusal([&] { shifted(*track, at("9999-06-01T00:00:00Z").advanced(366 * 86400.0)); }),
              outOfRange);
    EXPECT_EQ(refusal([&] { shifted(*track, at("0000-06-01T00:00:00Z")); }), outOfRange);
    EXPECT_EQ(refusal([&] { shifted(*track, Instant(std::numeric_limits<double>::infinity())); }),
              outOfRange);
    // The last point lands two days later, in the year 10000, and that is accepted.
    const auto times = pointTimes(shifted(*track, at("9999-12-30T10:00:00Z")));
    EXPECT_EQ(times.size(), 2u);
}

TEST(GeneratingFromSpeed, TimesFollowTheDistanceAlongTheTrack) {
    const auto track =
        trackFrom(gpx11("<trk><trkseg>" + point("trkpt", 0, 0) + point("trkpt", 0, 0.001) +
                        point("trkpt", 0, 0.002) + "</trkseg></trk>"));
    const auto start = at("2024-05-01T10:00:00Z");
    const double step = haversineDistance(0, 0, 0, 0.001);

    const auto times = pointTimes(generated(*track, start, 36.0));

    expectNear(times[0], start);
    expectNear(times[1], start.advanced(step / 10));
    expectNear(times[2], start.advanced(2 * step / 10));
}

TEST(GeneratingFromSpeed, GapsBetweenSectionsAndBeforeRoutesAreNotTravelled) {
    // The route comes first in the file but its points come after the track's.
    const auto track = trackFrom(
        gpx11("<rte>" + point("rtept", 0.2, 0) + point("rtept", 0.2, 0.01) + "</rte><trk><trkseg>" +
              point("trkpt", 0, 0) + point("trkpt", 0, 0.01) + "</trkseg><trkseg>" +
              point("trkpt", 0.05, 0) + point("trkpt", 0.05, 0.01) + "</trkseg></trk>"));
    const auto start = at("2024-05-01T10:00:00Z");

    const auto times = pointTimes(generated(*track, start, 50.0));

    ASSERT_EQ(times.size(), 6u);
    EXPECT_EQ(times[2], times[1]) << "second section starts when the first ended";
    EXPECT_EQ(times[4], times[3]) << "the route starts when the tracks ended";
    EXPECT_GT(*times[5], *times[4]);
}

TEST(GeneratingFromSpeed, AcceptsOnlySpeedsAboveZeroUpTo1000) {
    const auto track = trackFrom(gpx11("<trk><trkseg>" + point("trkpt", 0, 0) + "</trkseg></trk>"));
    const auto start = at("2024-05-01T10:00:00Z");
    const std::string refused =
        "Bitte gib eine Geschwindigkeit größer als 0 und höchstens 1.000 km/h ein.";
    for (const double speed : {0.0, -5.0, 1000.0001, std::nan("")}) {
        EXPECT_EQ(refusal([&] { generated(*track, start, speed); }), refused) << speed;
    }
    EXPECT_EQ(refusal([&] { generated(*track, start, 1000.0); }), "");
}

TEST(GeneratingFromSpeed, NewTimeElementsFollowTheSchemaOrderAndThePointsPrefix) {
    const auto prefixed =
        trackFrom("<gpx:gpx xmlns:gpx=\"http://www.topografix.com/GPX/1/1\" version=\"1.1\">"
                  "<gpx:trk><gpx:trkseg><gpx:trkpt lat=\"1\" lon=\"2\"><gpx:ele>5</gpx:ele>"
                  "<gpx:name>A</gpx:name></gpx:trkpt></gpx:trkseg></gpx:trk></gpx:gpx>");
    EXPECT_NE(generated(*prefixed, at("2024-05-01T10:00:00Z"), 10.0)
                  .find("<gpx:ele>5</gpx:ele><gpx:time>2024-05-01T10:00:00.000000Z</gpx:time>"
                        "<gpx:name>"),
              std::string::npos);

    const auto plain =
        trackFrom(gpx11("<trk><trkseg><trkpt lat=\"1\" lon=\"2\">\n"
                        "  <name>A</name><ele>1</ele><ele>2</ele></trkpt>"
                        "<trkpt lat=\"1\" lon=\"3\">\n  <name>B</name></trkpt></trkseg></trk>"));
    const auto bytes = generated(*plain, at("2024-05-01T10:00:00Z"), 10.0);
    EXPECT_NE(bytes.find("<ele>2</ele><time>"), std::string::npos) << "after the last ele";
    EXPECT_NE(bytes.find("<trkpt lat=\"1\" lon=\"3\"><time>"), std::string::npos)
        << "first child, before the blanks";
    EXPECT_EQ(testing::withoutTimeElements(bytes), testing::withoutTimeElements(plain->data()));
}

TEST(GeneratingFromSpeed, ReplacesExistingTimesAndSetsOnlyExistingDocumentTimes) {
    const auto withMetadataTime =
        trackFrom(gpx11("<metadata><time>2020-01-01T00:00:00Z</time></metadata>" +
                        point("wpt", 1, 1, timed("2020-01-01T00:00:00Z")) + "<trk><trkseg>" +
                        point("trkpt", 0, 0, timed("2020-01-01T00:00:00Z")) + "</trkseg></trk>"));
    const auto bytes = generated(*withMetadataTime, at("2024-05-01T10:00:00Z"), 10.0);
    EXPECT_NE(bytes.find("<metadata><time>2024-05-01T10:00:00.000000Z</time></metadata>"),
              std::string::npos);
    EXPECT_NE(bytes.find("<time>2020-01-01T00:00:00Z</time></wpt>"), std::string::npos);
    EXPECT_NE(bytes.find("<trkpt lat=\"0.000000\" lon=\"0.000000\"><time>2024-05-01T10:00:00."),
              std::string::npos);

    const auto withoutMetadataTime =
        trackFrom(gpx11("<metadata><name>M</name></metadata><trk><trkseg>" + point("trkpt", 0, 0) +
                        "</trkseg></trk>"));
    EXPECT_NE(generated(*withoutMetadataTime, at("2024-05-01T10:00:00Z"), 10.0)
                  .find("<metadata><name>M</name></metadata>"),
              std::string::npos);
}

TEST(GeneratingFromSpeed, WorksInADocumentWithoutNamespace) {
    const auto track = trackFrom("<gpx><trk><trkseg><trkpt lat=\"0\" lon=\"0\"/>"
                                 "<trkpt lat=\"0\" lon=\"0.01\"/></trkseg></trk></gpx>");
    const auto times = pointTimes(generated(*track, at("2024-05-01T10:00:00Z"), 10.0));
    ASSERT_TRUE(times[1]);
}

TEST(GeneratingBetweenStartAndEnd, PinsTheFirstAndLastPointAndSpreadsByDistance) {
    const auto track = trackFrom(
        gpx11("<trk><trkseg>" + point("trkpt", 0, 0) + point("trkpt", 0, 0.01) +
              "</trkseg><trkseg>" + point("trkpt", 0.1, 0) + point("trkpt", 0.1, 0.03) +
              "</trkseg></trk><rte>" + point("rtept", 1, 0) + point("rtept", 1, 0) + "</rte>"));
    const auto start = at("2024-05-01T10:00:00Z");
    const auto end = at("2024-05-01T14:00:00Z");

    const auto times = pointTimes(generated(*track, start, end));

    const double first = haversineDistance(0, 0, 0, 0.01);
    const double whole = first + haversineDistance(0.1, 0, 0.1, 0.03);
    ASSERT_EQ(times.size(), 6u);
    EXPECT_EQ(times[0], start);
    EXPECT_EQ(times[5], end) << "the last route point";
    expectNear(times[1], start.advanced(4 * 3600 * first / whole));
    EXPECT_EQ(times[2], times[1]);
    EXPECT_EQ(times[3], end) << "all distance is travelled before the route";
}

TEST(RequiredSpeed, IsTheDistanceOverTheDuration) {
    const double tenKilometres = 10000 / haversineDistance(0, 0, 0, 1);
    const auto track = trackFrom(gpx11("<trk><trkseg>" + point("trkpt", 0, 0) +
                                       point("trkpt", 0, tenKilometres) + "</trkseg></trk>"));
    EXPECT_NEAR(requiredSpeed(*track, at("2024-05-01T10:00:00Z"), at("2024-05-01T11:00:00Z")), 10.0,
                1e-4);
}

TEST(RequiredSpeed, RefusesInTheDocumentedOrder) {
    const auto onePoint =
        trackFrom(gpx11("<trk><trkseg>" + point("trkpt", 0, 0) + "</trkseg></trk>"));
    const auto standing = trackFrom(
        gpx11("<trk><trkseg>" + point("trkpt", 0, 0) + point("trkpt", 0, 0) + "</trkseg></trk>"));
    const auto start = at("2024-05-01T10:00:00Z");
    const std::string years = "Start und Ende müssen zwischen den Jahren 1 und 9999 liegen.";
    const std::string order = "Die Endzeit muss nach der Startzeit liegen. Für eine Fahrt über "
                              "Mitternacht wähle auch das passende Enddatum.";
    const std::string tooShort = "Für Start und Ende wird ein Track mit mindestens zwei Punkten "
                                 "und einer Strecke größer als 0 m benötigt.";

    // In UTC this start lies in the year 0 although its local text says year 1.
    EXPECT_EQ(refusal([&] { requiredSpeed(*onePoint, at("0001-01-01T00:30:00+01:00"), start); }),
              years);
    EXPECT_EQ(refusal([&] { requiredSpeed(*onePoint, start, Instant(std::nan(""))); }), years);
    EXPECT_EQ(refusal([&] { requiredSpeed(*onePoint, start, start); }), order);
    EXPECT_EQ(refusal([&] { generated(*onePoint, start, start.advanced(-1)); }), order);
    EXPECT_EQ(refusal([&] { requiredSpeed(*onePoint, start, start.advanced(60)); }), tooShort);
    EXPECT_EQ(refusal([&] { generated(*standing, start, start.advanced(60)); }), tooShort);
}

} // namespace
} // namespace trackloom
