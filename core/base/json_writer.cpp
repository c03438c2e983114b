#include "core/base/json_writer.h"

#include <charconv>
#include <cmath>

namespace trackloom {

void JsonWriter::beforeValue() {
    if (m_afterKey) {
        m_afterKey = false;
        return;
    }
    if (!m_hasMembers.empty()) {
        if (m_hasMembers.back()) {
            m_out += ',';
        }
        m_hasMembers.back() = true;
    }
}

JsonWriter& JsonWriter::open(char bracket) {
    beforeValue();
    m_out += bracket;
    m_hasMembers.push_back(false);
    return *this;
}

JsonWriter& JsonWriter::close(char bracket) {
    m_out += bracket;
    m_hasMembers.pop_back();
    return *this;
}

JsonWriter& JsonWriter::beginObject() {
    return open('{');
}
JsonWriter& JsonWriter::endObject() {
    return close('}');
}
JsonWriter& JsonWriter::beginArray() {
    return open('[');
}
JsonWriter& JsonWriter::endArray() {
    return close(']');
}

JsonWriter& JsonWriter::key(std::string_view name) {
    beforeValue();
    appendEscaped(m_out, name);
    m_out += ':';
    m_afterKey = true;
    return *this;
}

JsonWriter& JsonWriter::value(std::string_view text) {
    beforeValue();
    appendEscaped(m_out, text);
    return *this;
}

JsonWriter& JsonWriter::value(double number) {
    if (!std::isfinite(number)) {
        return null();
    }
    beforeValue();
    m_out += formatNumber(number);
    return *this;
}

JsonWriter& JsonWriter::value(std::int64_t number) {
    beforeValue();
    m_out += std::to_string(number);
    return *this;
}

JsonWriter& JsonWriter::value(bool flag) {
    beforeValue();
    m_out += flag ? "true" : "false";
    return *this;
}

JsonWriter& JsonWriter::null() {
    beforeValue();
    m_out += "null";
    return *this;
}

std::string JsonWriter::formatNumber(double number) {
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, number);
    return std::string(buffer, result.ptr);
}

void JsonWriter::appendEscaped(std::string& out, std::string_view text) {
    static constexpr char hex[] = "0123456789abcdef";
    out += '"';
    for (const char c : text) {
        switch (c) {
        case '"':
            out += "\\\"";
            break;
        case '\\':
            out += "\\\\";
            break;
        case '\n':
            out += "\\n";
            break;
        case '\r':
            out += "\\r";
            break;
        case '\t':
            out += "\\t";
            break;
        case '\b':
            out += "\\b";
            break;
        case '\f':
            out += "\\f";
            break;
        default:
            if (static_cast<unsigned char>(c) < 0x20) {
                out += "\\u00";
                out += hex[(c >> 4) & 0xf];
                out += hex[c & 0xf];
            } else {
                out += c;
            }
        }
    }
    out += '"';
}

} // namespace trackloom
