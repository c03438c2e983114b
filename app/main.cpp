// trackloom: the desktop application. This is where the shell, the tile source
// and the workspaces are put together once for the life of the process.

#include "app/editor/editor_workspace.h"
#include "app/map/tile_source.h"
#include "app/places/nominatim_search.h"
#include "app/places/places_workspace.h"
#include "app/shell/headless_dialogs.h"
#include "app/shell/launch_options.h"
#include "app/shell/main_window.h"
#include "app/shell/native_dialogs.h"
#include "app/shell/screenshot.h"
#include "app/shell/translation.h"
#include "app/timeline/timeline_workspace.h"
#include "core/base/allocator_tuning.h"
#include "core/base/time_zones.h"

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <cstdio>
#include <optional>

using namespace trackloom;

namespace {

int printAndExit(const LaunchExit& exit) {
    std::fputs(qPrintable(exit.text + '\n'), exit.status == 0 ? stdout : stderr);
    return exit.status;
}

/// Opens the place explorer for a picture: the whole history, around the
/// place given on the command line, with the heat map on.
struct ScreenshotExplorer : PlaceScopeReceiver {
    ScreenshotExplorer(PlacesWorkspace& places, std::optional<PlaceCoordinate> centre)
        : places(places), centre(centre) {}
    void explore(PlaceScope scope) override {
        if (centre) {
            places.exploreForScreenshot(std::move(scope), *centre);
        }
    }
    PlacesWorkspace& places;
    std::optional<PlaceCoordinate> centre;
};

} // namespace

int main(int argc, char** argv) {
    tuneAllocatorForLargeDocuments();
    const bool screenshot = wantsScreenshot(argc, argv);
    if (screenshot) {
        // Screenshots are for machines without a display; they never need one.
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Trackloom"));
    QApplication::setApplicationName(QStringLiteral("Trackloom"));
    QApplication::setApplicationDisplayName(QStringLiteral("Trackloom"));
    QApplication::setApplicationVersion(QStringLiteral(TRACKLOOM_VERSION));
    QSettings userStore;
    // A screenshot follows the user's choices but leaves them as they were
    // (it opens files, which the list of recent files would keep): it works
    // on a copy.
    QTemporaryDir scratch;
    std::optional<QSettings> copy;
    if (screenshot) {
        copy.emplace(scratch.filePath(QStringLiteral("settings.ini")), QSettings::IniFormat);
        for (const QString& key : userStore.allKeys()) {
            copy->setValue(key, userStore.value(key));
        }
    }
    QSettings& store = copy ? *copy : userStore;
    AppSettings settings(store);
    installTranslations(application, interfaceLocale(settings.language(), QLocale::system()));

    const auto parsed = parseLaunchOptions(QApplication::arguments());
    if (const auto* exit = std::get_if<LaunchExit>(&parsed)) {
        return printAndExit(*exit);
    }
    const auto& options = std::get<LaunchOptions>(parsed);

    NativeDialogs nativeDialogs(settings);
    HeadlessDialogs headlessDialogs;
    // Nobody is there to answer a dialog while a screenshot is taken.
    UserDialogs& dialogs = screenshot ? static_cast<UserDialogs&>(headlessDialogs) : nativeDialogs;
    // A screenshot shows the map without tiles rather than depending on the network.
    TileSource tiles(screenshot ? QString() : settings.tileURLTemplate(),
                     AppSettings::tileCacheFolder(),
                     screenshot ? nullptr : std::make_unique<NetworkTileFetcher>());
    MainWindow window(settings, dialogs, tiles);
    nativeDialogs.setParentWindow(&window);
    auto editor = std::make_unique<EditorWorkspace>(store, dialogs, &tiles, *systemTimeZone());
    auto timeline = std::make_unique<TimelineWorkspace>(dialogs, &tiles, *systemTimeZone());
    // The place explorer becomes available once the timeline hands it a scope
    // of the history; its day rows go back to the timeline. A screenshot never
    // searches online.
    auto places = std::make_unique<PlacesWorkspace>(
        dialogs, &tiles, screenshot ? nullptr : std::make_unique<NominatimSearch>());
    timeline->setTrackReceiver(editor.get());
    timeline->setPlaceScopeReceiver(places.get());
    places->setDayReceiver(timeline.get());
    TimelineWorkspace& timelineWorkspace = *timeline;
    PlacesWorkspace& placesWorkspace = *places;
    window.addWorkspace(std::move(editor));
    window.addWorkspace(std::move(timeline));
    window.addWorkspace(std::move(places));

    window.openFiles(options.files);
    ScreenshotExplorer explorer(placesWorkspace, options.explorePlace);
    if (options.screenshotPath && options.explorePlace) {
        // The history is read first; the explorer then looks through all of it.
        while (window.isBusy()) {
            QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 50);
        }
        timelineWorkspace.model().explorePlaces(explorer);
    }
    if (options.screenshotPath) {
        if (options.files.isEmpty()) {
            for (Workspace* workspace : window.workspaces()) {
                if (workspace->openSample()) {
                    window.activateWorkspace(workspace);
                    break;
                }
            }
        }
        const auto error = writeScreenshot(window, options.screenshotSize, *options.screenshotPath,
                                           [&window] { return window.isBusy(); });
        return error ? printAndExit({*error, 2}) : 0;
    }
    window.show();
    return QApplication::exec();
}
