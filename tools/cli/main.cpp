// trackloom-cli: the core's operations for scripting, with JSON on stdout.

#include "core/base/allocator_tuning.h"
#include "tools/cli/command_registry.h"

int main(int argc, char** argv) {
    trackloom::tuneAllocatorForLargeDocuments();
    using namespace trackloom::cli;
    CLI::App app{"Trackloom – GPX-Tracks, Zeitachsen und Orte auf der Kommandozeile"};
    app.set_version_flag("--version", TRACKLOOM_VERSION);
    app.require_subcommand(1);
    CommandRegistry registry;
    addGpxCommands(app, registry);
    addGpxWriteCommands(app, registry);
    addGpxEditCommands(app, registry);
    addTimelineCommands(app, registry);
    addPlacesCommands(app, registry);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        const int status = app.exit(error);
        return status == 0 ? success : usageError;
    }
    return registry.run();
}
