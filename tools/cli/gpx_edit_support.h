#pragma once

// What the editing commands share: their argument forms and the way they write
// a result.

#include "core/track/gpx_track.h"
#include "tools/cli/cli_support.h"
#include "tools/cli/command_registry.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace trackloom::cli {

/// The whole text as an integer; nothing for any other text.
std::optional<std::int64_t> parseInteger(const std::string& text);
/// The whole text as a decimal number; nothing for any other text.
std::optional<double> parseDecimal(const std::string& text);
/// "LAT,LON" as two decimal numbers; nothing for any other text.
std::optional<Coordinate> parseCoordinate(const std::string& text);
/// "LAT,LON;LAT,LON…"; nothing when any part is not a coordinate.
std::optional<std::vector<Coordinate>> parseCoordinates(const std::string& text);
/// "ID,ID…" as integers; nothing for any other text.
std::optional<std::set<std::int64_t>> parseIDs(const std::string& text);

/// `gpx session`: a chain of editing steps on one file.
void addGpxSessionCommand(CLI::App& gpx, CommandRegistry& registry);

} // namespace trackloom::cli
