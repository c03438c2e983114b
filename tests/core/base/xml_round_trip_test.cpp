// Every corpus file that parses must come back byte for byte, directly and
// through a deep copy; files in another encoding come back as UTF-8.

#include "core/base/file_io.h"
#include "core/base/xml/xml_document.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <regex>

namespace trackloom::xml {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> corpusFiles() {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(TRACKLOOM_CORPUS_DIR "/gpx")) {
        files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::optional<std::string> declaredEncoding(const std::string& bytes) {
    static const std::regex declaration(R"(^<\?xml[^>]*encoding=["']([^"']+)["'])");
    std::smatch match;
    if (!std::regex_search(bytes, match, declaration)) {
        return std::nullopt;
    }
    return match[1].str();
}

/// What a Latin-1 file must become: the same characters in UTF-8, declared so.
std::string asUtf8FromLatin1(const std::string& bytes, const std::string& declared) {
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            text += c;
        } else {
            text += static_cast<char>(0xC0 | (byte >> 6));
            text += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    const auto at = text.find(declared);
    return text.replace(at, declared.size(), "UTF-8");
}

/// Every element of the subtree, parents before children.
std::vector<Element> allElements(Element top) {
    std::vector<Element> elements{top};
    for (std::size_t i = 0; i < elements.size(); ++i) {
        for (const auto child : elements[i].childElements()) {
            elements.push_back(child);
        }
    }
    return elements;
}

class XmlCorpus : public ::testing::TestWithParam<fs::path> {};

TEST_P(XmlCorpus, SerialisingGivesBackTheFile) {
    const auto bytes = readFileBytes(GetParam());
    std::optional<Document> document;
    try {
        document = Document::parse(bytes);
    } catch (const ParseError&) {
        GTEST_SKIP() << "not well-formed";
    }
    auto expected = bytes;
    const auto encoding = declaredEncoding(bytes);
    if (encoding && *encoding != "UTF-8" && *encoding != "utf-8") {
        ASSERT_EQ(*encoding, "ISO-8859-1");
        expected = asUtf8FromLatin1(bytes, *encoding);
    }
    EXPECT_EQ(document->serialize(), expected);
    auto copied = document->copy();
    copied.setEncoding("UTF-8");
    EXPECT_EQ(copied.serialize(), expected);
    EXPECT_EQ(Document::parse(expected).serialize(), expected);

    // An edit that leaves an element as it was still makes the serialiser write
    // it piece by piece: every node's own bytes must have been found.
    for (auto element : allElements(*copied.root())) {
        auto probe = copied.createElement("probe", "", "", element);
        element.appendChild(probe);
        probe.remove();
    }
    EXPECT_EQ(copied.serialize(), expected);
}

INSTANTIATE_TEST_SUITE_P(Files, XmlCorpus, ::testing::ValuesIn(corpusFiles()),
                         [](const auto& info) {
                             auto name = info.param.stem().string();
                             std::replace_if(
                                 name.begin(), name.end(),
                                 [](unsigned char c) { return !std::isalnum(c); }, '_');
                             return name;
                         });

} // namespace
} // namespace trackloom::xml
