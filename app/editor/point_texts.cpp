#include "app/editor/point_texts.h"

#include "app/shell/number_texts.h"
#include "app/shell/time_conversion.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace trackloom {
namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("trackloom", text);
}

} // namespace

QString zoneText(const date::time_zone& zone) {
    // A system's zone files may hold UTC under each of its names as a zone of its own.
    static constexpr std::array<std::string_view, 8> utcNames = {
        "UTC", "Etc/UTC", "UCT", "Etc/UCT", "Universal", "Etc/Universal", "Zulu", "Etc/Zulu"};
    const auto name = zone.name();
    return std::find(utcNames.begin(), utcNames.end(), name) != utcNames.end()
               ? QStringLiteral("UTC")
               : QString::fromStdString(std::string(name));
}

QString zonedTimeText(std::optional<Instant> time, const date::time_zone& zone) {
    if (!time) {
        return QStringLiteral("–");
    }
    return wallClockOf(*time, zone).toString(tr("dd.MM.yyyy HH:mm:ss")) + QStringLiteral(" ") +
           zoneText(zone);
}

QString coordinateText(const Coordinate& coordinate) {
    const auto degrees = [](double value, const QString& positive, const QString& negative) {
        return decimalText(std::abs(value), 5) + QStringLiteral("° ") +
               (value < 0 ? negative : positive);
    };
    return degrees(coordinate.latitude, tr("N"), tr("S")) + QStringLiteral(", ") +
           degrees(coordinate.longitude, tr("O"), tr("W"));
}

QString elevationText(std::optional<double> metres) {
    return metres ? shortDecimalText(*metres, 1) + QStringLiteral(" m") : QStringLiteral("–");
}

} // namespace trackloom
