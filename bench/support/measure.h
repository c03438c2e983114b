#pragma once

// Timing and memory helpers for the benchmarks. Machines here are noisy, so every
// benchmark reports medians and ratios against a baseline measured in the same run.

#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace trackloom::bench {

/// Median wall time in milliseconds of `repetitions` runs of `work`.
double medianMilliseconds(int repetitions, const std::function<void()>& work);

/// Median wall times in milliseconds of several works, run in turns (a, b, a, b,
/// …) so that load from other processes spreads evenly over all of them.
/// `afterEach` runs untimed after every work, e.g. to free what it built, so
/// that freeing is not counted as building.
std::vector<double> interleavedMedianMilliseconds(int repetitions,
                                                  const std::vector<std::function<void()>>& works,
                                                  const std::function<void()>& afterEach = {});

/// Peak resident set size of this process so far, in bytes.
long peakRSSBytes();

/// Runs `work` in a forked child and returns the child's peak resident set size
/// in bytes, so that several memory figures can be taken in one benchmark run.
long peakRSSOfChild(const std::function<void()>& work);

/// Prints "label: value unit" aligned, for the benchmark reports.
void report(const std::string& label, double value, const std::string& unit);

/// The folder for generated benchmark data (inside the build folder).
std::string benchmarkDataFolder();

} // namespace trackloom::bench
