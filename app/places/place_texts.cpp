// The texts of a found day: its row in the list and its line in the CSV export.

#include "app/places/place_explorer_model.h"
#include "app/shell/date_texts.h"
#include "app/shell/file_names.h"
#include "app/shell/file_paths.h"
#include "core/base/file_io.h"
#include "core/base/gpx_error.h"
#include "core/base/zoned_calendar.h"

#include <QCoreApplication>
#include <algorithm>
#include <cmath>
#include <cstdio>

namespace trackloom {

namespace {

/// Evidence reaching the next midnight (a visit running past it) is written as
/// the end of the day rather than as the next day's 00:00.
bool reachesMidnight(const PlaceDay& day, const date::time_zone& zone) {
    const ZonedCalendar calendar(zone);
    return calendar.day(day.last) != calendar.day(day.day);
}

std::string clockText(Instant instant, const date::time_zone& zone) {
    const auto local = ZonedCalendar(zone).localTime(instant);
    if (!local) {
        return {};
    }
    const auto seconds =
        std::clamp(static_cast<long>(std::floor(local->secondsIntoDay)), 0L, 86399L);
    char text[32];
    std::snprintf(text, sizeof text, "%02ld:%02ld:%02ld", seconds / 3600, seconds / 60 % 60,
                  seconds % 60);
    return text;
}

} // namespace

QString PlaceExplorerModel::dayText(const PlaceDay& day) const {
    return formatDate(day.day, zone(), "EEEddMMyyyy");
}

QString PlaceExplorerModel::evidence(const PlaceDay& day) const {
    const QString first = formatDate(day.first, zone(), "jjmm");
    if (day.first == day.last) {
        return first;
    }
    const QString last = reachesMidnight(day, zone()) ? QStringLiteral("24:00")
                                                      : formatDate(day.last, zone(), "jjmm");
    return first + QStringLiteral(" – ") + last;
}

std::string PlaceExplorerModel::daysCSV() const {
    std::string csv = tr("Tag,Erster Nachweis,Letzter Nachweis,Punkte").toStdString() + "\r\n";
    const ZonedCalendar calendar(zone());
    for (const PlaceDay& day : m_days) {
        const auto local = calendar.day(day.day);
        if (!local) {
            continue;
        }
        const date::year_month_day date(*local);
        char dateText[16];
        std::snprintf(dateText, sizeof dateText, "%04d-%02u-%02u", int(date.year()),
                      unsigned(date.month()), unsigned(date.day()));
        const std::string last =
            reachesMidnight(day, zone()) ? std::string("24:00:00") : clockText(day.last, zone());
        csv += std::string(dateText) + ',' + clockText(day.first, zone()) + ',' + last + ',' +
               std::to_string(day.count) + "\r\n";
    }
    return csv;
}

bool PlaceExplorerModel::exportDays() {
    if (m_days.empty()) {
        return false;
    }
    const QString title = tr("Tage exportieren");
    const QStringList protectedPaths =
        m_scope.sourcePath ? QStringList{*m_scope.sourcePath} : QStringList{};
    const auto destination = m_dialogs.fileToSave(
        title, m_placeName.isEmpty() ? tr("Tage.csv") : tr("Tage – ") + m_placeName + ".csv",
        {tr("CSV-Dateien (*.csv)")}, protectedPaths);
    if (!destination) {
        return false;
    }
    if (const auto refusal = protectedDestinationRefusal(*destination, protectedPaths)) {
        m_dialogs.inform(title, *refusal);
        return false;
    }
    try {
        writeFileAtomically(localPath(*destination), daysCSV());
    } catch (const GPXError& error) {
        m_dialogs.inform(title, QString::fromStdString(error.message()));
        return false;
    }
    return true;
}

} // namespace trackloom
