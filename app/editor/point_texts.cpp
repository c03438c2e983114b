#include "app/editor/point_texts.h"

#include "app/shell/number_texts.h"
#include "app/shell/time_conversion.h"

#include <QCoreApplication>
#include <cmath>

namespace trackloom {
namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("trackloom", text);
}

} // namespace

QString zonedTimeText(std::optional<Instant> time, const date::time_zone& zone) {
    if (!time) {
        return QStringLiteral("–");
    }
    return wallClockOf(*time, zone).toString(tr("dd.MM.yyyy HH:mm:ss")) + QStringLiteral(" ") +
           QString::fromStdString(std::string(zone.name()));
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
