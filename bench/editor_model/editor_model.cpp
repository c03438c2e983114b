// The track editor on the ~50 MB generated track: opening the file through the
// model, and one edit (deleting a point in the middle), each timed until its
// result is shown. The baseline is reading the same bytes into a GPXTrack. The
// window must not freeze meanwhile, so the longest pause of the main thread's
// event loop is reported too, once for the model alone and once with the
// editor's screens attached (they prepare the map, table and profile). The
// memory of a session of ten edits is measured first, in a child process.

#include "app/editor/editor_model.h"

#include "app/editor/editor_commands.h"
#include "app/editor/editor_view.h"
#include "app/editor/map_editor.h"
#include "app/shell/user_dialogs.h"
#include "bench/support/event_loop_probe.h"
#include "bench/support/large_gpx.h"
#include "bench/support/measure.h"
#include "bench/support/no_dialogs.h"
#include "core/base/allocator_tuning.h"
#include "core/base/file_io.h"

#include <QApplication>
#include <QTemporaryDir>
#include <future>
#include <memory>

using namespace trackloom;

namespace {

/// The peak memory of opening `file` in the model and deleting ten points, one
/// after the other, in a child process (forked before this process has threads).
long peakOfTenEdits(int argc, char** argv, const QString& file) {
    return bench::peakRSSOfChild([&] {
        QCoreApplication application(argc, argv);
        QTemporaryDir folder;
        QSettings settings(folder.filePath("settings.ini"), QSettings::IniFormat);
        bench::NoDialogs dialogs;
        EditorModel model(settings, dialogs, *date::locate_zone("UTC"));
        const auto busy = [&] { return model.busy(); };
        bench::untilIdle(busy, [&] { model.load(file); }, false);
        for (int edit = 0; edit < 10; ++edit) {
            bench::untilIdle(
                busy,
                [&] {
                    model.selectPoint(1000 + edit * 20011);
                    model.deleteSelected();
                },
                false);
        }
    });
}

} // namespace

int main(int argc, char** argv) {
    tuneAllocatorForLargeDocuments();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const auto path = bench::ensureLargeGPX(bench::benchmarkDataFolder());
    const QString file = QString::fromStdString(path.string());
    const long tenEdits = peakOfTenEdits(argc, argv, file);
    QApplication application(argc, argv);
    const auto bytes = readFileBytes(path);
    QTemporaryDir folder;
    QSettings settings(folder.filePath("settings.ini"), QSettings::IniFormat);
    bench::NoDialogs dialogs;
    constexpr int repetitions = 3;

    // Read on another thread, as the editor does, so that the main thread's
    // heap is not left with the fragments of freed documents.
    const double read = std::async(std::launch::async, [&] {
                            return bench::medianMilliseconds(repetitions, [&] {
                                GPXTrack::read(bytes, path.filename().string());
                            });
                        }).get();

    EditorModel model(settings, dialogs, *date::locate_zone("UTC"));
    const auto modelBusy = [&] { return model.busy(); };
    std::vector<double> opens, openPauses, edits, editPauses;
    for (int i = 0; i < repetitions; ++i) {
        const bench::EventLoopRun open = bench::untilIdle(modelBusy, [&] { model.load(file); });
        opens.push_back(open.milliseconds);
        openPauses.push_back(open.longestPause);
        const auto middle = static_cast<std::int64_t>(model.track()->points().size() / 2);
        const bench::EventLoopRun edit = bench::untilIdle(modelBusy, [&] {
            model.selectPoint(middle);
            model.deleteSelected();
        });
        edits.push_back(edit.milliseconds);
        editPauses.push_back(edit.longestPause);
    }

    EditorCommands commands(model);
    EditorView view(model, commands, nullptr);
    view.resize(1280, 800);
    view.show();
    const auto screensBusy = [&] { return model.busy() || view.mapEditor()->isPreparing(); };
    const bench::EventLoopRun shownOpen = bench::untilIdle(screensBusy, [&] { model.load(file); });
    const bench::EventLoopRun shownEdit = bench::untilIdle(screensBusy, [&] {
        model.selectPoint(static_cast<std::int64_t>(model.track()->points().size() / 2));
        model.deleteSelected();
    });

    bench::report("file size", static_cast<double>(bytes.size()) / 1048576.0, "MiB");
    bench::report("points", static_cast<double>(model.track()->points().size()), "");
    bench::report("(a) GPXTrack::read, median", read, "ms");
    bench::report("(b) model open until shown, median", bench::median(opens), "ms");
    bench::report("ratio b/a", bench::median(opens) / read, "");
    bench::report("(c) delete one point until shown, median", bench::median(edits), "ms");
    bench::report("ratio c/a", bench::median(edits) / read, "");
    bench::report("longest main-thread pause, open (model)", bench::median(openPauses), "ms");
    bench::report("longest main-thread pause, edit (model)", bench::median(editPauses), "ms");
    bench::report("longest main-thread pause, open (screens)", shownOpen.longestPause, "ms");
    bench::report("longest main-thread pause, edit (screens)", shownEdit.longestPause, "ms");
    bench::report("peak resident memory", static_cast<double>(bench::peakRSSBytes()) / 1048576.0,
                  "MiB");
    bench::report("peak resident memory, opened and 10 edits (goal <= 1536)",
                  static_cast<double>(tenEdits) / 1048576.0, "MiB");
}
