// Painting the ~50 MB generated track, coloured by speed, into an offscreen map
// at three zoom levels. The baseline is the same map without the track; a frame
// must stay within 16 ms for panning and zooming to feel fluid. With a folder as
// argument the measured frames are also written there as PNG, to look at.

#include "app/map/map_widget.h"
#include "app/map/polyline_overlay.h"
#include "app/map/tile_source.h"
#include "bench/support/large_gpx.h"
#include "bench/support/measure.h"
#include "core/base/allocator_tuning.h"
#include "core/base/file_io.h"
#include "core/track/gpx_track.h"
#include "core/track/speed_scale.h"

#include <QApplication>
#include <QImage>
#include <chrono>
#include <unordered_map>

using namespace trackloom;

namespace {

std::vector<MapPolyline> speedColouredLines(const GPXTrack& track) {
    const SpeedScale scale = SpeedScale::of(track.analysis());
    std::unordered_map<std::int64_t, const TrackPoint*> byID;
    for (const TrackPoint& point : track.points()) {
        byID.emplace(point.id, &point);
    }
    std::vector<MapPolyline> lines;
    for (const GPXSegment& segment : track.segments()) {
        MapPolyline line;
        for (std::int64_t id : segment.pointIDs) {
            const TrackPoint& point = *byID.at(id);
            line.points.push_back({point.latitude, point.longitude});
            const auto value = scale.values.find(id);
            line.legColors.push_back(
                value == scale.values.end()
                    ? QColor(Qt::gray)
                    : QColor::fromHsvF(float((1 - value->second) * 0.33), 0.9f, 0.85f));
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

double millisecondsSince(std::chrono::steady_clock::time_point since) {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - since)
        .count();
}

} // namespace

int main(int argc, char** argv) {
    tuneAllocatorForLargeDocuments();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const auto path = bench::ensureLargeGPX(bench::benchmarkDataFolder());
    const TrackPtr track = GPXTrack::read(readFileBytes(path), path.filename().string());
    const auto lines = speedColouredLines(*track);

    const auto prepareStart = std::chrono::steady_clock::now();
    auto overlay = std::make_shared<PolylineOverlay>();
    overlay->setPolylines(lines);
    const double preparation = millisecondsSince(prepareStart);

    TileSource offline(QString(), QString(), nullptr);
    MapWidget map(&offline);
    map.resize(1280, 800);
    std::vector<Coordinate> all;
    for (const MapPolyline& line : lines) {
        all.insert(all.end(), line.points.begin(), line.points.end());
    }
    map.fitCoordinates(all);
    const MapViewport overview = map.viewport();
    const QPointF middle = overview.toScreen(all[all.size() / 3]);
    const std::vector<std::pair<std::string, MapViewport>> levels{
        {"whole track", overview},
        {"4 levels closer", overview.zoomed(4, middle)},
        {"street level", overview.zoomed(16 - overview.zoom(), middle)}};

    QImage frame(map.size(), QImage::Format_ARGB32_Premultiplied);
    constexpr int repetitions = 15;
    const double empty = bench::medianMilliseconds(repetitions, [&] { map.render(&frame); });
    map.addOverlay(overlay);

    bench::report("points", static_cast<double>(all.size()), "");
    bench::report("preparing the line (once per track)", preparation, "ms");
    bench::report("(a) empty map frame, median", empty, "ms");
    for (const auto& [label, viewport] : levels) {
        map.setViewport(viewport);
        const double ms = bench::medianMilliseconds(repetitions, [&] { map.render(&frame); });
        bench::report("zoom of: " + label, viewport.zoom(), "");
        bench::report("(b) frame, median (goal <= 16)", ms, "ms");
        bench::report("ratio b/a", ms / empty, "");
        if (argc > 1) {
            frame.save(QString("%1/map_paint_%2.png").arg(argv[1]).arg(viewport.zoom(), 0, 'f', 0));
        }
    }
}
