#include "bench/support/event_loop_probe.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>

namespace trackloom::bench {

namespace {
// Fine enough to see a 16 ms frame, coarse enough not to load the loop.
constexpr int probeInterval = 2;
} // namespace

EventLoopRun untilIdle(const std::function<bool()>& busy, const std::function<void()>& request,
                       bool probePauses) {
    QElapsedTimer clock;
    qint64 lastTick = 0;
    double longestPause = 0;
    QTimer probe;
    probe.setInterval(probeInterval);
    QObject::connect(&probe, &QTimer::timeout, [&] {
        const qint64 now = clock.elapsed();
        longestPause = std::max(longestPause, static_cast<double>(now - lastTick - probeInterval));
        lastTick = now;
    });
    clock.start();
    if (probePauses) {
        probe.start();
    }
    request();
    longestPause = probePauses ? std::max(longestPause, static_cast<double>(clock.elapsed())) : 0;
    lastTick = clock.elapsed();
    // Sleeps between events: the overload with a time limit would spin and
    // take a core from the work being timed. The timer makes sure the loop
    // looks at `busy` now and then even when nothing else happens.
    QTimer wake;
    wake.start(50);
    while (busy()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    QCoreApplication::processEvents();
    return {static_cast<double>(clock.elapsed()), longestPause};
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace trackloom::bench
