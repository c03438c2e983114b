// Writing real-world files: unchanged tracks give their bytes back, an edit
// changes only what it touched, and every section exports on its own.

#include "core/base/file_io.h"
#include "core/base/gpx_error.h"
#include "gpx_fixtures.h"

#include <gtest/gtest.h>

namespace trackloom {
namespace {

namespace fs = std::filesystem;

class GpxWriteCorpus : public ::testing::TestWithParam<fs::path> {
  protected:
    void SetUp() override {
        m_bytes = readFileBytes(GetParam());
        try {
            m_track = GPXTrack::read(m_bytes, GetParam().filename().string());
        } catch (const GPXError& error) {
            GTEST_SKIP() << error.message();
        }
    }

    bool isLatin1() const { return m_bytes.substr(0, 100).find("ISO-8859-1") != std::string::npos; }

    std::string m_bytes;
    TrackPtr m_track;
};

void expectSamePoint(const TrackPoint& actual, const TrackPoint& expected) {
    EXPECT_EQ(actual.latitude, expected.latitude);
    EXPECT_EQ(actual.longitude, expected.longitude);
    EXPECT_EQ(actual.time, expected.time);
    EXPECT_EQ(actual.invalidTime, expected.invalidTime);
}

TEST_P(GpxWriteCorpus, UnchangedTracksWriteTheirFileBack) {
    const auto data = m_track->data();
    if (!isLatin1()) {
        EXPECT_EQ(data, m_bytes);
    }
    EXPECT_EQ(m_track->editableCopy().document.serialize(), data);
    const auto again = GPXTrack::read(data, m_track->name());
    EXPECT_EQ(again->name(), m_track->name());
    EXPECT_EQ(again->points(), m_track->points());
    EXPECT_EQ(again->segments(), m_track->segments());
    EXPECT_EQ(again->data(), data);
}

std::size_t commonPrefix(std::string_view a, std::string_view b) {
    std::size_t n = 0;
    while (n < a.size() && n < b.size() && a[n] == b[n]) {
        ++n;
    }
    return n;
}

std::size_t commonSuffix(std::string_view a, std::string_view b, std::size_t limit) {
    std::size_t n = 0;
    while (n < limit && a[a.size() - 1 - n] == b[b.size() - 1 - n]) {
        ++n;
    }
    return n;
}

/// The local name of the tag that starts at `at`.
std::string_view tagName(std::string_view text, std::size_t at) {
    auto name = text.substr(at + 1, text.find_first_of(" \t\r\n/>", at + 1) - at - 1);
    return name.substr(name.find(':') == std::string_view::npos ? 0 : name.find(':') + 1);
}

TEST_P(GpxWriteCorpus, ChangingOneTimeChangesOnlyItsText) {
    auto copy = m_track->editableCopy();
    const auto nodes = GPXTrack::pointNodes(copy.root, m_track->namespaceURI());
    std::size_t index = 0;
    while (index < nodes.size() &&
           !nodes[index].element.firstChild("time", m_track->namespaceURI())) {
        ++index;
    }
    if (index == nodes.size()) {
        GTEST_SKIP() << "no point time";
    }
    const auto written = Instant::fromUnixSeconds(946684800.5);
    nodes[index]
        .element.firstChild("time", m_track->namespaceURI())
        ->setText(GPXTrack::formatTime(written));
    const auto before = m_track->data();
    const auto after = copy.document.serialize();

    const auto prefix = commonPrefix(before, after);
    const auto suffix = commonSuffix(before, after, std::min(before.size(), after.size()) - prefix);
    const auto changedBefore =
        std::string_view(before).substr(prefix, before.size() - suffix - prefix);
    const auto changedAfter =
        std::string_view(after).substr(prefix, after.size() - suffix - prefix);
    EXPECT_EQ(changedBefore.find('<'), std::string_view::npos) << changedBefore;
    EXPECT_EQ(changedAfter.find('<'), std::string_view::npos) << changedAfter;
    const auto opening = before.rfind('<', prefix - 1);
    const auto closing = before.find('<', before.size() - suffix);
    EXPECT_EQ(tagName(before, opening), "time");
    EXPECT_EQ(before.substr(closing, 2), "</");
    EXPECT_EQ(tagName(before, closing + 1), "time");

    const auto edited = GPXTrack::read(after, m_track->name());
    ASSERT_EQ(edited->points().size(), m_track->points().size());
    for (std::size_t i = 0; i < edited->points().size(); ++i) {
        auto expected = m_track->points()[i];
        if (i == index) {
            expected.time = written;
            expected.invalidTime = false;
        }
        expectSamePoint(edited->points()[i], expected);
    }
}

/// Whether `part` can be had from `whole` by deleting bytes. An export only
/// drops elements, so any byte it generated anew would most likely break this.
bool isSubsequence(std::string_view part, std::string_view whole) {
    std::size_t at = 0;
    for (const char c : part) {
        at = whole.find(c, at);
        if (at == std::string_view::npos) {
            return false;
        }
        ++at;
    }
    return true;
}

TEST_P(GpxWriteCorpus, EverySectionExportsOnItsOwn) {
    const auto data = m_track->data();
    for (const auto& segment : m_track->segments()) {
        const auto exported = m_track->exportingSegment(segment.id);
        ASSERT_EQ(exported->segments().size(), 1u);
        ASSERT_EQ(exported->points().size(), segment.pointIDs.size());
        for (std::size_t i = 0; i < segment.pointIDs.size(); ++i) {
            expectSamePoint(exported->points()[i],
                            m_track->points()[static_cast<std::size_t>(segment.pointIDs[i])]);
        }
        EXPECT_TRUE(isSubsequence(exported->data(), data)) << segment.id;
    }
}

INSTANTIATE_TEST_SUITE_P(Files, GpxWriteCorpus, ::testing::ValuesIn(testing::gpxCorpusFiles()),
                         [](const auto& info) { return testing::corpusTestName(info.param); });

} // namespace
} // namespace trackloom
