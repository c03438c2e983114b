#pragma once

// Reading JSON values with simdjson's on-demand parser, shared by the working
// copy and the Google decoding types. On demand reads each value once, in file
// order, without building a tree: a 250 MB history then needs little more memory
// than its bytes and the points made from them.
//
// Two kinds of failure are told apart, because the Google format forgives one:
// a value of the wrong type (`ValueMismatch`) makes only the entry being decoded
// fail; text that is not JSON (`MalformedDocument`) makes the whole file fail.
//
// Internal to the core library: only its own sources include this header.

#include <cstdint>
#include <optional>
#include <simdjson.h>
#include <string_view>
#include <utility>

namespace trackloom::json {

using Value = simdjson::ondemand::value;

struct ValueMismatch {};
struct MalformedDocument {};

/// Throws the failure matching a simdjson error; returns on success.
void check(simdjson::error_code error);

/// JSON bytes indexed once and then read on demand, from the start as often as
/// a caller needs to try another reading of them.
class OnDemandDocument {
  public:
    /// Indexes `data`, which must stay readable up to `capacity`: simdjson reads
    /// a few bytes of padding after the end.
    OnDemandDocument(std::string_view data, std::size_t capacity);
    OnDemandDocument(const OnDemandDocument&) = delete;
    OnDemandDocument& operator=(const OnDemandDocument&) = delete;

    /// Runs `decode` on the document from its start and returns its result;
    /// absent when a value did not fit or the bytes are not JSON.
    template <typename Decode>
    auto read(Decode&& decode)
        -> std::optional<decltype(decode(std::declval<simdjson::ondemand::document&>()))> {
        try {
            return decode(fromStart());
        } catch (const ValueMismatch&) {
            return std::nullopt;
        } catch (const MalformedDocument&) {
            // simdjson gives up an iterator that met broken JSON for good.
            m_malformed = true;
            return std::nullopt;
        }
    }

  private:
    simdjson::ondemand::document& fromStart();

    simdjson::ondemand::parser m_parser;
    simdjson::ondemand::document m_document;
    simdjson::error_code m_error;
    bool m_malformed = false;
};

simdjson::ondemand::json_type typeOf(Value& value);
bool isNull(Value& value);

/// A string's text. It points into the input bytes (or, for text with escapes,
/// into the parser's buffer) and lives as long as the parsed document.
std::string_view readString(Value& value);
/// Absent for null, the text for a string; anything else is a mismatch.
std::optional<std::string_view> readOptionalString(Value& value);
double readDouble(Value& value);
/// Absent for null, the number otherwise.
std::optional<double> readOptionalDouble(Value& value);
/// A whole number in the signed 64-bit range, also when written as 2.0 or 2e3.
std::int64_t readInteger(Value& value);

/// Whether `document` was read up to its last token, with nothing after it.
bool isAtEnd(simdjson::ondemand::document& document);

/// The unescaped name of a member.
std::string_view fieldName(simdjson::ondemand::field& field);

/// Calls `visit(name, value)` for each member of an object, in file order.
template <typename Container, typename Visit>
void forEachField(Container& container, Visit&& visit) {
    simdjson::ondemand::object object;
    check(container.get_object().get(object));
    for (auto member : object) {
        simdjson::ondemand::field field;
        check(std::move(member).get(field));
        const auto name = fieldName(field);
        visit(name, field.value());
    }
}

/// Calls `visit(value)` for each element of an array, in file order.
template <typename Container, typename Visit>
void forEachElement(Container& container, Visit&& visit) {
    simdjson::ondemand::array array;
    check(container.get_array().get(array));
    for (auto element : array) {
        Value value;
        check(std::move(element).get(value));
        visit(value);
    }
}

} // namespace trackloom::json
