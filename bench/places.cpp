// The place explorer's two passes over a large history: the days near a place
// for a 250 m radius, and the heat cells of a city-sized view. Each is compared
// with a bare pass over the same data that only sums one coordinate, the floor
// that reading the memory sets.

#include "bench/support/measure.h"
#include "core/base/allocator_tuning.h"
#include "core/places/heat_cells.h"
#include "core/places/place_analysis.h"

#include <random>

using namespace trackloom;

namespace {

constexpr std::size_t pointCount = 3'000'000;
constexpr std::size_t pointsPerTrack = 1000;
const PlaceCoordinate home{50.7374, 7.0982};

/// Tracks of random walks from random places across Europe, one every half day
/// for about four years; every 50th starts at home, as a real history returns
/// there. Each track ends in a one-hour visit.
std::vector<TimelinePoint> generatedHistory() {
    std::mt19937_64 random(20240501);
    std::uniform_real_distribution<double> latitude(36, 70);
    std::uniform_real_distribution<double> longitude(-10, 40);
    std::normal_distribution<double> step(0, 0.0003);
    std::vector<TimelinePoint> points;
    points.reserve(pointCount);
    Instant time = Instant::fromUnixSeconds(1.6e9);
    for (std::int64_t track = 0; points.size() < pointCount; ++track) {
        PlaceCoordinate at =
            track % 50 == 0 ? home : PlaceCoordinate{latitude(random), longitude(random)};
        for (std::size_t i = 0; i < pointsPerTrack && points.size() < pointCount; ++i) {
            const bool last = i + 1 == pointsPerTrack;
            TimelinePoint point;
            point.id = static_cast<std::int64_t>(points.size());
            point.segment = track;
            point.kind = last ? TimelinePointKind::visit : TimelinePointKind::path;
            point.latitude = at.latitude;
            point.longitude = at.longitude;
            point.time = time;
            if (last) {
                point.endTime = time.advanced(3600);
            }
            points.push_back(point);
            at = {at.latitude + step(random), at.longitude + step(random)};
            time = time.advanced(10);
        }
        time = time.advanced(12 * 3600);
    }
    return points;
}

std::vector<HeatSample> projected(const std::vector<TimelinePoint>& points) {
    std::vector<HeatSample> samples;
    samples.reserve(points.size());
    for (const auto& point : points) {
        samples.push_back(HeatSample::projecting({point.latitude, point.longitude}));
    }
    return samples;
}

} // namespace

int main() {
    tuneAllocatorForLargeDocuments();
    const auto points = generatedHistory();
    const auto samples = projected(points);
    const auto& zone = *date::locate_zone("Europe/Berlin");

    // A 20 km square around home, two cells of margin, cells of 22 points on a
    // 1000-point-wide view, as the map asks for them.
    const double width = 20000 / 40075016.686;
    const double cellSize = width / 1000 * 22;
    const auto centre = HeatSample::projecting(home);
    const HeatRegion city{centre.x - width / 2 - 2 * cellSize, centre.y - width / 2 - 2 * cellSize,
                          width + 4 * cellSize, width + 4 * cellSize};

    volatile double sink = 0;
    std::size_t dayCount = 0;
    std::size_t cellCount = 0;
    constexpr int repetitions = 9;
    const auto medians = bench::interleavedMedianMilliseconds(
        repetitions,
        {[&] {
             double sum = 0;
             for (const auto& point : points) {
                 sum += point.latitude;
             }
             sink = sum;
         },
         [&] { dayCount = PlaceAnalysis::days(home, 250, points, zone).size(); },
         [&] {
             double sum = 0;
             for (const auto& sample : samples) {
                 sum += sample.y;
             }
             sink = sum;
         },
         [&] { cellCount = PlaceAnalysis::heatCells(samples, city, cellSize).size(); }});

    const auto perPoint = [](double milliseconds) { return milliseconds * 1e6 / pointCount; };
    bench::report("points", static_cast<double>(points.size()), "");
    bench::report("(a) sum of point latitudes, median", perPoint(medians[0]), "ns/point");
    bench::report("(b) days near a place (250 m), median", perPoint(medians[1]), "ns/point");
    bench::report("    days found", static_cast<double>(dayCount), "");
    bench::report("ratio b/a (goal <= 3)", medians[1] / medians[0], "");
    bench::report("(c) sum of sample y, median", perPoint(medians[2]), "ns/point");
    bench::report("(d) heat cells of a 20 km view, median", perPoint(medians[3]), "ns/point");
    bench::report("    cells found", static_cast<double>(cellCount), "");
    bench::report("ratio d/a (goal <= 6)", medians[3] / medians[0], "");
    bench::report("ratio d/c (against its own input)", medians[3] / medians[2], "");
    bench::report("peak RSS", static_cast<double>(bench::peakRSSBytes()) / 1048576.0, "MiB");
}
