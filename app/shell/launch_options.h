#pragma once

// The program's own command line: files to open, and a screenshot mode that
// lays the window out offscreen, writes a PNG and exits (for newcomers and CI
// without a display).

#include "core/places/place_analysis.h"

#include <QSize>
#include <QString>
#include <QStringList>
#include <optional>
#include <variant>

namespace trackloom {

struct LaunchOptions {
    QStringList files;
    std::optional<QString> screenshotPath;
    QSize screenshotSize{1280, 800};
    /// With a screenshot of a history: the place to show in the place explorer.
    std::optional<PlaceCoordinate> explorePlace;
};

/// A usage error: the text to print and the exit status (0 for --help and --version,
/// 2 for a value that cannot be used).
struct LaunchExit {
    QString text;
    int status = 1;
};

/// Reads `arguments` (the program name first).
std::variant<LaunchOptions, LaunchExit> parseLaunchOptions(const QStringList& arguments);

/// Whether the raw arguments ask for a screenshot; checked before the
/// application object exists, to choose the offscreen platform.
bool wantsScreenshot(int argc, char** argv);

} // namespace trackloom
