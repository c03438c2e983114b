// The place explorer on 3 million generated points, driven through its model
// and screen as a user would: opening (selecting and projecting the points in
// the background, with the longest pause of the main thread's event loop), a
// new radius until its days show, a pan until the new heat cells arrive, and
// painting one frame of the map with the heat map and the points. Each is set
// against a bare pass over the same points measured in the same run.

#include "app/map/map_widget.h"
#include "app/places/place_explorer_model.h"
#include "app/places/place_explorer_view.h"
#include "app/shell/user_dialogs.h"
#include "bench/support/event_loop_probe.h"
#include "bench/support/measure.h"
#include "bench/support/no_dialogs.h"
#include "core/base/allocator_tuning.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPainter>
#include <QTimer>
#include <algorithm>
#include <random>

using namespace trackloom;

namespace {

constexpr std::size_t pointCount = 3'000'000;
const PlaceCoordinate home{50.7374, 7.0982};

/// Random walks of 1000 points across Europe, one every half day; every 50th
/// starts at home and each ends in a one-hour visit (as in the core benchmark).
std::shared_ptr<const std::vector<TimelinePoint>> generatedHistory() {
    std::mt19937_64 random(20240501);
    std::uniform_real_distribution<double> latitude(36, 70);
    std::uniform_real_distribution<double> longitude(-10, 40);
    std::normal_distribution<double> step(0, 0.0003);
    auto points = std::make_shared<std::vector<TimelinePoint>>();
    points->reserve(pointCount);
    Instant time = Instant::fromUnixSeconds(1.6e9);
    for (std::int64_t track = 0; points->size() < pointCount; ++track) {
        PlaceCoordinate at =
            track % 50 == 0 ? home : PlaceCoordinate{latitude(random), longitude(random)};
        for (int i = 0; i < 1000 && points->size() < pointCount; ++i) {
            TimelinePoint point;
            point.id = static_cast<std::int64_t>(points->size());
            point.segment = track;
            point.latitude = at.latitude;
            point.longitude = at.longitude;
            point.time = time;
            if (i == 999) {
                point.kind = TimelinePointKind::visit;
                point.endTime = time.advanced(3600);
                point.label = "Halt " + std::to_string(track % 400);
            }
            points->push_back(point);
            at = {at.latitude + step(random), at.longitude + step(random)};
            time = time.advanced(10);
        }
        time = time.advanced(12 * 3600);
    }
    return points;
}

} // namespace

int main(int argc, char** argv) {
    tuneAllocatorForLargeDocuments();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const auto points = generatedHistory();
    bench::NoDialogs dialogs;
    PlaceScope scope{points, std::nullopt, QStringLiteral("Gesamter Verlauf"),
                     date::locate_zone("Europe/Berlin"), std::nullopt};
    constexpr int repetitions = 5;

    volatile double sink = 0;
    const double bare = bench::medianMilliseconds(9, [&] {
        double sum = 0;
        for (const auto& point : *points) {
            sum += point.latitude;
        }
        sink = sum;
    });

    PlaceExplorerModel model(scope, dialogs, nullptr);
    PlaceExplorerView view(nullptr);
    view.resize(1024, 700);
    view.show();
    view.setModel(&model);
    QCoreApplication::processEvents();

    std::vector<double> rebuilds, rebuildPauses;
    for (int i = 0; i < repetitions; ++i) {
        const auto run = bench::untilIdle([&] { return model.working(); },
                                          [&] {
                                              model.setIncludeVisits(i % 2 == 0);
                                              if (i == 0) {
                                                  model.rebuild();
                                              }
                                          });
        rebuilds.push_back(run.milliseconds);
        rebuildPauses.push_back(run.longestPause);
    }
    model.choose(QStringLiteral("Zuhause"), home, true);
    bench::untilIdle([&] { return model.working(); }, [] {});

    std::vector<double> radii, radiusPauses;
    for (int i = 0; i < repetitions * 2; ++i) {
        const auto run = bench::untilIdle([&] { return model.finding(); },
                                          [&] { model.setRadius(i % 2 == 0 ? 500 : 250); });
        radii.push_back(run.milliseconds);
        radiusPauses.push_back(run.longestPause);
    }

    // A pan by a third of the view, back and forth, until the new cells are in.
    MapWidget& map = *view.map();
    std::vector<double> pans, panPauses;
    for (int i = 0; i < repetitions * 2; ++i) {
        const auto generation = model.heat().generation;
        const auto run = bench::untilIdle(
            [&] { return model.heat().generation == generation || model.working(); },
            [&] {
                map.setViewport(map.viewport().panned({i % 2 == 0 ? 340.0 : -340.0, 0}));
            });
        pans.push_back(run.milliseconds);
        panPauses.push_back(run.longestPause);
    }

    QImage frame(map.size(), QImage::Format_ARGB32_Premultiplied);
    const double paint = bench::medianMilliseconds(15, [&] {
        QPainter painter(&frame);
        map.render(&painter);
    });

    bench::report("points", static_cast<double>(points->size()), "");
    bench::report("(a) bare pass over the points, median", bare, "ms");
    bench::report("(b) rebuild until shown, median", bench::median(rebuilds), "ms");
    bench::report("ratio b/a", bench::median(rebuilds) / bare, "");
    bench::report("    longest main-thread pause (goal <= 50 ms)",
                  *std::max_element(rebuildPauses.begin(), rebuildPauses.end()), "ms");
    bench::report("(c) radius change until days show, median (goal <= 100 ms)",
                  bench::median(radii), "ms");
    bench::report("ratio c/a", bench::median(radii) / bare, "");
    bench::report("    days found", static_cast<double>(model.days().size()), "");
    bench::report("(d) pan until heat cells shown, median (goal <= 100 ms)", bench::median(pans),
                  "ms");
    bench::report("ratio d/a", bench::median(pans) / bare, "");
    bench::report("    heat cells in view", static_cast<double>(model.heat().cells.size()), "");
    bench::report("    dots in view", static_cast<double>(model.dots().cells.size()), "");
    bench::report("    longest main-thread pause, radius and pans",
                  std::max(*std::max_element(radiusPauses.begin(), radiusPauses.end()),
                           *std::max_element(panPauses.begin(), panPauses.end())),
                  "ms");
    bench::report("(e) one map frame with heat and points, median (goal <= 16 ms)", paint, "ms");
    bench::report("ratio e/a", paint / bare, "");
    bench::report("peak resident memory", static_cast<double>(bench::peakRSSBytes()) / 1048576.0,
                  "MiB");
    (void)sink;
}
