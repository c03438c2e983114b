// Edits through the XML layer change exactly the bytes of what they touch; every
// other byte of the document, however unusual its form, is written as it was read.

#include "core/base/xml/xml_document.h"

#include <gtest/gtest.h>

namespace trackloom::xml {
namespace {

constexpr std::string_view gpx = "http://www.topografix.com/GPX/1/1";

// Everything libxml2's own serialiser would change: byte-order mark, declaration
// with single quotes, CRLF, xmlns after other attributes, blanks inside tags,
// character and entity references, `<a></a>`, comments, a PI and CDATA.
const std::string unusual =
    "\xEF\xBB\xBF<?xml version='1.0' encoding='UTF-8' ?>\r\n"
    "<!-- head -->\r\n"
    "<gpx version='1.1'  creator=\"x &amp; y\" xmlns:ext=\"urn:ext\" "
    "xmlns=\"http://www.topografix.com/GPX/1/1\">\r\n"
    "  <trk><name>Caf&#233; &apos;A&apos;</name><ext:color value = 'red' ></ext:color>\r\n"
    "    <trkseg>\r\n"
    "      <trkpt lat=\"1\" lon='2'><time>2024-05-01T10:00:00Z</time>"
    "<extensions><ext:hr>99</ext:hr></extensions></trkpt>\r\n"
    "      <trkpt lat=\"3\" lon='4'><time>2024-05-01T10:01:00Z</time><empty/></trkpt>\r\n"
    "    </trkseg>\r\n"
    "  </trk>\r\n"
    "<?pi data?><![CDATA[ <x> ]]>\r\n"
    "</gpx>\r\n";

/// `text` with its only occurrence of `from` replaced by `to`.
std::string replacing(const std::string& text, std::string_view from, std::string_view to) {
    const auto at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    EXPECT_EQ(text.find(from, at + 1), std::string::npos) << from;
    return std::string(text).replace(at, from.size(), to);
}

struct Parts {
    Document document;
    Element root, track, name, color, segment, first, second;
};

Parts parsedUnusual() {
    auto document = Document::parse(unusual);
    const auto root = *document.root();
    const auto track = *root.firstChild("trk", gpx);
    const auto segment = *track.firstChild("trkseg", gpx);
    const auto points = segment.children("trkpt", gpx);
    return Parts{std::move(document),
                 root,
                 track,
                 *track.firstChild("name", gpx),
                 *track.firstChild("color", "urn:ext"),
                 segment,
                 points[0],
                 points[1]};
}

TEST(XmlEditing, ChangedTextReplacesOnlyTheContent) {
    auto parts = parsedUnusual();
    parts.second.firstChild("time", gpx)->setText("2025-06-01T08:30:00.000000Z");
    parts.name.setText("a<b & \"c\"\r");
    auto expected = replacing(unusual, "2024-05-01T10:01:00Z", "2025-06-01T08:30:00.000000Z");
    expected = replacing(expected, "Caf&#233; &apos;A&apos;", "a&lt;b &amp; \"c\"&#13;");
    EXPECT_EQ(parts.document.serialize(), expected);
    EXPECT_EQ(parts.document.copy().serialize(), expected);
}

TEST(XmlEditing, ChangedTagsAreGeneratedAndTheirContentKept) {
    auto parts = parsedUnusual();
    parts.first.setAttribute("lat", "5");
    parts.first.setAttribute("note", "x\"y<\n");
    parts.color.setLocalName("colour");
    auto expected = replacing(unusual, "<trkpt lat=\"1\" lon='2'>",
                              "<trkpt lat=\"5\" lon=\"2\" note=\"x&quot;y&lt;&#10;\">");
    expected = replacing(expected, "<ext:color value = 'red' ></ext:color>",
                         "<ext:colour value=\"red\"/>");
    EXPECT_EQ(parts.document.serialize(), expected);
}

TEST(XmlEditing, RemovedAndMovedElementsTakeExactlyTheirBytes) {
    auto parts = parsedUnusual();
    const std::string first = "<trkpt lat=\"1\" lon='2'><time>2024-05-01T10:00:00Z</time>"
                              "<extensions><ext:hr>99</ext:hr></extensions></trkpt>";
    const std::string second =
        "<trkpt lat=\"3\" lon='4'><time>2024-05-01T10:01:00Z</time><empty/></trkpt>";
    parts.second.remove();
    EXPECT_EQ(parts.document.serialize(), replacing(unusual, second, ""));

    parts.first.detach();
    parts.track.insertBefore(parts.first);
    auto expected = replacing(unusual, second, "");
    expected = replacing(expected, first, "");
    expected = replacing(expected, "  <trk>", "  " + first + "<trk>");
    EXPECT_EQ(parts.document.serialize(), expected);
}

TEST(XmlEditing, CreatedElementsUseTheNamespaceInScope) {
    auto parts = parsedUnusual();
    auto empty = *parts.second.firstChild("empty", gpx);
    auto created = parts.document.createElement("ele", gpx, "", parts.second);
    created.setText("12");
    auto other = parts.document.createElement("x", "urn:other", "o", parts.second);
    created.appendChild(other);
    empty.appendChild(created);
    EXPECT_EQ(
        parts.document.serialize(),
        replacing(unusual, "<empty/>", "<empty><ele>12<o:x xmlns:o=\"urn:other\"/></ele></empty>"));
}

TEST(XmlEditing, CopiesKeepTheirBytesAndDeclareOnlyWhatTheirNewPlaceLacks) {
    const auto source = parsedUnusual();
    auto target = Document::parse("<?xml version=\"1.0\"?>\n"
                                  "<gpx xmlns=\"http://www.topografix.com/GPX/1/1\">"
                                  "<trk><trkseg/></trk></gpx>\n");
    auto segment = *target.root()->firstChild("trk", gpx)->firstChild("trkseg", gpx);
    segment.appendChild(source.first.copyInto(target));
    segment.appendChild(source.color.copyInto(target));
    const std::string expected =
        "<?xml version=\"1.0\"?>\n"
        "<gpx xmlns=\"http://www.topografix.com/GPX/1/1\"><trk><trkseg>"
        "<trkpt lat=\"1\" lon='2' xmlns:ext=\"urn:ext\"><time>2024-05-01T10:00:00Z</time>"
        "<extensions><ext:hr>99</ext:hr></extensions></trkpt>"
        "<ext:color value = 'red'  xmlns:ext=\"urn:ext\"></ext:color>"
        "</trkseg></trk></gpx>\n";
    EXPECT_EQ(target.serialize(), expected);
    // The copy's bytes live on when the document they came from is gone.
    auto copied = target.copy();
    { const auto discarded = std::move(target); }
    EXPECT_EQ(copied.serialize(), expected);
}

// Under the sanitizers this is where a leak or a double free would show: the
// document owns what was created, copied or detached until it is linked again.
TEST(XmlEditing, ElementsLeftOutsideTheTreeGoWithTheirDocument) {
    const auto source = parsedUnusual();
    auto parts = parsedUnusual();
    const auto before = parts.document.serialize();
    auto created = parts.document.createElement("ele", gpx, "", parts.second);
    created.appendChild(parts.document.createElement("inner", "urn:i", "i", parts.second));
    source.first.copyInto(parts.document);
    parts.second.detach();
    parts.second.detach();
    parts.document.createElement("gone", gpx, "", parts.first).remove();
    // The copy holds the tree only: what is outside it does not come along.
    const auto copied = parts.document.copy();
    EXPECT_EQ(copied.serialize(), parts.document.serialize());
    EXPECT_EQ(parts.document.serialize().find("<ele"), std::string::npos);

    // Linked again, a detached element belongs to the tree, and removing it frees it once.
    parts.track.appendChild(parts.second);
    EXPECT_NE(parts.document.serialize(), before);
    parts.second.remove();
}

TEST(XmlEditing, NamespaceChangesReachTheRecordedTags) {
    auto document = Document::parse("<r xmlns='urn:r'>\n <a xmlns:p='urn:p'><p:x k='1'>t</p:x></a>"
                                    "<b/><c/><d> x</d></r>");
    auto root = *document.root();
    auto moved = *root.firstChild("a", "urn:r")->firstChild("x", "urn:p");
    moved.detach();
    root.firstChild("b", "urn:r")->appendChild(moved);
    // Its declaration stays behind with the element about to go.
    moved.reconcileNamespaces();
    root.firstChild("a", "urn:r")->remove();
    root.declareNamespace("h", "urn:h");
    auto first = document.createElement("first", "urn:h", "", root);
    root.firstChild("d", "urn:r")->prependChild(first);
    root.firstChild("c", "urn:r")->adoptNamespace(first);
    EXPECT_EQ(root.namespaceDeclarations(),
              (std::vector<std::pair<std::string, std::string>>{{"", "urn:r"}, {"h", "urn:h"}}));
    EXPECT_EQ(document.serialize(),
              "<r xmlns='urn:r' xmlns:h=\"urn:h\">\n <b><p:x k='1' xmlns:p=\"urn:p\">t</p:x></b>"
              "<h:c/><d><h:first/> x</d></r>");
}

TEST(XmlEditing, DeepDocumentsAreWrittenWithoutRecursion) {
    std::string deep;
    for (int i = 0; i < 20000; ++i) {
        deep += "<e a='1'>";
    }
    deep += "x";
    for (int i = 0; i < 20000; ++i) {
        deep += "</e >";
    }
    auto document = Document::parse(deep);
    auto element = *document.root();
    while (auto child = element.firstChild("e", "")) {
        element = *child;
    }
    element.setText("y");
    EXPECT_EQ(document.copy().serialize(), replacing(deep, "x", "y"));
}

TEST(XmlEditing, TextXMLCannotCarryIsNoticedAndCopied) {
    const auto written = [](std::string_view text, bool asAttribute) {
        auto document = Document::parse("<a><b/></a>");
        auto element = *document.root()->firstChild("b", "");
        asAttribute ? element.setAttribute("v", text) : element.setText(text);
        return document.copy().holdsUnwritableText();
    };
    for (const std::string_view fine : {"Tab\tLF\nCR\r", "Zürich", "🚲", "\xEF\xBF\xBD", ""}) {
        EXPECT_FALSE(written(fine, false)) << fine;
        EXPECT_FALSE(written(fine, true)) << fine;
    }
    // Control characters, U+FFFE, a UTF-16 surrogate, an overlong slash, a stray
    // continuation byte, a truncated sequence and a code point past U+10FFFF.
    for (const std::string_view unwritable : {"A\x01", "\xEF\xBF\xBE", "\xED\xA0\x80", "\xC0\xAF",
                                              "\x80", "\xE2\x82", "\xF4\x90\x80\x80"}) {
        EXPECT_TRUE(written(unwritable, false)) << unwritable;
        EXPECT_TRUE(written(unwritable, true)) << unwritable;
    }
    EXPECT_FALSE(Document::parse("<a>&#x1F6B2;</a>").holdsUnwritableText());
}

TEST(XmlEncodings, OtherEncodingsAreWrittenAsDeclaredUtf8) {
    const std::string latin1 = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n"
                               "<gpx><name>M\xFCnchen</name></gpx>\n";
    auto document = Document::parse(latin1);
    EXPECT_EQ(document.root()->firstChild("name", "")->text(), "M\xC3\xBCnchen");
    EXPECT_EQ(document.serialize(), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                    "<gpx><name>M\xC3\xBCnchen</name></gpx>\n");

    std::string utf16 = "\xFF\xFE";
    for (const char c : std::string("<?xml version='1.0' encoding='UTF-16'?><gpx a='\xE4'/>")) {
        utf16 += c;
        utf16 += '\0';
    }
    EXPECT_EQ(Document::parse(utf16).serialize(),
              "<?xml version='1.0' encoding='UTF-8'?><gpx a='\xC3\xA4'/>");
}

TEST(XmlEncodings, UnknownEncodingsAreStillTheParsersError) {
    try {
        Document::parse("<?xml version=\"1.0\" encoding=\"x-unknown\"?><gpx/>");
        FAIL();
    } catch (const ParseError& error) {
        EXPECT_EQ(error.kind(), ParseError::Kind::syntax);
        EXPECT_NE(std::string(error.what()).find("x-unknown"), std::string::npos);
    }
}

} // namespace
} // namespace trackloom::xml
