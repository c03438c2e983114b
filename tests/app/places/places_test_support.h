#pragma once

// The place explorer's model under test: one QCoreApplication in German, a
// scripted online search that records every request and answers only when told
// to, histories built point by point, and a wait for the model's background work.

#include "app/places/place_explorer_model.h"
#include "tests/app/support/core_test_application.h"
#include "tests/app/support/scripted_dialogs.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QLocale>
#include <QThread>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace trackloom::testing {

struct ScriptedSearch : OnlinePlaceSearch {
    std::vector<QString> requests;
    int cancels = 0;
    Done pending;

    void search(const QString& text, Done done) override {
        requests.push_back(text);
        pending = std::move(done);
    }
    void cancel() override {
        ++cancels;
        pending = nullptr;
    }
    /// Answers the running request, as the service would, later on the main thread.
    void answer(OnlineSearchResult result) {
        ASSERT_TRUE(pending) << "no request is running";
        auto done = std::move(pending);
        pending = nullptr;
        done(std::move(result));
    }
};

/// Europe/Berlin, where 2025-06-01 starts at 2025-05-31T22:00:00Z.
inline const date::time_zone& berlin() {
    return *date::locate_zone("Europe/Berlin");
}

/// An instant given as Berlin summer time on a June 2025 day.
inline Instant juneTime(int day, int hour, int minute = 0) {
    return Instant::fromUnixSeconds(1748736000.0 + (day - 1) * 86400.0 + (hour - 2) * 3600.0 +
                                    minute * 60.0);
}

inline TimelinePoint pathPoint(double latitude, double longitude, Instant time) {
    TimelinePoint point;
    point.latitude = latitude;
    point.longitude = longitude;
    point.time = time;
    return point;
}

inline TimelinePoint visit(std::string label, double latitude, double longitude, Instant start,
                           std::optional<Instant> end = std::nullopt) {
    TimelinePoint point = pathPoint(latitude, longitude, start);
    point.kind = TimelinePointKind::visit;
    point.label = std::move(label);
    point.endTime = end;
    return point;
}

inline PlaceScope scopeOf(std::vector<TimelinePoint> points,
                          std::optional<DateInterval> interval = std::nullopt) {
    for (std::size_t i = 0; i < points.size(); ++i) {
        points[i].id = static_cast<std::int64_t>(i);
    }
    return {std::make_shared<const std::vector<TimelinePoint>>(std::move(points)), interval,
            QStringLiteral("Gesamter Verlauf"), &berlin(), std::nullopt};
}

/// Runs the event loop until the model's background work is done.
inline void waitForIdle(const PlaceExplorerModel& model, int milliseconds = 10000) {
    const QDeadlineTimer deadline(milliseconds);
    do {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        if (model.working()) {
            QThread::msleep(2);
        }
    } while (model.working() && !deadline.hasExpired());
    QCoreApplication::processEvents();
    ASSERT_FALSE(model.working()) << "background work did not end";
}

class PlacesModelTest : public ::testing::Test {
  protected:
    PlacesModelTest() { coreApplication(); }

    PlaceExplorerModel& open(std::vector<TimelinePoint> points,
                             std::optional<DateInterval> interval = std::nullopt) {
        model = std::make_unique<PlaceExplorerModel>(scopeOf(std::move(points), interval), dialogs,
                                                     &search);
        model->rebuild();
        waitForIdle(*model);
        return *model;
    }

    ScriptedDialogs dialogs;
    ScriptedSearch search;
    std::unique_ptr<PlaceExplorerModel> model;
};

} // namespace trackloom::testing
