// The track operations on the command line: each reads FILE, runs one core
// operation and writes the result to OUT, never over a file it was given.

#include "core/base/json_writer.h"
#include "core/editing/point_edits.h"
#include "core/editing/segment_merging.h"
#include "core/editing/time_operations.h"
#include "core/editing/track_append.h"
#include "tools/cli/gpx_edit_support.h"

#include <memory>

namespace trackloom::cli {
namespace {

/// What every editing command takes besides its own options.
struct FileArguments {
    std::string file;
    std::string out;
};

std::string saved(const TrackPtr& result, const FileArguments& arguments) {
    return saveTrack(*result, arguments.out, {arguments.file});
}

/// Registers `gpx NAME FILE … -o OUT`: `addOptions` adds the command's own options
/// to an `Arguments` (a `FileArguments`), `edit` turns the opened track and them
/// into the resulting track.
template <typename Arguments, typename AddOptions, typename Edit>
void addEditCommand(CLI::App& gpx, CommandRegistry& registry, const std::string& name,
                    const std::string& description, AddOptions addOptions, Edit edit) {
    auto arguments = std::make_shared<Arguments>();
    auto* command = gpx.add_subcommand(name, description);
    command->add_option("FILE", arguments->file, "GPX-Datei")->required();
    addOptions(*command, *arguments);
    command->add_option("-o", arguments->out, "Ausgabedatei")->required();
    command->callback([arguments, &registry, edit] {
        registry.choose([arguments, edit] {
            // The track goes to the edit as the only reference, so that an edit
            // of the whole document can reuse it instead of copying it.
            return saved(edit(openTrack(arguments->file), *arguments), *arguments);
        });
    });
}

/// A validator for texts that `parse` turns into a value.
template <typename Parse> CLI::Validator parsedBy(Parse parse, const std::string& form) {
    return CLI::Validator(
        [parse, form](const std::string& text) {
            return parse(text) ? std::string() : "erwartet " + form + ": " + text;
        },
        form);
}

void addTimeCommands(CLI::App& gpx, CommandRegistry& registry) {
    struct Shift : FileArguments {
        std::string start;
    };
    addEditCommand<Shift>(
        gpx, registry, "shift", "Verschiebt alle Zeiten auf einen neuen Start",
        [](CLI::App& command, Shift& arguments) {
            command.add_option("--start", arguments.start, "neuer Start")
                ->required()
                ->check(trackTime);
        },
        [](TrackPtr track, const Shift& arguments) {
            return shiftedTrack(std::move(track), timeArgument(arguments.start));
        });

    struct Generate : FileArguments {
        std::string start, end;
        std::optional<double> speed;
    };
    addEditCommand<Generate>(
        gpx, registry, "generate",
        "Erzeugt Zeiten aus einer Geschwindigkeit oder bis zu einem Ende",
        [](CLI::App& command, Generate& arguments) {
            command.add_option("--start", arguments.start, "Start")->required()->check(trackTime);
            auto* mode = command.add_option_group("Zeitregel");
            mode->add_option("--speed", arguments.speed, "Geschwindigkeit in km/h");
            mode->add_option("--end", arguments.end, "Ende")->check(trackTime);
            mode->require_option(1);
        },
        [](TrackPtr track, const Generate& arguments) {
            const auto start = timeArgument(arguments.start);
            return arguments.speed
                       ? generatedTrack(std::move(track), start, *arguments.speed)
                       : generatedTrack(std::move(track), start, timeArgument(arguments.end));
        });
}

void addRequiredSpeed(CLI::App& gpx, CommandRegistry& registry) {
    struct Arguments {
        std::string file, start, end;
    };
    auto arguments = std::make_shared<Arguments>();
    auto* command = gpx.add_subcommand("required-speed",
                                       "Zeigt die Geschwindigkeit, die Start und Ende ergeben");
    command->add_option("FILE", arguments->file, "GPX-Datei")->required();
    command->add_option("--start", arguments->start, "Start")->required()->check(trackTime);
    command->add_option("--end", arguments->end, "Ende")->required()->check(trackTime);
    command->callback([arguments, &registry] {
        registry.choose([arguments] {
            const auto track = openTrack(arguments->file);
            const double speed =
                requiredSpeed(*track, timeArgument(arguments->start), timeArgument(arguments->end));
            JsonWriter json;
            json.beginObject().key("speedKMH").value(speed).endObject();
            return json.takeText();
        });
    });
}

void addSectionCommands(CLI::App& gpx, CommandRegistry& registry) {
    struct Split : FileArguments {
        std::int64_t at = 0;
        std::string first, second;
    };
    addEditCommand<Split>(
        gpx, registry, "split", "Teilt einen Abschnitt an einem Punkt",
        [](CLI::App& command, Split& arguments) {
            command.add_option("--at", arguments.at, "Punkt-ID")->required();
            command.add_option("--first", arguments.first, "Name des ersten Teils")->required();
            command.add_option("--second", arguments.second, "Name des zweiten Teils")->required();
        },
        [](TrackPtr track, const Split& arguments) {
            return splitting(*track, arguments.at, arguments.first, arguments.second);
        });

    struct Trim : FileArguments {
        std::optional<std::int64_t> before, after;
    };
    addEditCommand<Trim>(
        gpx, registry, "trim", "Entfernt alle Punkte vor oder nach einem Punkt",
        [](CLI::App& command, Trim& arguments) {
            auto* side = command.add_option_group("Seite");
            side->add_option("--before", arguments.before, "Punkt-ID des neuen Anfangs");
            side->add_option("--after", arguments.after, "Punkt-ID des neuen Endes");
            side->require_option(1);
        },
        [](TrackPtr track, const Trim& arguments) {
            return arguments.before ? trimmingBefore(*track, *arguments.before)
                                    : trimmingAfter(*track, *arguments.after);
        });

    addEditCommand<FileArguments>(
        gpx, registry, "merge", "Fügt alle Abschnitte zu einem zusammen",
        [](CLI::App&, FileArguments&) {},
        [](TrackPtr track, const FileArguments&) { return mergingSegments(*track); });

    struct Single : FileArguments {
        std::string name;
    };
    addEditCommand<Single>(
        gpx, registry, "single-track", "Exportiert einen Track mit einem Abschnitt",
        [](CLI::App& command, Single& arguments) {
            command.add_option("--name", arguments.name, "Name des Tracks");
        },
        [](TrackPtr track, const Single& arguments) {
            return singleTrack(*track, arguments.name);
        });
}

void addPointCommands(CLI::App& gpx, CommandRegistry& registry) {
    struct Delete : FileArguments {
        std::string points;
    };
    addEditCommand<Delete>(
        gpx, registry, "delete", "Löscht Punkte",
        [](CLI::App& command, Delete& arguments) {
            command.add_option("--points", arguments.points, "Punkt-IDs")
                ->required()
                ->check(parsedBy(parseIDs, "ID[,ID…]"));
        },
        [](TrackPtr track, const Delete& arguments) {
            return removingPoints(*track, *parseIDs(arguments.points));
        });

    struct Move : FileArguments {
        std::int64_t point = 0;
        std::string to;
    };
    addEditCommand<Move>(
        gpx, registry, "move", "Verschiebt einen Punkt",
        [](CLI::App& command, Move& arguments) {
            command.add_option("--point", arguments.point, "Punkt-ID")->required();
            command.add_option("--to", arguments.to, "neue Position")
                ->required()
                ->check(parsedBy(parseCoordinate, "LAT,LON"));
        },
        [](TrackPtr track, const Move& arguments) {
            return movingPoint(*track, arguments.point, *parseCoordinate(arguments.to));
        });

    struct Insert : FileArguments {
        std::int64_t after = 0;
        std::string coordinates;
    };
    addEditCommand<Insert>(
        gpx, registry, "insert", "Fügt Punkte nach einem Punkt ein",
        [](CLI::App& command, Insert& arguments) {
            command.add_option("--after", arguments.after, "Punkt-ID")->required();
            command.add_option("--coordinates", arguments.coordinates, "neue Punkte")
                ->required()
                ->check(parsedBy(parseCoordinates, "LAT,LON[;LAT,LON…]"));
        },
        [](TrackPtr track, const Insert& arguments) {
            return inserting(*track, *parseCoordinates(arguments.coordinates), arguments.after);
        });
}

void addAppend(CLI::App& gpx, CommandRegistry& registry) {
    struct Arguments {
        std::string file, other, out;
    };
    auto arguments = std::make_shared<Arguments>();
    auto* command = gpx.add_subcommand("append", "Hängt eine zweite GPX-Datei an");
    command->add_option("FILE", arguments->file, "GPX-Datei")->required();
    command->add_option("OTHER", arguments->other, "anzuhängende GPX-Datei")->required();
    command->add_option("-o", arguments->out, "Ausgabedatei")->required();
    command->callback([arguments, &registry] {
        registry.choose([arguments] {
            const auto track = openTrack(arguments->file);
            const auto other = openTrack(arguments->other);
            return saveTrack(*appending(*track, *other), arguments->out,
                             {arguments->file, arguments->other});
        });
    });
}

} // namespace

void addGpxEditCommands(CLI::App& app, CommandRegistry& registry) {
    auto* gpx = app.get_subcommand("gpx");
    addTimeCommands(*gpx, registry);
    addRequiredSpeed(*gpx, registry);
    addSectionCommands(*gpx, registry);
    addPointCommands(*gpx, registry);
    addAppend(*gpx, registry);
    addGpxSessionCommand(*gpx, registry);
}

} // namespace trackloom::cli
