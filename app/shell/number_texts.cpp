#include "app/shell/number_texts.h"

#include <QCoreApplication>
#include <QLocale>
#include <algorithm>
#include <cmath>

namespace trackloom {
namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("trackloom", text);
}

QString integerText(long long value) {
    return QString::number(value);
}

} // namespace

QString decimalText(double value, int decimals) {
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    // A value that rounds to zero must not read "-0,0".
    const double rounded = std::abs(value) < 0.5 * std::pow(10.0, -decimals) ? 0.0 : value;
    return locale.toString(rounded, 'f', decimals);
}

QString shortDecimalText(double value, int maxDecimals) {
    QString text = decimalText(value, maxDecimals);
    const QString point = QLocale().decimalPoint();
    if (maxDecimals > 0) {
        while (text.endsWith(u'0')) {
            text.chop(1);
        }
        if (text.endsWith(point)) {
            text.chop(point.size());
        }
    }
    return text;
}

QString durationText(double seconds) {
    const auto whole = static_cast<long long>(std::llround(std::max(seconds, 0.0)));
    if (whole < 3600) {
        return tr("%1 min %2 s").arg(integerText(whole / 60), integerText(whole % 60));
    }
    return tr("%1 h %2 min").arg(integerText(whole / 3600), integerText(whole % 3600 / 60));
}

QString distanceText(double metres) {
    if (metres < 999.5) {
        return tr("%1 m").arg(decimalText(std::max(metres, 0.0), 0));
    }
    return tr("%1 km").arg(decimalText(metres / 1000.0, 1));
}

} // namespace trackloom
