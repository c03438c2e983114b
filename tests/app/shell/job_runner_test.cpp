#include "app/shell/job_runner.h"
#include "core/timeline/timeline_day_index.h"
#include "tests/app/support/qt_test_application.h"

#include <QSignalSpy>
#include <QTest>
#include <QThread>
#include <atomic>
#include <gtest/gtest.h>
#include <latch>
#include <stdexcept>

namespace trackloom {
namespace {

class JobRunnerTest : public testing::ApplicationTest {
  protected:
    /// Processes events until the runner has no current job.
    void waitUntilIdle() {
        ASSERT_TRUE(QTest::qWaitFor([this] { return !runner.isBusy(); }, 10000));
        // Stale results and retired values are handled by queued calls too.
        QTest::qWait(20);
    }

    JobRunner runner;
    std::vector<int> results;
    QStringList failures;
    JobRunner::Done<int> record = [this](int value) { results.push_back(value); };
    JobRunner::Failed fail = [this](const QString& text) { failures.push_back(text); };
};

TEST_F(JobRunnerTest, TheNewestJobOfALaneWinsAndOtherLanesRunBesideIt) {
    std::latch release(1);
    QSignalSpy busy(&runner, &JobRunner::busyChanged);
    // The first job finishes only after it was replaced; it must not be shown.
    runner.start<int>(
        0,
        [&](const JobContext&) {
            release.wait();
            return 1;
        },
        record, fail);
    runner.start<int>(
        0, [](const JobContext&) { return 2; }, record, fail);
    runner.start<int>(
        1, [](const JobContext&) { return 3; }, record, fail);
    EXPECT_TRUE(runner.isRunning(0));
    release.count_down();
    waitUntilIdle();
    std::sort(results.begin(), results.end());
    EXPECT_EQ(results, (std::vector<int>{2, 3}));
    EXPECT_TRUE(failures.isEmpty());
    ASSERT_EQ(busy.count(), 2);
    EXPECT_TRUE(busy.at(0).at(0).toBool());
    EXPECT_FALSE(busy.at(1).at(0).toBool());
}

TEST_F(JobRunnerTest, CancellingStopsTheCoreFunctionAndDeliversNothing) {
    std::atomic<bool> started = false;
    std::atomic<bool> stopped = false;
    const std::vector<TimelinePoint> points(100'000, TimelinePoint{});
    runner.start<int>(
        0,
        [&](const JobContext& context) -> int {
            started = true;
            // Indexes again and again until the stop reaches the index itself.
            try {
                for (;;) {
                    makeDayIndex(points, date::locate_zone("Europe/Berlin"), context.token());
                }
            } catch (const CancellationError&) {
                stopped = true;
                throw;
            }
        },
        record, fail);
    ASSERT_TRUE(QTest::qWaitFor([&] { return started.load(); }, 5000));
    runner.cancel(0);
    EXPECT_FALSE(runner.isBusy());
    ASSERT_TRUE(QTest::qWaitFor([&] { return stopped.load(); }, 10000));
    QTest::qWait(20);
    EXPECT_TRUE(results.empty());
    EXPECT_TRUE(failures.isEmpty());
}

TEST_F(JobRunnerTest, FailuresBecomeTextsAndNeverEndTheProgram) {
    runner.start<int>(
        0, [](const JobContext&) -> int { throw GPXError("Die Datei ist größer als 250 MB."); },
        record, fail);
    waitUntilIdle();
    runner.start<int>(
        0, [](const JobContext&) -> int { throw std::runtime_error("vector::_M_range_check"); },
        record, fail);
    waitUntilIdle();
    // A failure while the result is applied on the main thread is caught too.
    runner.start<int>(
        0, [](const JobContext&) { return 1; }, [](int) { throw std::logic_error("unexpected"); },
        fail);
    waitUntilIdle();
    ASSERT_EQ(failures.size(), 3);
    EXPECT_EQ(failures[0], QStringLiteral("Die Datei ist größer als 250 MB."));
    EXPECT_EQ(failures[1],
              QStringLiteral("Unerwarteter interner Fehler. Die bisherigen Daten bleiben "
                             "unverändert."));
    EXPECT_EQ(failures[2], failures[1]);
    EXPECT_FALSE(runner.isBusy());
}

TEST_F(JobRunnerTest, ProgressOfTheCurrentJobReachesTheMainThreadInOrder) {
    QSignalSpy progress(&runner, &JobRunner::progressChanged);
    runner.start<int>(
        3,
        [](const JobContext& context) {
            const auto report = context.progressBetween(0.5, 1.0);
            for (int step = 0; step <= 4; ++step) {
                report(step / 4.0);
                QThread::msleep(5);
            }
            return 0;
        },
        record, fail);
    waitUntilIdle();
    ASSERT_GE(progress.count(), 1);
    double last = 0;
    for (const auto& arguments : progress) {
        EXPECT_EQ(arguments.at(0).toInt(), 3);
        const double share = arguments.at(1).toDouble();
        EXPECT_GE(share, 0.5);
        EXPECT_GE(share, last);
        last = share;
    }
}

} // namespace
} // namespace trackloom
