#include "app/map/tile_source.h"
#include "tests/app/support/qt_test_application.h"
#include "tests/app/support/scripted_fetcher.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace trackloom {
namespace {

using testing::pngTile;
using testing::ScriptedFetcher;

const QString server = QStringLiteral("https://tiles.example.test/{z}/{x}/{y}.png");

class TileSourceTest : public testing::ApplicationTest {
  protected:
    std::unique_ptr<TileSource> source(const QString& urlTemplate = server) {
        return std::make_unique<TileSource>(urlTemplate, cache.path(),
                                            std::make_unique<ScriptedFetcher>(&requests));
    }

    QTemporaryDir cache;
    std::vector<ScriptedFetcher::Request> requests;
};

TEST_F(TileSourceTest, FillsTheTemplate) {
    EXPECT_EQ(source()->url({12, 2138, 1377}).toString(),
              "https://tiles.example.test/12/2138/1377.png");
}

TEST_F(TileSourceTest, AsksOnceAndAnnouncesTheArrival) {
    auto tiles = source();
    QSignalSpy arrived(tiles.get(), &TileSource::tileArrived);
    const TileKey key{3, 4, 2};
    EXPECT_TRUE(tiles->tile(key).isNull());
    EXPECT_TRUE(tiles->tile(key).isNull());
    ASSERT_EQ(requests.size(), 1u) << "a tile already on its way is not asked for again";

    requests[0].done(pngTile(Qt::red));
    ASSERT_EQ(arrived.count(), 1);
    EXPECT_EQ(arrived[0][0].value<TileKey>(), key);
    EXPECT_EQ(tiles->tile(key).pixelColor(10, 10), QColor(Qt::red));
    EXPECT_TRUE(tiles->isAvailable());
}

TEST_F(TileSourceTest, KeepsTilesOnDiskPerServer) {
    const TileKey key{5, 17, 10};
    {
        auto first = source();
        first->tile(key);
        requests[0].done(pngTile(Qt::green));
    }
    requests.clear();
    auto second = source();
    EXPECT_EQ(second->tile(key).pixelColor(0, 0), QColor(Qt::green));
    EXPECT_TRUE(requests.empty()) << "a tile on disk needs no request";

    auto otherServer = source(QStringLiteral("https://other.example.test/{z}/{x}/{y}.png"));
    EXPECT_TRUE(otherServer->tile(key).isNull()) << "another server's tiles are not mixed in";
    EXPECT_EQ(requests.size(), 1u);

    second->clearDiskCache();
    EXPECT_TRUE(source()->tile(key).isNull());
}

TEST_F(TileSourceTest, AFailureMakesTilesUnavailableWithoutRetryingAtOnce) {
    auto tiles = source();
    QSignalSpy availability(tiles.get(), &TileSource::availabilityChanged);
    tiles->tile({1, 0, 0});
    requests[0].done(std::nullopt);
    EXPECT_FALSE(tiles->isAvailable());
    ASSERT_EQ(availability.count(), 1);
    EXPECT_FALSE(availability[0][0].toBool());

    tiles->tile({1, 0, 0});
    EXPECT_EQ(requests.size(), 1u) << "a failed tile waits before it is asked for again";

    tiles->tile({1, 1, 0});
    requests[1].done(QByteArray("not an image"));
    EXPECT_FALSE(tiles->isAvailable());
    tiles->tile({1, 0, 1});
    requests[2].done(pngTile(Qt::blue));
    EXPECT_TRUE(tiles->isAvailable());
}

TEST_F(TileSourceTest, AnEmptyTemplateWorksOffline) {
    auto tiles = source(QString());
    EXPECT_TRUE(tiles->isOffline());
    EXPECT_FALSE(tiles->isAvailable());
    EXPECT_TRUE(tiles->tile({2, 1, 1}).isNull());
    EXPECT_TRUE(requests.empty());

    TileSource withoutFetcher(server, cache.path(), nullptr);
    EXPECT_TRUE(withoutFetcher.isOffline());
    EXPECT_TRUE(withoutFetcher.tile({2, 1, 1}).isNull());
}

TEST_F(TileSourceTest, RepliesForAReplacedServerAreDropped) {
    auto tiles = source();
    QSignalSpy arrived(tiles.get(), &TileSource::tileArrived);
    tiles->tile({4, 8, 5});
    tiles->setUrlTemplate(QStringLiteral("https://new.example.test/{z}/{x}/{y}.png"));
    requests[0].done(pngTile(Qt::red));
    EXPECT_EQ(arrived.count(), 0);
    EXPECT_TRUE(tiles->cachedTile({4, 8, 5}).isNull());
}

} // namespace
} // namespace trackloom
