// The editor's map keeps what the user chose in sight: a point chosen outside
// the view brings the map to it at the same zoom, and an appended track is
// shown whole.

#include "app/editor/map_editor.h"
#include "app/map/map_widget.h"
#include "tests/app/editor/views/editor_screens.h"

#include <QFile>

namespace trackloom {
namespace {

class MapFollowing : public testing::EditorScreens {
  protected:
    void SetUp() override {
        show(editor);
        loadSample();
        while (editor.isPreparing()) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        }
    }

    bool inView(std::size_t point) const {
        const QPointF at = map().viewport().toScreen(model.mapPoints().at(point).coordinate);
        return QRectF(map().rect()).contains(at);
    }

    MapWidget& map() const { return *editor.map(); }

    MapEditor editor{model, nullptr};
};

TEST_F(MapFollowing, PansToAChosenPointOutsideTheViewKeepingTheZoom) {
    // Zoomed in on the start, the far side of the loop is out of sight.
    const MapViewport close(project(model.mapPoints().front().coordinate), 17, map().size());
    map().setViewport(close);
    std::size_t far = 0;
    while (far < model.mapPoints().size() && inView(far)) {
        ++far;
    }
    ASSERT_LT(far, model.mapPoints().size());

    model.selectPoint(static_cast<std::int64_t>(far));
    EXPECT_TRUE(inView(far));
    EXPECT_DOUBLE_EQ(map().viewport().zoom(), 17);

    // A neighbour in sight moves nothing, nor does choosing nothing.
    const MapViewport followed = map().viewport();
    model.selectPoint(static_cast<std::int64_t>(far + 1));
    ASSERT_TRUE(inView(far + 1));
    EXPECT_EQ(map().viewport(), followed);
    model.selectPoint(std::nullopt);
    EXPECT_EQ(map().viewport(), followed);
}

TEST_F(MapFollowing, ShowsTheWholeTrackAfterAnAppend) {
    const Coordinate last = model.mapPoints().back().coordinate;
    const MapViewport close(project(last), 16, map().size());
    map().setViewport(close);
    // A second walk a few kilometres north-east of the sample's end.
    std::string document = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><gpx "
                           "xmlns=\"http://www.topografix.com/GPX/1/1\" version=\"1.1\" "
                           "creator=\"test\"><trk><trkseg>";
    for (int i = 0; i < 3; ++i) {
        document += "<trkpt lat=\"" + std::to_string(last.latitude + 0.05 + 0.001 * i) +
                    "\" lon=\"" + std::to_string(last.longitude + 0.05) +
                    "\"><time>2025-06-02T08:0" + std::to_string(i) + ":00Z</time></trkpt>";
    }
    document += "</trkseg></trk></gpx>";
    const QString path = folder.filePath("weiter.gpx");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(document.data(), static_cast<qint64>(document.size()));
    file.close();

    dialogs.filesToOpen = {path};
    model.appendTrack();
    settle();
    ASSERT_TRUE(model.error() == std::nullopt) << model.error()->toStdString();
    ASSERT_GT(model.mapPoints().size(), 241u);
    for (std::size_t i = 0; i < model.mapPoints().size(); ++i) {
        ASSERT_TRUE(inView(i)) << i;
    }
    EXPECT_LT(map().viewport().zoom(), 16);
}

} // namespace
} // namespace trackloom
