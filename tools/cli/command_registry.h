#pragma once

// Each command group registers its subcommands on the parser; the chosen one
// leaves its work in the registry, which runs it once parsing succeeded and
// turns refusals into the tool's exit statuses.

#include <CLI/CLI.hpp>
#include <functional>
#include <string>

namespace trackloom::cli {

/// Exit statuses of the tool.
enum ExitStatus { success = 0, usageError = 1, refused = 2 };

class CommandRegistry {
  public:
    /// Sets the work of the chosen subcommand; it returns what to print on stdout.
    void choose(std::function<std::string()> work) { m_work = std::move(work); }
    /// Runs the chosen work: its output and newline on stdout, or a refusal's
    /// message on stderr with status 2.
    int run() const;

  private:
    std::function<std::string()> m_work;
};

void addGpxCommands(CLI::App& app, CommandRegistry& registry);
/// Adds the writing commands to the `gpx` group (call after `addGpxCommands`).
void addGpxWriteCommands(CLI::App& app, CommandRegistry& registry);
void addGpxEditCommands(CLI::App& app, CommandRegistry& registry);
void addTimelineCommands(CLI::App& app, CommandRegistry& registry);
void addPlacesCommands(CLI::App& app, CommandRegistry& registry);

} // namespace trackloom::cli
