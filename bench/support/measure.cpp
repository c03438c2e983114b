#include "bench/support/measure.h"

#include <algorithm>
#include <cstdlib>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace trackloom::bench {

double medianMilliseconds(int repetitions, const std::function<void()>& work) {
    std::vector<double> times;
    for (int i = 0; i < repetitions; ++i) {
        const auto start = std::chrono::steady_clock::now();
        work();
        const auto stop = std::chrono::steady_clock::now();
        times.push_back(std::chrono::duration<double, std::milli>(stop - start).count());
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

std::vector<double> interleavedMedianMilliseconds(int repetitions,
                                                  const std::vector<std::function<void()>>& works,
                                                  const std::function<void()>& afterEach) {
    std::vector<std::vector<double>> times(works.size());
    for (int i = 0; i < repetitions; ++i) {
        for (std::size_t w = 0; w < works.size(); ++w) {
            times[w].push_back(medianMilliseconds(1, works[w]));
            if (afterEach) {
                afterEach();
            }
        }
    }
    std::vector<double> medians;
    for (auto& series : times) {
        std::sort(series.begin(), series.end());
        medians.push_back(series[series.size() / 2]);
    }
    return medians;
}

long peakRSSBytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss * 1024L;
}

long peakRSSOfChild(const std::function<void()>& work) {
    const pid_t child = fork();
    if (child == 0) {
        work();
        std::_Exit(0);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    return usage.ru_maxrss * 1024L;
}

void report(const std::string& label, double value, const std::string& unit) {
    std::printf("%-44s %12.3f %s\n", (label + ":").c_str(), value, unit.c_str());
}

std::string benchmarkDataFolder() {
    return TRACKLOOM_BENCH_DATA_DIR;
}

} // namespace trackloom::bench
