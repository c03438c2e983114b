#pragma once

// The editor model under test: one QCoreApplication for the executable (no
// widgets), settings in a temporary ini file, dialogs answered from a script,
// and small GPX documents written to a temporary folder.

#include "app/editor/editor_model.h"
#include "tests/app/support/core_test_application.h"
#include "tests/app/support/scripted_dialogs.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace trackloom::testing {

/// ScriptedDialogs that also record what each save dialog suggested and protected.
struct RecordingDialogs : ScriptedDialogs {
    std::vector<std::pair<QString, QString>> saveRequests;
    std::vector<QStringList> protectedPaths;

    std::optional<QString> fileToSave(const QString& title, const QString& suggestedName,
                                      const QStringList& filters,
                                      const QStringList& protectedPaths) override {
        saveRequests.emplace_back(title, suggestedName);
        this->protectedPaths.push_back(protectedPaths);
        return ScriptedDialogs::fileToSave(title, suggestedName, filters, protectedPaths);
    }
};

/// A point of a test document; `time` is seconds after 2025-06-01T10:00:00Z.
struct TestPoint {
    double latitude = 0;
    double longitude = 0;
    std::optional<double> time;
};

inline Instant testTime(double seconds) {
    return GPXTrack::parseTime("2025-06-01T10:00:00Z")->advanced(seconds);
}

/// Points going north from 48.1/11.5 about 111 m apart, one every `step` seconds.
inline std::vector<TestPoint> walk(int count, double firstTime = 0, double step = 60,
                                   double startLatitude = 48.1) {
    std::vector<TestPoint> points;
    for (int i = 0; i < count; ++i) {
        points.push_back({startLatitude + 0.001 * i, 11.5, firstTime + step * i});
    }
    return points;
}

inline std::string pointElements(const std::vector<TestPoint>& points, const char* tag) {
    std::string text;
    for (const auto& point : points) {
        text += "<" + std::string(tag) + " lat=\"" + std::to_string(point.latitude) + "\" lon=\"" +
                std::to_string(point.longitude) + "\">";
        if (point.time) {
            text += "<time>" + GPXTrack::formatTime(testTime(*point.time)) + "</time>";
        }
        text += "</" + std::string(tag) + ">";
    }
    return text;
}

/// A GPX document with one track of the given segments, then `routes` (each
/// becomes an rte), in version "1.1" or "1.0".
inline std::string gpxDocument(const std::vector<std::vector<TestPoint>>& segments,
                               const std::string& name = "Runde",
                               const std::vector<std::vector<TestPoint>>& routes = {},
                               const std::string& version = "1.1") {
    std::string text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?><gpx xmlns=\"http://www.topografix.com/GPX/" +
        std::string(version == "1.0" ? "1/0" : "1/1") + "\" version=\"" + version +
        "\" creator=\"test\"><trk><name>" + name + "</name>";
    for (const auto& segment : segments) {
        text += "<trkseg>" + pointElements(segment, "trkpt") + "</trkseg>";
    }
    text += "</trk>";
    for (const auto& route : routes) {
        text += "<rte>" + pointElements(route, "rtept") + "</rte>";
    }
    return text + "</gpx>";
}

class EditorModelTest : public ::testing::Test {
  protected:
    EditorModelTest()
        : store((coreApplication(), folder.filePath("settings.ini")), QSettings::IniFormat) {}

    /// Created on first use, so that a test can prepare the settings first.
    EditorModel& model() {
        if (!m_model) {
            m_model = std::make_unique<EditorModel>(store, dialogs, *date::locate_zone(zoneName));
        }
        return *m_model;
    }

    QString write(const QString& name, const std::string& content) {
        const QString path = folder.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content.data(), static_cast<qint64>(content.size()));
        return path;
    }

    /// Lets background work finish and its results arrive.
    void settle() {
        const QDeadlineTimer deadline(30000);
        while (model().busy() && !deadline.hasExpired()) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        }
        ASSERT_FALSE(model().busy());
    }

    void open(const QString& path) {
        model().load(path);
        settle();
        ASSERT_TRUE(model().track()) << model().error().value_or("").toStdString();
    }

    void openDocument(const std::string& content, const QString& name = "runde.gpx") {
        open(write(name, content));
    }

    void openSample() {
        model().demo();
        settle();
    }

    QString error() const { return m_model->error().value_or(QString()); }

    std::string zoneName = "UTC";
    QTemporaryDir folder;
    QSettings store;
    RecordingDialogs dialogs;

  private:
    std::unique_ptr<EditorModel> m_model;
};

} // namespace trackloom::testing
