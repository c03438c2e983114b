#pragma once

// A small history around Bonn for the timeline's screens: three days, each a
// walk of two sections with a stay between them, written as a working copy.

#include "app/timeline/timeline_model.h"
#include "core/timeline/timeline_document.h"
#include "tests/app/support/qt_test_application.h"
#include "tests/app/support/scripted_dialogs.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace trackloom::testing {

/// 2025-06-01 00:00 UTC as seconds since the reference.
inline constexpr double firstDay = 770428800;

inline std::vector<TimelinePoint> bonnHistory(int days = 3, int pointsPerWalk = 30) {
    std::vector<TimelinePoint> points;
    std::int64_t id = 1;
    std::int64_t segment = 1;
    const auto add = [&](TimelinePointKind kind, double latitude, double longitude, double time,
                         std::optional<double> end, std::string label) {
        TimelinePoint point;
        point.id = id++;
        point.segment = segment;
        point.kind = kind;
        point.latitude = latitude;
        point.longitude = longitude;
        point.time = Instant(time);
        if (end) {
            point.endTime = Instant(*end);
        }
        point.label = std::move(label);
        points.push_back(point);
    };
    for (int day = 0; day < days; ++day) {
        const double morning = firstDay + day * 86400.0 + 8 * 3600;
        for (int i = 0; i < pointsPerWalk; ++i) {
            add(TimelinePointKind::path, 50.7300 + i * 0.0004, 7.0900 + i * 0.0006,
                morning + i * 60, std::nullopt, {});
        }
        ++segment;
        add(TimelinePointKind::visit, 50.7374, 7.0982, morning + 3600, morning + 5 * 3600,
            day == 1 ? "Botanischer Garten Poppelsdorf" : "Hofgarten");
        ++segment;
        add(TimelinePointKind::activity, 50.7374, 7.0982, morning + 5 * 3600, std::nullopt, {});
        add(TimelinePointKind::activity, 50.7200, 7.1200, morning + 5.5 * 3600, std::nullopt, {});
        ++segment;
        for (int i = 0; i < pointsPerWalk; ++i) {
            add(TimelinePointKind::path, 50.7200 - i * 0.0003, 7.1200 - i * 0.0002,
                morning + 6 * 3600 + i * 60, std::nullopt, {});
        }
        ++segment;
    }
    return points;
}

/// Writes `points` as a working copy into `folder` and returns its path.
inline QString writeHistory(const QTemporaryDir& folder, const std::vector<TimelinePoint>& points,
                            const QString& name = QStringLiteral("Verlauf.gpxhistory")) {
    const QString path = folder.filePath(name);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    const auto bytes = TimelineDocument::workingCopy(points);
    file.write(bytes.data(), static_cast<qint64>(bytes.size()));
    return path;
}

/// Runs the event loop until `busy` is false (at most half a minute).
template <typename Busy> void settle(Busy busy) {
    const QDeadlineTimer deadline(30000);
    while (busy() && !deadline.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    QCoreApplication::processEvents();
    ASSERT_FALSE(busy());
}

} // namespace trackloom::testing
