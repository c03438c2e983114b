#include "core/base/text_trimming.h"

#include <gtest/gtest.h>
#include <string>

namespace trackloom {
namespace {

TEST(TextTrimming, RemovesAsciiAndUnicodeBlanksAtBothEnds) {
    EXPECT_EQ(trimmedWhitespace(" \t12:00\r\n"), "12:00");
    EXPECT_EQ(trimmedWhitespace("\xc2\xa0"
                                "Caf\xc3\xa9\xe3\x80\x80"),
              "Caf\xc3\xa9");
    EXPECT_EQ(trimmedWhitespace("\xe2\x80\xa8x\xe2\x80\xa9\xc2\x85"), "x");
    EXPECT_EQ(trimmedWhitespace("\xe2\x80\x8a\xe2\x80\xaf\xe2\x81\x9f"
                                "a b"
                                "\xe1\x9a\x80\xe2\x80\x80"),
              "a b");
    // Blanks inside stay, and so does a zero-width space, which is no blank.
    EXPECT_EQ(trimmedWhitespace("a\xc2\xa0"
                                "b\xe2\x80\x8b"),
              "a\xc2\xa0"
              "b\xe2\x80\x8b");
}

TEST(TextTrimming, BlanksKeepLineBreaks) {
    EXPECT_EQ(trimmedBlanks("\t\xc2\xa0 50.1 \xe3\x80\x80"), "50.1");
    EXPECT_EQ(trimmedBlanks("\n50.1\xe2\x80\xa8"), "\n50.1\xe2\x80\xa8");
    EXPECT_EQ(trimmedBlanks(" \r\n "), "\r\n");
}

TEST(TextTrimming, EmptyAndAllBlankTextBecomeEmpty) {
    EXPECT_EQ(trimmedWhitespace(""), "");
    EXPECT_EQ(trimmedBlanks(""), "");
    EXPECT_EQ(trimmedWhitespace(" \xc2\xa0\r\n\xe2\x80\xa8\t\xe3\x80\x80"), "");
    EXPECT_EQ(trimmedBlanks("\xe2\x80\x83 \t"), "");
}

TEST(TextTrimming, MalformedBytesAreNeverBlankAndStayInPlace) {
    // Truncated sequences of a blank at either end.
    EXPECT_EQ(trimmedWhitespace("\xe3\x80"), "\xe3\x80");
    EXPECT_EQ(trimmedWhitespace(" \xc2"), "\xc2");
    EXPECT_EQ(trimmedWhitespace("\x80\xa0 x"), "\x80\xa0 x");
    EXPECT_EQ(trimmedWhitespace("x \xa0"), "x \xa0");
    // A lead byte followed by ASCII is not a no-break space, even though its
    // bits would decode to one without checking the continuation byte.
    EXPECT_EQ(trimmedWhitespace("\xc2 x"), "\xc2 x");
    // Overlong encodings of the space are not a space.
    EXPECT_EQ(trimmedWhitespace("\xc0\xa0x\xe0\x80\xa0"), "\xc0\xa0x\xe0\x80\xa0");
    // Well-formed blanks around malformed bytes go; the malformed bytes stay.
    EXPECT_EQ(trimmedWhitespace("\xc2\xa0\x80 y \xe2\xe2\x80\xa8"), "\x80 y \xe2");
    // Never reading past the end: a view into a longer buffer whose next bytes
    // would complete a blank.
    const std::string buffer = "x\xe2\x80\x80";
    EXPECT_EQ(trimmedWhitespace(std::string_view(buffer).substr(0, 3)), "x\xe2\x80");
}

} // namespace
} // namespace trackloom
