#include "core/base/xml/xml_document.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace trackloom::xml {
namespace {

ParseError::Kind failureOf(std::string_view bytes) {
    try {
        Document::parse(bytes);
    } catch (const ParseError& error) {
        return error.kind();
    }
    ADD_FAILURE() << "parsed";
    return ParseError::Kind::syntax;
}

TEST(XmlParsing, DocumentTypeDeclarationsStopTheParserBeforeAnyEntityIsRead) {
    const auto secret = std::filesystem::temp_directory_path() / "trackloom-secret.txt";
    std::ofstream(secret) << "geheim";
    const std::string external =
        "<?xml version=\"1.0\"?><!DOCTYPE gpx [<!ENTITY x SYSTEM \"file://" + secret.string() +
        "\">]><gpx>&x;</gpx>";
    std::string bomb = "<?xml version=\"1.0\"?><!DOCTYPE lolz [<!ENTITY lol \"lol\">";
    std::string previous = "lol";
    for (int level = 1; level <= 9; ++level) {
        const auto name = "lol" + std::to_string(level);
        bomb += "<!ENTITY " + name + " \"";
        for (int i = 0; i < 10; ++i) {
            bomb += "&" + previous + ";";
        }
        bomb += "\">";
        previous = name;
    }
    bomb += "]><gpx>&lol9;</gpx>";

    const auto started = std::chrono::steady_clock::now();
    for (const auto& document :
         {std::string("<!DOCTYPE gpx><gpx/>"), external, bomb,
          std::string("<!DOCTYPE gpx SYSTEM \"http://example.invalid/gpx.dtd\"><gpx/>")}) {
        EXPECT_EQ(failureOf(document), ParseError::Kind::documentType);
    }
    // Generous: an expanded bomb would take minutes and gigabytes.
    EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(5));
    std::filesystem::remove(secret);
}

TEST(XmlParsing, SyntaxErrorsCarryTheFirstFatalDescription) {
    try {
        Document::parse("<a><b></a>");
        FAIL();
    } catch (const ParseError& error) {
        EXPECT_EQ(error.kind(), ParseError::Kind::syntax);
        EXPECT_STREQ(error.what(), "Opening and ending tag mismatch: b line 1 and a");
    }
    EXPECT_EQ(failureOf(""), ParseError::Kind::syntax);
    EXPECT_EQ(failureOf("\n<?xml version=\"1.0\"?><a/>"), ParseError::Kind::syntax);
}

TEST(XmlParsing, UndeclaredPrefixesAndDeepNestingStillParse) {
    EXPECT_TRUE(Document::parse("<a><x:b>1</x:b></a>").root());
    std::string deep;
    for (int i = 0; i < 5000; ++i) {
        deep += "<e>";
    }
    for (int i = 0; i < 5000; ++i) {
        deep += "</e>";
    }
    EXPECT_TRUE(Document::parse(deep).root());
}

TEST(XmlElements, LookupIsByLocalNameAndNamespaceUri) {
    const auto document =
        Document::parse("<r xmlns='urn:a' xmlns:b='urn:b'><n>1</n><b:n>2</b:n>"
                        "<n xmlns=''>3</n><n><![CDATA[4]]>&amp;<!--c-->5</n></r>");
    const auto root = *document.root();
    const auto inA = root.children("n", "urn:a");
    ASSERT_EQ(inA.size(), 2u);
    EXPECT_EQ(inA[0].text(), "1");
    EXPECT_EQ(inA[1].text(), "4&5");
    EXPECT_EQ(root.children("n", "urn:b")[0].prefix(), "b");
    EXPECT_EQ(root.children("n", "")[0].text(), "3");
    EXPECT_EQ(root.childElements().size(), 4u);
}

} // namespace
} // namespace trackloom::xml
