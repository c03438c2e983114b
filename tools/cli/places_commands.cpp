// `trackloom-cli places …`: the place explorer's questions about a location
// history — the days spent near a place, and the cells of the heat map. Both
// select the history's points the way the explorer does before answering.

#include "core/base/gpx_error.h"
#include "core/base/json_writer.h"
#include "core/base/text_trimming.h"
#include "core/places/heat_cells.h"
#include "core/places/place_analysis.h"
#include "core/timeline/timeline_document.h"
#include "core/track/number_parsing.h"
#include "core/track/track_time.h"
#include "tools/cli/cli_support.h"
#include "tools/cli/command_registry.h"

#include <algorithm>
#include <array>
#include <memory>
#include <tuple>

namespace trackloom::cli {
namespace {

/// Which points of the history a question considers.
struct Selection {
    std::string file;
    std::string from;
    std::string to;
    bool noVisits = false;
    bool activities = false;
};

void addSelectionOptions(CLI::App& command, Selection& selection) {
    command.add_option("FILE", selection.file, "Zeitachsenexport oder Arbeitskopie")->required();
    auto* from = command.add_option("--from", selection.from, "Beginn")->check(historyTime);
    auto* to =
        command.add_option("--to", selection.to, "Ende (ausgeschlossen)")->check(historyTime);
    from->needs(to);
    to->needs(from);
    command.add_flag("--no-visits", selection.noVisits, "Aufenthalte nicht berücksichtigen");
    command.add_flag("--activities", selection.activities, "Enden grober Fahrten berücksichtigen");
}

std::vector<TimelinePoint> selectedPoints(const Selection& selection) {
    const auto document = TimelineDocument::readFile(selection.file);
    std::optional<DateInterval> interval;
    if (!selection.from.empty()) {
        interval = DateInterval{timeArgument(selection.from), timeArgument(selection.to)};
    }
    return PlaceAnalysis::select(document.points(), interval, !selection.noVisits,
                                 selection.activities);
}

/// A radius in metres; zero is a valid, if empty, search.
double radiusArgument(const std::string& text) {
    const auto radius = parseFiniteNumber(trimmedWhitespace(text));
    if (!radius || !(*radius >= 0)) {
        throw GPXError("Bitte einen Umkreis von mindestens 0 Metern eingeben.");
    }
    return *radius;
}

std::string describe(const std::vector<PlaceDay>& days, const date::time_zone& zone) {
    const TimelineCalendar calendar(&zone);
    JsonWriter json;
    json.beginArray();
    for (const auto& day : days) {
        json.beginObject();
        json.key("day").value(calendar.dateText(day.day));
        json.key("first").value(formatTrackTime(day.first));
        json.key("last").value(formatTrackTime(day.last));
        json.key("count").value(day.count);
        json.endObject();
    }
    json.endArray();
    return json.takeText();
}

void addDays(CLI::App& places, CommandRegistry& registry) {
    struct Arguments {
        Selection selection;
        std::string near;
        std::string radius = "250";
        std::string zone;
    };
    auto arguments = std::make_shared<Arguments>();
    auto* command =
        places.add_subcommand("days", "Listet die Tage, an denen der Verlauf nahe einem Ort lag");
    addSelectionOptions(*command, arguments->selection);
    command->add_option("--near", arguments->near, "Ort als \"BREITE, LÄNGE\"")->required();
    command->add_option("--radius", arguments->radius, "Umkreis in Metern (250)");
    command->add_option("--zone", arguments->zone, "Zeitzone der Kalendertage")->check(zoneName);
    command->callback([arguments, &registry] {
        registry.choose([arguments] {
            // The place and radius are the user's typing; they are refused before
            // a possibly large history is read.
            const auto centre = PlaceAnalysis::coordinate(arguments->near);
            if (!centre) {
                throw GPXError("Bitte gültige Koordinaten eingeben.");
            }
            const double radius = radiusArgument(arguments->radius);
            const auto* zone = zoneArgument(arguments->zone);
            const auto points = selectedPoints(arguments->selection);
            return describe(PlaceAnalysis::days(*centre, radius, points, *zone), *zone);
        });
    });
}

/// "MINX,MINY,WIDTH,HEIGHT" as a region of the unit square; nothing for any
/// other text.
std::optional<HeatRegion> parseRegion(std::string_view text) {
    std::array<double, 4> numbers{};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const auto end = i + 1 < numbers.size() ? text.find(',') : text.size();
        if (end == std::string_view::npos) {
            return std::nullopt;
        }
        const auto number = parseFiniteNumber(trimmedWhitespace(text.substr(0, end)));
        if (!number) {
            return std::nullopt;
        }
        numbers[i] = *number;
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return HeatRegion{numbers[0], numbers[1], numbers[2], numbers[3]};
}

const CLI::Validator regionText(
    [](const std::string& text) {
        return parseRegion(text) ? std::string() : "erwartet MINX,MINY,BREITE,HÖHE: " + text;
    },
    "MINX,MINY,WIDTH,HEIGHT");

std::string describe(std::vector<HeatCell> cells) {
    // The core leaves the order to its hash map; scripts and tests need a stable one.
    std::sort(cells.begin(), cells.end(), [](const HeatCell& a, const HeatCell& b) {
        return std::tie(a.y, a.x, a.count) < std::tie(b.y, b.x, b.count);
    });
    JsonWriter json;
    json.beginArray();
    for (const auto& cell : cells) {
        json.beginObject();
        json.key("x").value(cell.x);
        json.key("y").value(cell.y);
        json.key("count").value(cell.count);
        json.endObject();
    }
    json.endArray();
    return json.takeText();
}

void addHeat(CLI::App& places, CommandRegistry& registry) {
    struct Arguments {
        Selection selection;
        std::string region;
        double cell = 0;
    };
    auto arguments = std::make_shared<Arguments>();
    auto* command = places.add_subcommand("heat", "Zählt die Punkte in den Zellen der Heatmap");
    addSelectionOptions(*command, arguments->selection);
    command->add_option("--region", arguments->region, "Ausschnitt des Einheitsquadrats")
        ->required()
        ->check(regionText);
    command->add_option("--cell", arguments->cell, "Seitenlänge einer Zelle")->required();
    command->callback([arguments, &registry] {
        registry.choose([arguments] {
            const auto points = selectedPoints(arguments->selection);
            std::vector<HeatSample> samples;
            samples.reserve(points.size());
            for (const auto& point : points) {
                samples.push_back(HeatSample::projecting({point.latitude, point.longitude}));
            }
            return describe(PlaceAnalysis::heatCells(samples, *parseRegion(arguments->region),
                                                     arguments->cell));
        });
    });
}

} // namespace

void addPlacesCommands(CLI::App& app, CommandRegistry& registry) {
    auto* places = app.add_subcommand("places", "Tage nahe einem Ort und Heatmap eines Verlaufs");
    places->require_subcommand(1);
    addDays(*places, registry);
    addHeat(*places, registry);
}

} // namespace trackloom::cli
