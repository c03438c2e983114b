#include "core/base/gpx_error.h"
#include "core/base/original_file_protection.h"

#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

namespace trackloom {
namespace {

namespace fs = std::filesystem;

class OriginalFileProtectionTest : public ::testing::Test {
  protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "trackloom-protect-XXXXXX").string();
        ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
        m_folder = pattern;
        m_opened = m_folder / "track.gpx";
        std::ofstream(m_opened) << "<gpx/>";
    }
    void TearDown() override { fs::remove_all(m_folder); }

    static bool refuses(const fs::path& destination, const std::optional<fs::path>& source) {
        try {
            OriginalFileProtection::checkExport(destination, source);
            return false;
        } catch (const GPXError& error) {
            EXPECT_EQ(error.message(), "Die Originaldatei darf nicht überschrieben werden. Bitte "
                                       "wähle eine andere Datei.");
            return true;
        }
    }

    fs::path m_folder;
    fs::path m_opened;
};

TEST_F(OriginalFileProtectionTest, EveryPathToTheOpenedFileIsRefused) {
    EXPECT_TRUE(refuses(m_opened, m_opened));
    EXPECT_TRUE(refuses(m_folder / "sub" / ".." / "track.gpx", m_opened));
    fs::create_symlink(m_opened, m_folder / "link.gpx");
    EXPECT_TRUE(refuses(m_folder / "link.gpx", m_opened));
    EXPECT_TRUE(refuses(m_opened, m_folder / "link.gpx"));
    fs::create_directory_symlink(m_folder, m_folder / "same");
    EXPECT_TRUE(refuses(m_folder / "same" / "track.gpx", m_opened));
    fs::create_hard_link(m_opened, m_folder / "hard.gpx");
    EXPECT_TRUE(refuses(m_folder / "hard.gpx", m_opened));

    const auto previous = fs::current_path();
    fs::current_path(m_folder);
    EXPECT_TRUE(refuses("track.gpx", m_opened));
    fs::current_path(previous);
}

TEST_F(OriginalFileProtectionTest, OtherFilesAndNoSourceAreAllowed) {
    EXPECT_FALSE(refuses(m_opened, std::nullopt));
    EXPECT_FALSE(refuses(m_folder / "new.gpx", m_opened));
    std::ofstream(m_folder / "copy.gpx") << "<gpx/>";
    EXPECT_FALSE(refuses(m_folder / "copy.gpx", m_opened));
    EXPECT_FALSE(refuses(m_folder / "new.gpx", m_folder / "gone.gpx"));
}

} // namespace
} // namespace trackloom
