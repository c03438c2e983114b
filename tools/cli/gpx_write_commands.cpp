// Commands that write GPX files: the sample track, a single section, a track
// without its straight-line routes, and the unchanged round trip of a file.

#include "core/track/sample_track.h"
#include "tools/cli/cli_support.h"
#include "tools/cli/command_registry.h"

#include <functional>
#include <memory>

namespace trackloom::cli {
namespace {

void addOutputOption(CLI::App& command, std::string& output) {
    command.add_option("-o,--output", output, "Zieldatei")->required();
}

/// Registers `NAME FILE -o OUT`: writes what `derive` makes of the opened track.
CLI::App* addDerivingCommand(CLI::App& gpx, CommandRegistry& registry, const std::string& name,
                             const std::string& description,
                             std::function<TrackPtr(const TrackPtr&)> derive) {
    struct Arguments {
        std::string file;
        std::string output;
    };
    auto arguments = std::make_shared<Arguments>();
    auto* command = gpx.add_subcommand(name, description);
    command->add_option("FILE", arguments->file, "GPX-Datei")->required();
    addOutputOption(*command, arguments->output);
    command->callback([arguments, derive, &registry] {
        registry.choose([arguments, derive] {
            const auto track = derive(openTrack(arguments->file));
            return saveTrack(*track, arguments->output, {arguments->file});
        });
    });
    return command;
}

void addSample(CLI::App& gpx, CommandRegistry& registry) {
    auto output = std::make_shared<std::string>();
    auto* command = gpx.add_subcommand("sample", "Schreibt den Beispieltrack");
    addOutputOption(*command, *output);
    command->callback([output, &registry] {
        registry.choose([output] { return saveTrack(*sampleTrack(), *output, {}); });
    });
}

} // namespace

void addGpxWriteCommands(CLI::App& app, CommandRegistry& registry) {
    auto& gpx = *app.get_subcommand("gpx");
    addSample(gpx, registry);

    auto segment = std::make_shared<std::int64_t>(0);
    addDerivingCommand(
        gpx, registry, "export-segment", "Schreibt einen Abschnitt allein",
        [segment](const TrackPtr& track) { return track->exportingSegment(*segment); })
        ->add_option("--segment", *segment, "Abschnitt (id)")
        ->required();
    addDerivingCommand(gpx, registry, "remove-air-routes", "Schreibt den Track ohne Luftlinien",
                       [](const TrackPtr& track) { return track->removingAirRoutes(); });
    addDerivingCommand(gpx, registry, "copy", "Schreibt die Datei unverändert neu",
                       [](const TrackPtr& track) { return track; });
}

} // namespace trackloom::cli
