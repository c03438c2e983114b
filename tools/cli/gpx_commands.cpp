#include "core/base/json_writer.h"
#include "core/track/gpx_track.h"
#include "tools/cli/cli_support.h"
#include "tools/cli/command_registry.h"
#include "tools/cli/track_json.h"

#include <memory>

namespace trackloom::cli {
namespace {

void addInfo(CLI::App& gpx, CommandRegistry& registry) {
    struct Arguments {
        std::string file;
        TrackJsonOptions options;
        bool removeAirRoutes = false;
    };
    auto arguments = std::make_shared<Arguments>();
    auto* info =
        gpx.add_subcommand("info", "Zeigt Punkte, Abschnitte und Analyse eines GPX-Tracks");
    info->add_option("FILE", arguments->file, "GPX-Datei")->required();
    info->add_flag("--legs", arguments->options.legs, "alle Intervalle ausgeben");
    info->add_flag("--points", arguments->options.points, "alle Punkte ausgeben");
    info->add_flag("--remove-air-routes", arguments->removeAirRoutes,
                   "Luftlinien-Routen vorher entfernen");
    info->callback([arguments, &registry] {
        registry.choose([arguments] {
            auto track = openTrack(arguments->file);
            if (arguments->removeAirRoutes) {
                track = track->removingAirRoutes();
            }
            JsonWriter json;
            writeTrack(json, *track, arguments->options);
            return json.takeText();
        });
    });
}

} // namespace

void addGpxCommands(CLI::App& app, CommandRegistry& registry) {
    auto* gpx = app.add_subcommand("gpx", "GPX-Dateien lesen, analysieren und bearbeiten");
    gpx->require_subcommand(1);
    addInfo(*gpx, registry);
}

} // namespace trackloom::cli
