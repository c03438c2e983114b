#include "app/places/nominatim_search.h"
#include "tests/app/places/places_test_support.h"

#include <QSignalSpy>

namespace trackloom::testing {
namespace {

class PlaceSearchTest : public PlacesModelTest {};

TEST_F(PlaceSearchTest, BlankQueriesAskForTextAndStartNothing) {
    auto& explorer = open({visit("Zuhause", 50.7, 7.1, juneTime(1, 8))});
    explorer.setQuery(QStringLiteral("  \n\t "));
    explorer.searchSavedPlaces();
    EXPECT_EQ(explorer.queryMessage(),
              "Bitte einen gespeicherten Ortsnamen oder Koordinaten eingeben.");
    EXPECT_TRUE(explorer.candidates().empty());

    explorer.searchOnline();
    EXPECT_EQ(explorer.queryMessage(), "Bitte einen Ort oder eine Adresse eingeben.");
    EXPECT_TRUE(search.requests.empty());
    EXPECT_FALSE(explorer.searchBusy());
    EXPECT_FALSE(explorer.center());
}

TEST_F(PlaceSearchTest, TypedCoordinatesAreTakenLocallyByEitherSearch) {
    auto& explorer = open({pathPoint(50.7, 7.1, juneTime(1, 8))});
    for (const bool online : {false, true}) {
        SCOPED_TRACE(online ? "online" : "saved places");
        explorer.choose(QStringLiteral("Anderswo"), {10, 10}, false);
        const int focus = explorer.focusRequest();
        explorer.setQuery(QStringLiteral(" 50.7, 7.1 "));
        online ? explorer.searchOnline() : explorer.searchSavedPlaces();
        ASSERT_TRUE(explorer.center());
        EXPECT_EQ(*explorer.center(), (PlaceCoordinate{50.7, 7.1}));
        EXPECT_EQ(explorer.placeName(), "Koordinaten");
        EXPECT_EQ(explorer.focusRequest(), focus + 1);
        EXPECT_TRUE(search.requests.empty());
        waitForIdle(explorer);
        EXPECT_EQ(explorer.days().size(), 1u);
    }
    EXPECT_EQ(explorer.queryMessage(), QString());
}

TEST_F(PlaceSearchTest, StoredVisitsAreOfferedOncePerSpot) {
    auto& explorer = open({
        visit("Café Köln", 50.9375, 6.9603, juneTime(1, 8)),
        // The same spot after rounding to about a metre.
        visit("Café Köln", 50.937502, 6.960304, juneTime(2, 8)),
        visit("Café Köln", 50.94, 6.97, juneTime(3, 8)),
        visit("Bäckerei", 50.9, 6.9, juneTime(4, 8)),
        pathPoint(50.9375, 6.9603, juneTime(5, 8)),
    });
    // Case and diacritics do not matter.
    explorer.setQuery(QStringLiteral("cafe koln"));
    explorer.searchSavedPlaces();
    ASSERT_EQ(explorer.candidates().size(), 2u);
    EXPECT_EQ(explorer.candidates()[0].name, "Café Köln");
    EXPECT_EQ(explorer.candidates()[0].detail, "Gespeicherter Aufenthalt");
    EXPECT_EQ(explorer.candidates()[1].coordinate, (PlaceCoordinate{50.94, 6.97}));
    EXPECT_NE(explorer.candidates()[0].id, explorer.candidates()[1].id);
    EXPECT_EQ(explorer.queryMessage(), "2 Orte aus deinen Daten.");

    explorer.setQuery(QStringLiteral("Bahnhof"));
    explorer.searchSavedPlaces();
    EXPECT_TRUE(explorer.candidates().empty());
    EXPECT_EQ(explorer.queryMessage(),
              "Kein gespeicherter Ortsname gefunden. Kartenpunkt wählen, Koordinaten eingeben "
              "oder bei OpenStreetMap suchen.");
}

TEST_F(PlaceSearchTest, StoredVisitsStopAtFifty) {
    std::vector<TimelinePoint> points;
    for (int i = 0; i < 60; ++i) {
        points.push_back(visit("Park " + std::to_string(i), 50 + i * 0.01, 7, juneTime(1, 8)));
    }
    auto& explorer = open(std::move(points));
    explorer.setQuery(QStringLiteral("park"));
    explorer.searchSavedPlaces();
    EXPECT_EQ(explorer.candidates().size(), 50u);
    EXPECT_EQ(explorer.candidates().back().name, "Park 49");
    EXPECT_EQ(explorer.queryMessage(),
              "50 Orte aus deinen Daten (maximal 50; Suche ggf. genauer eingrenzen).");
}

TEST_F(PlaceSearchTest, OnlineResultsBecomeAtMostFifteenCandidates) {
    auto& explorer = open({pathPoint(50.7, 7.1, juneTime(1, 8))});
    QSignalSpy changes(&explorer, &PlaceExplorerModel::candidatesChanged);
    explorer.setQuery(QStringLiteral(" Bonn Hauptbahnhof "));
    explorer.searchOnline();
    ASSERT_EQ(search.requests, std::vector<QString>{"Bonn Hauptbahnhof"});
    EXPECT_TRUE(explorer.searchBusy());

    std::vector<OnlinePlace> places;
    for (int i = 0; i < 20; ++i) {
        places.push_back({i == 0 ? std::nullopt : std::optional(QString::number(i)),
                          i == 1 ? std::nullopt : std::optional(QStringLiteral("Bonn")),
                          {50 + i * 0.001, 7}});
    }
    search.answer(places);
    EXPECT_FALSE(explorer.searchBusy());
    ASSERT_EQ(explorer.candidates().size(), 15u);
    EXPECT_EQ(explorer.candidates()[0].name, "Ort");
    EXPECT_EQ(explorer.candidates()[1].detail, "OpenStreetMap");
    EXPECT_EQ(explorer.candidates()[14].name, "14");
    EXPECT_EQ(explorer.queryMessage(), "Ort auswählen, um deinen Verlauf dort zu prüfen.");
    EXPECT_GE(changes.count(), 2);
}

TEST_F(PlaceSearchTest, OnlineSearchReportsEmptyResultsFailuresAndForgetsCancelledOnes) {
    auto& explorer = open({pathPoint(50.7, 7.1, juneTime(1, 8))});
    explorer.setQuery(QStringLiteral("Nirgendwo"));
    explorer.searchOnline();
    search.answer(std::vector<OnlinePlace>{});
    EXPECT_EQ(explorer.queryMessage(), "Keine Orte bei OpenStreetMap gefunden.");

    explorer.searchOnline();
    search.answer(QStringLiteral("Keine Internetverbindung."));
    EXPECT_EQ(explorer.queryMessage(),
              "OpenStreetMap-Suche nicht verfügbar: Keine Internetverbindung.");
    EXPECT_FALSE(explorer.searchBusy());

    explorer.searchOnline();
    auto late = search.pending;
    explorer.cancelSearch();
    EXPECT_FALSE(explorer.searchBusy());
    EXPECT_EQ(explorer.queryMessage(), QString());
    // A search that still answers after it was cancelled changes nothing.
    late(std::vector<OnlinePlace>{{QStringLiteral("Spät"), std::nullopt, {1, 1}}});
    EXPECT_TRUE(explorer.candidates().empty());
    EXPECT_EQ(explorer.queryMessage(), QString());
}

TEST(NominatimResponse, ReadsNamesDetailsAndStringCoordinates) {
    const QByteArray body = R"([
      {"place_id": 1001, "licence": "Data © OpenStreetMap contributors, ODbL 1.0.",
       "osm_type": "node", "osm_id": "123", "lat": "50.7374", "lon": "7.0982",
       "category": "place", "type": "city", "place_rank": 16, "importance": 0.7,
       "addresstype": "city", "name": "Bonn",
       "display_name": "Bonn, Nordrhein-Westfalen, Deutschland",
       "boundingbox": ["50.63", "50.77", "7.02", "7.21"]},
      {"place_id": 1002, "lat": "50.7339", "lon": "7.1003", "name": "",
       "display_name": "Hauptbahnhof, Poststraße, Bonn, Nordrhein-Westfalen, Deutschland"},
      {"place_id": 1003, "lat": "kaputt", "lon": "7.1", "name": "Ohne Lage"},
      {"place_id": 1004, "lat": "91", "lon": "7.1", "name": "Jenseits"},
      {"place_id": 1005, "lat": "-33.9", "lon": "151.2"}
    ])";
    const auto places = parseNominatimResponse(body);
    ASSERT_TRUE(places);
    ASSERT_EQ(places->size(), 3u);
    EXPECT_EQ((*places)[0], (OnlinePlace{QStringLiteral("Bonn"),
                                         QStringLiteral("Bonn, Nordrhein-Westfalen, Deutschland"),
                                         {50.7374, 7.0982}}));
    EXPECT_FALSE((*places)[1].name);
    EXPECT_EQ((*places)[1].coordinate, (PlaceCoordinate{50.7339, 7.1003}));
    EXPECT_FALSE((*places)[2].name);
    EXPECT_FALSE((*places)[2].detail);

    EXPECT_EQ(parseNominatimResponse(body, 1)->size(), 1u);
    EXPECT_EQ(parseNominatimResponse("[]")->size(), 0u);
    EXPECT_FALSE(parseNominatimResponse(R"({"error": "Unable to geocode"})"));
    EXPECT_FALSE(parseNominatimResponse("<html>Too Many Requests</html>"));
}

} // namespace
} // namespace trackloom::testing
