// The timeline workspace's model on the generated 250 MB history: opening it
// until the day list is ready, against the core's import with its day index
// alone; switching to the fullest day; a time-zone change against the core's
// day index of all points; the longest pauses of the main thread meanwhile;
// and the peak memory against the file's size.

#include "app/timeline/timeline_model.h"

#include "app/map/map_widget.h"
#include "app/timeline/timeline_map.h"
#include "bench/support/event_loop_probe.h"
#include "bench/support/large_timeline.h"
#include "bench/support/measure.h"
#include "bench/support/no_dialogs.h"
#include "core/base/allocator_tuning.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QPainter>
#include <filesystem>
#include <future>

using namespace trackloom;

int main(int argc, char** argv) {
    tuneAllocatorForLargeDocuments();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const auto path = bench::ensureLargeTimeline(bench::benchmarkDataFolder());
    const auto fileSize = static_cast<double>(std::filesystem::file_size(path));
    const auto* berlin = date::locate_zone("Europe/Berlin");
    const auto* tokyo = date::locate_zone("Asia/Tokyo");
    constexpr int repetitions = 4;

    bench::NoDialogs dialogs;
    TimelineModel model(dialogs, *berlin);
    const auto busy = [&] { return model.busy(); };
    std::vector<double> opens, openPauses;
    std::vector<double> coreOpens;
    double peakAfterOpen = 0;
    // Model and core take turns, so that load from other processes hits both.
    for (int i = 0; i < repetitions; ++i) {
        const auto load = [&] { model.load(QString::fromStdString(path)); };
        // The first open watches the event loop; the others are timed without
        // the probe's wake-ups, as the baseline runs without them.
        const auto open = bench::untilIdle(busy, load, i == 0);
        if (i == 0) {
            openPauses.push_back(open.longestPause);
        } else {
            opens.push_back(open.milliseconds);
        }
        // Later opens hold the old history until the new one is ready.
        if (i == 0) {
            peakAfterOpen = static_cast<double>(bench::peakRSSBytes());
        }
        // The baseline runs on another thread too, as the model's import does.
        coreOpens.push_back(std::async(std::launch::async, [&] {
                                return bench::medianMilliseconds(1, [&] {
                                    const auto document = TimelineDocument::readFile(path);
                                    makeDayIndex(document.points(), berlin);
                                });
                            }).get());
    }
    const double coreOpen = bench::median(coreOpens);

    // The day with the most points, shown until the model has its points ready.
    const auto fullest = std::max_element(
        model.days().begin(), model.days().end(),
        [](const TimelineDayRow& a, const TimelineDayRow& b) { return a.count < b.count; });
    std::vector<double> switches;
    const auto other = fullest == model.days().begin() ? model.days().back() : model.days().front();
    for (int i = 0; i < 5; ++i) {
        model.selectDay(other.day);
        QElapsedTimer clock;
        clock.start();
        model.selectDay(fullest->day);
        switches.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
    }

    auto allPoints = model.session()->recordedPoints();
    const double coreIndex =
        std::async(std::launch::async, [&] {
            return bench::medianMilliseconds(repetitions, [&] { makeDayIndex(allPoints, tokyo); });
        }).get();
    allPoints = {};
    std::vector<double> zoneChanges, zoneSummaries, zonePauses;
    for (int i = 0; i < repetitions + 1; ++i) {
        const QString zone = i % 2 == 0 ? "Asia/Tokyo" : "Europe/Berlin";
        // The days show in the new zone first; their summaries follow.
        const auto change = bench::untilIdle([&] { return model.zoneIdentifier() != zone; },
                                             [&] { model.changeZone(zone); }, i == 0);
        const auto summaries = bench::untilIdle(
            busy, [] {}, false);
        if (i == 0) {
            zonePauses.push_back(change.longestPause);
        } else {
            zoneChanges.push_back(change.milliseconds);
            zoneSummaries.push_back(change.milliseconds + summaries.milliseconds);
        }
    }

    // A whole year on the map: the lines are prepared once, then every frame
    // draws them again (the tiles are off: no network here).
    TimelineMap map(model, nullptr);
    map.resize(1024, 700);
    map.show();
    const Instant lastDay = model.days().back().day;
    model.setWholeDays(true);
    model.setRangeFrom(lastDay.advanced(-364 * 86400.0));
    model.setRangeTo(lastDay);
    bench::untilIdle([&] { return model.busy() || map.isPreparing(); },
                     [&] { model.applyRange(); });
    const auto yearPoints = model.points().size();
    QImage frame(map.map()->size(), QImage::Format_ARGB32_Premultiplied);
    const double yearFrame = bench::medianMilliseconds(9, [&] {
        QPainter painter(&frame);
        map.map()->render(&painter);
    });

    const double open = bench::median(opens);
    bench::report("ratio open until the day list is ready / core import and day index",
                  open / coreOpen, "");
    bench::report("file size", fileSize / 1048576.0, "MiB");
    bench::report("points", static_cast<double>(model.session()->document().points().size()), "");
    bench::report("days", static_cast<double>(model.days().size()), "");
    bench::report("(a) core import and day index, median", coreOpen, "ms");
    bench::report("(b) model open until the day list is ready, median", open, "ms");
    bench::report("longest main-thread pause while opening", bench::median(openPauses), "ms");
    bench::report("switch to the fullest day (" + std::to_string(fullest->count) + " points)",
                  bench::median(switches), "ms");
    bench::report("(c) core day index of all points, median", coreIndex, "ms");
    bench::report("(d) model zone change until the days are shown, median",
                  bench::median(zoneChanges), "ms");
    bench::report("ratio d/c", bench::median(zoneChanges) / coreIndex, "");
    bench::report("(e) until their summaries are shown too, median", bench::median(zoneSummaries),
                  "ms");
    bench::report("longest main-thread pause during a zone change", bench::median(zonePauses),
                  "ms");
    bench::report("one map frame of a year (" + std::to_string(yearPoints) + " points), median",
                  yearFrame, "ms");
    bench::report("peak resident memory with the history open", peakAfterOpen / 1048576.0, "MiB");
    bench::report("ratio peak memory / file size", peakAfterOpen / fileSize, "");
}
