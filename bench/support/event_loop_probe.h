#pragma once

// Timing a view model's background work as a user sees it: from the request
// until the model is idle again, with the longest time the main thread's event
// loop could not answer (a frozen window), probed every 2 ms.

#include <functional>
#include <vector>

namespace trackloom::bench {

struct EventLoopRun {
    double milliseconds = 0;
    double longestPause = 0;
};

/// Starts `request`, then runs the event loop until `busy` turns false. The
/// probe wakes the loop every 2 ms, which costs a little of a core: timings
/// that are compared with work off the event loop are taken without it
/// (`longestPause` is then 0).
EventLoopRun untilIdle(const std::function<bool()>& busy, const std::function<void()>& request,
                       bool probePauses = true);

double median(std::vector<double> values);

} // namespace trackloom::bench
