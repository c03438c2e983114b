#include "app/editor/point_details.h"

#include "app/editor/point_texts.h"
#include "app/shell/number_texts.h"
#include "core/track/sensor_readings.h"

#include <QCoreApplication>
#include <algorithm>

namespace trackloom {
namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("trackloom", text);
}

} // namespace

std::vector<PointDetail> pointDetails(const GPXTrack& track, std::int64_t pointID,
                                      const date::time_zone& zone) {
    const auto& points = track.points();
    if (pointID < 0 || pointID >= static_cast<std::int64_t>(points.size())) {
        return {};
    }
    const TrackPoint& point = points[static_cast<std::size_t>(pointID)];
    const auto section = std::ranges::find(track.segments(), point.segment, &GPXSegment::id);
    std::vector<PointDetail> details{
        {tr("Punkt"), QString::number(pointID + 1) + tr(" von ") + QString::number(points.size())},
        {tr("Abschnitt"), section == track.segments().end()
                              ? QStringLiteral("–")
                              : QString::fromStdString(section->name)},
        {tr("Zeit"), point.invalidTime ? tr("unlesbar") : zonedTimeText(point.time, zone)},
        {tr("Koordinaten"), coordinateText({point.latitude, point.longitude})},
        {tr("Höhe"), elevationText(point.elevation)},
    };
    const auto readings = sensorReadings(track, pointID);
    const auto add = [&](const char* label, const std::optional<double>& value, int decimals,
                         const QString& unit) {
        if (value) {
            details.push_back({tr(label), shortDecimalText(*value, decimals) + unit});
        }
    };
    add(QT_TRANSLATE_NOOP("trackloom", "Herzfrequenz"), readings.heartRate, 0, tr(" /min"));
    add(QT_TRANSLATE_NOOP("trackloom", "Trittfrequenz"), readings.cadence, 0, tr(" /min"));
    add(QT_TRANSLATE_NOOP("trackloom", "Temperatur"), readings.temperature, 1, tr(" °C"));
    add(QT_TRANSLATE_NOOP("trackloom", "Geschwindigkeit"), readings.speed, 1, tr(" km/h"));
    return details;
}

} // namespace trackloom
