#include "core/base/json_writer.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace trackloom {
namespace {

TEST(JsonWriter, NestsWithCommasAndEscapes) {
    JsonWriter json;
    json.beginObject()
        .key("a")
        .value(1)
        .key("b")
        .beginArray()
        .value("x\"\\\n\x01")
        .null()
        .beginObject()
        .endObject()
        .endArray()
        .key("c")
        .value(std::optional<double>())
        .key("ü")
        .value(true)
        .endObject();
    EXPECT_EQ(json.text(), R"({"a":1,"b":["x\"\\\n\u0001",null,{}],"c":null,"ü":true})");
}

TEST(JsonWriter, DoublesInShortestRoundTripForm) {
    EXPECT_EQ(JsonWriter::formatNumber(0.1), "0.1");
    EXPECT_EQ(JsonWriter::formatNumber(48.14), "48.14");
    EXPECT_EQ(JsonWriter::formatNumber(36.0), "36");
    EXPECT_EQ(JsonWriter::formatNumber(1e21), "1e+21");
    const double third = 1.0 / 3.0;
    EXPECT_EQ(std::stod(JsonWriter::formatNumber(third)), third);
    JsonWriter json;
    json.beginArray().value(std::nan("")).value(std::numeric_limits<double>::infinity()).endArray();
    EXPECT_EQ(json.text(), "[null,null]");
}

} // namespace
} // namespace trackloom
