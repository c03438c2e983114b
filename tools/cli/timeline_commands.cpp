// `trackloom-cli timeline …`: reading location histories (Google exports and
// working copies), their days, and writing GPX files and working copies.

#include "core/base/file_io.h"
#include "core/base/gpx_error.h"
#include "core/base/json_writer.h"
#include "core/base/original_file_protection.h"
#include "core/base/time_zones.h"
#include "core/timeline/timeline_session.h"
#include "core/track/track_time.h"
#include "tools/cli/cli_support.h"
#include "tools/cli/command_registry.h"

#include <filesystem>
#include <memory>

namespace trackloom::cli {
namespace {

namespace fs = std::filesystem;

struct SessionArguments {
    std::string file;
    std::string zone;
};

/// A date "YYYY-MM-DD" as year, month and day; absent for anything else.
std::optional<date::year_month_day> parseDate(std::string_view text) {
    const auto isDigitAt = [&](std::size_t i) { return text[i] >= '0' && text[i] <= '9'; };
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') {
        return std::nullopt;
    }
    for (const std::size_t i : {0, 1, 2, 3, 5, 6, 8, 9}) {
        if (!isDigitAt(i)) {
            return std::nullopt;
        }
    }
    const auto number = [&](std::size_t from, std::size_t count) {
        return std::stoi(std::string(text.substr(from, count)));
    };
    const date::year_month_day day{date::year(number(0, 4)),
                                   date::month(static_cast<unsigned>(number(5, 2))),
                                   date::day(static_cast<unsigned>(number(8, 2)))};
    return day.ok() ? std::optional(day) : std::nullopt;
}

const CLI::Validator calendarDate(
    [](std::string& text) { return parseDate(text) ? std::string() : "Ungültiges Datum: " + text; },
    "YYYY-MM-DD");

void addSessionOptions(CLI::App& command, SessionArguments& arguments) {
    command.add_option("FILE", arguments.file, "Zeitachsenexport oder Arbeitskopie")->required();
    command.add_option("--zone", arguments.zone, "Zeitzone der Kalendertage")->check(zoneName);
}

TimelineSession openSession(const SessionArguments& arguments) {
    return TimelineSession(TimelineDocument::readFile(arguments.file),
                           zoneArgument(arguments.zone));
}

void writeReport(JsonWriter& json, const TimelineImportReport& report) {
    json.key("report").beginObject();
    json.key("records").value(report.records);
    json.key("ignoredRecords").value(report.ignoredRecords);
    json.key("invalidValues").value(report.invalidValues);
    json.key("pathPoints").value(report.pathPoints);
    json.key("visits").value(report.visits);
    json.key("activityPoints").value(report.activityPoints);
    json.endObject();
}

void writePoint(JsonWriter& json, const TimelinePoint& point) {
    json.beginObject();
    json.key("id").value(point.id);
    json.key("segment").value(point.segment);
    json.key("kind").value(rawValue(point.kind));
    json.key("latitude").value(point.latitude);
    json.key("longitude").value(point.longitude);
    json.key("time").value(formatTrackTime(point.time));
    json.key("endTime");
    if (point.endTime) {
        json.value(formatTrackTime(*point.endTime));
    } else {
        json.null();
    }
    json.key("label").value(point.label);
    json.key("order").value(point.order);
    json.endObject();
}

std::string describe(const TimelineSession& session, bool withPoints) {
    JsonWriter json;
    json.beginObject();
    writeReport(json, session.document().report());
    json.key("points").value(session.document().points().size());
    json.key("days").beginArray();
    for (const auto& day : session.days()) {
        json.beginObject();
        json.key("date").value(session.calendar().dateText(day.date));
        json.key("count").value(day.count);
        json.endObject();
    }
    json.endArray();
    if (withPoints) {
        json.key("pointList").beginArray();
        for (const auto& point : session.document().points()) {
            writePoint(json, point);
        }
        json.endArray();
    }
    json.endObject();
    return json.takeText();
}

void addInfo(CLI::App& timeline, CommandRegistry& registry) {
    struct Arguments {
        SessionArguments session;
        bool points = false;
    };
    auto arguments = std::make_shared<Arguments>();
    auto* info = timeline.add_subcommand("info", "Zeigt Bericht und Tage eines Standortverlaufs");
    addSessionOptions(*info, arguments->session);
    info->add_flag("--points", arguments->points, "alle Punkte ausgeben");
    info->callback([arguments, &registry] {
        registry.choose(
            [arguments] { return describe(openSession(arguments->session), arguments->points); });
    });
}

std::string describe(const TimelineGPX& gpx) {
    JsonWriter json;
    json.beginObject();
    json.key("waypoints").value(gpx.waypoints);
    json.key("tracks").value(gpx.tracks);
    json.key("trackPoints").value(gpx.trackPoints);
    json.endObject();
    return json.takeText();
}

void addExport(CLI::App& timeline, CommandRegistry& registry) {
    struct Arguments {
        SessionArguments session;
        std::string day;
        std::string from;
        std::string to;
        bool activities = false;
        bool visits = false;
        std::optional<std::int64_t> segment;
        std::string output;
    };
    auto arguments = std::make_shared<Arguments>();
    auto* command = timeline.add_subcommand("export", "Schreibt einen Tag oder Zeitraum als GPX");
    addSessionOptions(*command, arguments->session);
    auto* day = command->add_option("--day", arguments->day, "Kalendertag")->check(calendarDate);
    auto* from = command->add_option("--from", arguments->from, "Beginn")->check(historyTime);
    auto* to = command->add_option("--to", arguments->to, "Ende")->check(historyTime);
    from->needs(to)->excludes(day);
    to->needs(from)->excludes(day);
    command->add_flag("--activities", arguments->activities, "grobe Fahrten mit exportieren");
    command->add_flag("--visits", arguments->visits, "Aufenthalte als Wegpunkte exportieren");
    command->add_option("--segment", arguments->segment, "nur dieser Abschnitt");
    command->add_option("-o", arguments->output, "GPX-Datei")->required();
    command->callback([arguments, &registry] {
        if (arguments->day.empty() && arguments->from.empty()) {
            throw CLI::ValidationError("Bitte --day oder --from und --to angeben.");
        }
        registry.choose([arguments] {
            const auto session = openSession(arguments->session);
            std::optional<DateInterval> range;
            if (const auto date = parseDate(arguments->day)) {
                const auto start = session.calendar().startOfDate(
                    static_cast<int>(date->year()), static_cast<unsigned>(date->month()),
                    static_cast<unsigned>(date->day()));
                range = start ? session.calendar().dayInterval(*start) : std::nullopt;
                if (!range) {
                    throw GPXError("Ungültiger Tag.");
                }
            } else {
                range = DateInterval{timeArgument(arguments->from), timeArgument(arguments->to)};
            }
            const auto gpx =
                session.gpxIn(*range, arguments->activities, arguments->visits, arguments->segment);
            OriginalFileProtection::checkExport(arguments->output, arguments->session.file);
            writeFileAtomically(arguments->output, gpx.data);
            return describe(gpx);
        });
    });
}

void addWorkingCopy(CLI::App& timeline, CommandRegistry& registry) {
    struct Arguments {
        SessionArguments session;
        std::string output;
    };
    auto arguments = std::make_shared<Arguments>();
    auto* command = timeline.add_subcommand("working-copy",
                                            "Sichert die Punkte als Arbeitskopie (.gpxhistory)");
    command->add_option("FILE", arguments->session.file, "Zeitachsenexport oder Arbeitskopie")
        ->required();
    command->add_option("-o", arguments->output, "Arbeitskopie")->required();
    command->callback([arguments, &registry] {
        registry.choose([arguments] {
            const auto session = openSession(arguments->session);
            const auto bytes = session.workingCopy();
            OriginalFileProtection::checkExport(arguments->output, arguments->session.file);
            writeFileAtomically(arguments->output, bytes);
            JsonWriter json;
            json.beginObject().key("points").value(session.document().points().size()).endObject();
            return json.takeText();
        });
    });
}

/// The files `export-days` writes, by day: every day with something to export.
std::vector<std::pair<Instant, fs::path>>
dayFiles(const TimelineSession& session, const fs::path& folder, bool activities, bool visits) {
    std::vector<std::pair<Instant, fs::path>> files;
    for (const auto& day : session.days()) {
        const auto range = session.calendar().dayInterval(day.date);
        if (range && !session.exportSelection(*range, activities, visits, std::nullopt).empty()) {
            const auto name = "Zeitachse-" + session.calendar().dateText(day.date) + ".gpx";
            files.emplace_back(day.date, folder / name);
        }
    }
    return files;
}

void addExportDays(CLI::App& timeline, CommandRegistry& registry) {
    struct Arguments {
        SessionArguments session;
        std::string folder;
        bool activities = false;
        bool visits = false;
    };
    auto arguments = std::make_shared<Arguments>();
    auto* command =
        timeline.add_subcommand("export-days", "Schreibt jeden Tag mit Daten als eigene GPX-Datei");
    addSessionOptions(*command, arguments->session);
    command->add_option("--dir", arguments->folder, "Zielordner")->required();
    command->add_flag("--activities", arguments->activities, "grobe Fahrten mit exportieren");
    command->add_flag("--visits", arguments->visits, "Aufenthalte als Wegpunkte exportieren");
    command->callback([arguments, &registry] {
        registry.choose([arguments] {
            const auto session = openSession(arguments->session);
            const auto files =
                dayFiles(session, arguments->folder, arguments->activities, arguments->visits);
            // Everything is checked before the first file is written, so a
            // refusal leaves the folder as it was.
            for (const auto& [day, path] : files) {
                OriginalFileProtection::checkExport(path, arguments->session.file);
                if (fs::exists(fs::symlink_status(path))) {
                    throw GPXError::withDetail("Die Datei gibt es bereits: ", path.string());
                }
            }
            std::error_code ignored;
            fs::create_directories(arguments->folder, ignored);
            JsonWriter json;
            json.beginObject().key("files").beginArray();
            for (const auto& [day, path] : files) {
                const auto gpx = session.gpxOn(day, arguments->activities, arguments->visits);
                writeFileAtomically(path, gpx.data);
                json.value(path.filename().string());
            }
            json.endArray().endObject();
            return json.takeText();
        });
    });
}

} // namespace

void addTimelineCommands(CLI::App& app, CommandRegistry& registry) {
    auto* timeline = app.add_subcommand("timeline", "Standortverläufe lesen und exportieren");
    timeline->require_subcommand(1);
    addInfo(*timeline, registry);
    addExport(*timeline, registry);
    addWorkingCopy(*timeline, registry);
    addExportDays(*timeline, registry);
}

} // namespace trackloom::cli
