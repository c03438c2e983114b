#include "core/timeline/json_reading.h"

#include <cmath>

namespace trackloom::json {

void check(simdjson::error_code error) {
    switch (error) {
    case simdjson::SUCCESS:
        return;
    case simdjson::INCORRECT_TYPE:
    case simdjson::NUMBER_ERROR:
    case simdjson::NUMBER_OUT_OF_RANGE:
    case simdjson::NO_SUCH_FIELD:
        throw ValueMismatch{};
    default:
        throw MalformedDocument{};
    }
}

OnDemandDocument::OnDemandDocument(std::string_view data, std::size_t capacity)
    : m_error(m_parser.iterate(simdjson::padded_string_view(data.data(), data.size(), capacity))
                  .get(m_document)) {}

simdjson::ondemand::document& OnDemandDocument::fromStart() {
    check(m_error);
    if (m_malformed) {
        throw MalformedDocument{};
    }
    m_document.rewind();
    return m_document;
}

simdjson::ondemand::json_type typeOf(Value& value) {
    simdjson::ondemand::json_type type{};
    check(value.type().get(type));
    return type;
}

bool isNull(Value& value) {
    if (typeOf(value) != simdjson::ondemand::json_type::null) {
        return false;
    }
    bool null = false;
    check(value.is_null().get(null));
    if (!null) {
        throw MalformedDocument{};
    }
    return true;
}

std::string_view readString(Value& value) {
    if (typeOf(value) != simdjson::ondemand::json_type::string) {
        throw ValueMismatch{};
    }
    // Most strings hold no escapes; those are taken straight from the input
    // instead of being copied into the parser's buffer.
    const auto token = value.raw_json_token();
    std::size_t stop = 1;
    while (stop < token.size() && token[stop] != '"' && token[stop] != '\\') {
        ++stop;
    }
    if (stop < token.size() && token[stop] == '"') {
        return token.substr(1, stop - 1);
    }
    std::string_view text;
    check(value.get_string().get(text));
    return text;
}

std::optional<std::string_view> readOptionalString(Value& value) {
    if (isNull(value)) {
        return std::nullopt;
    }
    return readString(value);
}

double readDouble(Value& value) {
    double number = 0;
    check(value.get_double().get(number));
    return number;
}

std::optional<double> readOptionalDouble(Value& value) {
    if (isNull(value)) {
        return std::nullopt;
    }
    return readDouble(value);
}

std::int64_t readInteger(Value& value) {
    std::int64_t integer = 0;
    if (value.get_int64().get(integer) == simdjson::SUCCESS) {
        return integer;
    }
    const double number = readDouble(value);
    // 2^63 is exact as a double; everything below it in magnitude converts.
    constexpr double limit = 9223372036854775808.0;
    if (number != std::trunc(number) || number < -limit || number >= limit) {
        throw ValueMismatch{};
    }
    return static_cast<std::int64_t>(number);
}

bool isAtEnd(simdjson::ondemand::document& document) {
    const char* location = nullptr;
    return document.current_location().get(location) == simdjson::OUT_OF_BOUNDS;
}

std::string_view fieldName(simdjson::ondemand::field& field) {
    const char* start = reinterpret_cast<const char*>(field.key().raw());
    const char* end = start;
    // The parser has already found the closing quote, so the scan stops in time.
    while (*end != '"' && *end != '\\') {
        ++end;
    }
    if (*end == '"') {
        return {start, static_cast<std::size_t>(end - start)};
    }
    std::string_view name;
    check(field.unescaped_key().get(name));
    return name;
}

} // namespace trackloom::json
