// The track operations on the command line: each reads FILE, runs one core
// operation and writes the result to OUT, never over a file it was given.

#include "core/base/file_io.h"
#include "core/base/gpx_error.h"
#include "core/base/json_writer.h"
#include "core/editing/time_operations.h"
#include "core/track/gpx_track.h"
#include "tools/cli/command_registry.h"

#include <filesystem>
#include <memory>

namespace trackloom::cli {
namespace {
namespace fs = std::filesystem;

TrackPtr openTrack(const std::string& path) {
    return GPXTrack::read(readFileBytes(path), fs::path(path).filename().string());
}

bool isSameFile(const fs::path& a, const fs::path& b) {
    std::error_code error;
    if (fs::weakly_canonical(a, error) == fs::weakly_canonical(b, error) && !error) {
        return true;
    }
    return fs::equivalent(a, b, error) && !error;
}

/// Writes `bytes` to `out` unless it is one of the opened files, and reports the
/// result's size as {"points": N, "segments": N}.
std::string writeResult(const std::string& out, const std::string& bytes, const GPXTrack& result,
                        const std::vector<std::string>& opened) {
    for (const auto& input : opened) {
        if (isSameFile(out, input)) {
            throw GPXError("Die Originaldatei darf nicht überschrieben werden. Bitte wähle eine "
                           "andere Datei.");
        }
    }
    writeFileAtomically(out, bytes);
    JsonWriter json;
    json.beginObject()
        .key("points")
        .value(result.points().size())
        .key("segments")
        .value(result.segments().size())
        .endObject();
    return json.takeText();
}

std::string writeBytes(const std::string& out, const std::string& bytes, const std::string& file) {
    const auto result = GPXTrack::read(bytes, fs::path(out).filename().string());
    return writeResult(out, bytes, *result, {file});
}

/// A TIME argument: the track time format, zone designator required.
const CLI::Validator trackTime(
    [](const std::string& text) {
        return GPXTrack::parseTime(text) ? std::string() : "keine Zeit mit Zonenangabe: " + text;
    },
    "TIME");

Instant timeArgument(const std::string& text) {
    return *GPXTrack::parseTime(text);
}

void addShift(CLI::App& gpx, CommandRegistry& registry) {
    struct Arguments {
        std::string file, start, out;
    };
    auto arguments = std::make_shared<Arguments>();
    auto* command = gpx.add_subcommand("shift", "Verschiebt alle Zeiten auf einen neuen Start");
    command->add_option("FILE", arguments->file, "GPX-Datei")->required();
    command->add_option("--start", arguments->start, "neuer Start")->required()->check(trackTime);
    command->add_option("-o", arguments->out, "Ausgabedatei")->required();
    command->callback([arguments, &registry] {
        registry.choose([arguments] {
            const auto track = openTrack(arguments->file);
            const auto bytes = shifted(*track, timeArgument(arguments->start));
            return writeBytes(arguments->out, bytes, arguments->file);
        });
    });
}

void addGenerate(CLI::App& gpx, CommandRegistry& registry) {
    struct Arguments {
        std::string file, start, end, out;
        std::optional<double> speed;
    };
    auto arguments = std::make_shared<Arguments>();
    auto* command = gpx.add_subcommand(
        "generate", "Erzeugt Zeiten aus einer Geschwindigkeit oder zwischen Start und Ende");
    command->add_option("FILE", arguments->file, "GPX-Datei")->required();
    command->add_option("--start", arguments->start, "Start")->required()->check(trackTime);
    auto* speed = command->add_option("--speed", arguments->speed, "Geschwindigkeit in km/h");
    auto* end = command->add_option("--end", arguments->end, "Ende")->check(trackTime);
    speed->excludes(end);
    command->add_option("-o", arguments->out, "Ausgabedatei")->required();
    command->callback([arguments, &registry, speed, end] {
        if (speed->empty() && end->empty()) {
            throw CLI::RequiredError("--speed oder --end");
        }
        registry.choose([arguments] {
            const auto track = openTrack(arguments->file);
            const auto start = timeArgument(arguments->start);
            const auto bytes = arguments->speed
                                   ? generated(*track, start, *arguments->speed)
                                   : generated(*track, start, timeArgument(arguments->end));
            return writeBytes(arguments->out, bytes, arguments->file);
        });
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

} // namespace

void addGpxEditCommands(CLI::App& app, CommandRegistry& registry) {
    auto* gpx = app.get_subcommand("gpx");
    addShift(*gpx, registry);
    addGenerate(*gpx, registry);
    addRequiredSpeed(*gpx, registry);
}

} // namespace trackloom::cli
