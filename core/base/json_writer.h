#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace trackloom {

/// A compact streaming JSON writer: commas and nesting are tracked, strings are
/// escaped, doubles are written in their shortest round-trip form (non-finite
/// ones as null). Nothing is built but the output text.
class JsonWriter {
  public:
    JsonWriter& beginObject();
    JsonWriter& endObject();
    JsonWriter& beginArray();
    JsonWriter& endArray();
    /// The key of the next member of the current object.
    JsonWriter& key(std::string_view name);

    JsonWriter& value(std::string_view text);
    JsonWriter& value(const char* text) { return value(std::string_view(text)); }
    JsonWriter& value(double number);
    JsonWriter& value(std::int64_t number);
    JsonWriter& value(int number) { return value(static_cast<std::int64_t>(number)); }
    JsonWriter& value(std::size_t number) { return value(static_cast<std::int64_t>(number)); }
    JsonWriter& value(bool flag);
    JsonWriter& null();
    template <typename T> JsonWriter& value(const std::optional<T>& maybe) {
        return maybe ? value(*maybe) : null();
    }

    const std::string& text() const { return m_out; }
    std::string takeText() { return std::move(m_out); }

    /// The shortest text that reads back as exactly `number`.
    static std::string formatNumber(double number);
    static void appendEscaped(std::string& out, std::string_view text);

  private:
    void beforeValue();
    JsonWriter& open(char bracket);
    JsonWriter& close(char bracket);

    std::string m_out;
    std::vector<bool> m_hasMembers;
    bool m_afterKey = false;
};

} // namespace trackloom
