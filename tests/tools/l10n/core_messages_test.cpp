#include "tools/l10n/core_messages.h"

#include <gtest/gtest.h>

namespace trackloom::l10n {
namespace {

std::vector<std::string> literalsIn(std::string_view source) {
    std::vector<std::string> literals;
    for (auto& text : coreMessagesIn(source)) {
        literals.push_back(std::move(text.literal));
    }
    return literals;
}

TEST(CoreMessages, FindsTheTextsOfEveryTranslatingCall) {
    const auto found = literalsIn(R"cpp(
        throw GPXError("Der Track besteht nur aus einem Abschnitt.");
        throw GPXError::withNumber("Punkt ", id + 1, " hat ungültige Koordinaten.");
        throw GPXError::withDetail("Die Datei konnte nicht gelesen werden: ", path.string());
        return xml::escapedText(localized("Beispielrunde")) + "</name>";
    )cpp");
    EXPECT_EQ(found, (std::vector<std::string>{
                         "Der Track besteht nur aus einem Abschnitt.", "Punkt ",
                         " hat ungültige Koordinaten.",
                         "Die Datei konnte nicht gelesen werden: ", "Beispielrunde"}));
}

TEST(CoreMessages, JoinsAdjacentLiteralsAndKeepsEscapesAsWritten) {
    const auto found = literalsIn("throw GPXError(\"Erwartet wird \"\n"
                                  "               \"\\\"semanticSegments\\\".\");");
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0], "Erwartet wird \\\"semanticSegments\\\".");
    EXPECT_EQ(coreMessagesIn("\n\nthrow GPXError(\n  \"a\"\n  \"b\");")[0].line, 4);
}

TEST(CoreMessages, FollowsNamedConstantsHandedToTheCalls) {
    const auto found = literalsIn(R"cpp(
        constexpr std::string_view joinFailed = "Die Tracks konnten nicht zusammengeführt werden.";
        throw GPXError(joinFailed);
        localized(germanPrefix);
    )cpp");
    EXPECT_EQ(found,
              (std::vector<std::string>{"Die Tracks konnten nicht zusammengeführt werden."}));
}

TEST(CoreMessages, IgnoresTextsThatNeverReachTheUser) {
    const auto found = literalsIn(R"cpp(
        #include "core/base/gpx_error.h"
        // throw GPXError("commented out");
        /* localized("in a block comment") */
        const auto raw = R"x(localized("inside a raw string"))x";
        appendElement(out, "name", localized("Aufenthalt") + other("not this"));
        throw GPXError(std::string("built") + "elsewhere");
        const char quote = '"'; localized("after a quote character");
        explicit GPXError(std::string_view germanText);
    )cpp");
    EXPECT_EQ(found, (std::vector<std::string>{"Aufenthalt", "after a quote character"}));
}

TEST(CoreMessages, WritesEachTextOnceForLupdate) {
    const auto input = lupdateInput({"Aufenthalt", "Fahrt", "Aufenthalt", ""});
    EXPECT_NE(input.find("QT_TRANSLATE_NOOP(\"trackloom::core\", \"Aufenthalt\")"),
              std::string::npos);
    EXPECT_EQ(input.find("Aufenthalt"), input.rfind("Aufenthalt"));
    EXPECT_NE(input.find("\"Fahrt\""), std::string::npos);
    EXPECT_EQ(input.find("\"\")"), std::string::npos) << "no empty entry";
}

} // namespace
} // namespace trackloom::l10n
