#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace trackloom {

/// The one error type of the core library: a refusal whose message is a
/// localised German sentence, shown to the user as it stands.
class GPXError : public std::exception {
  public:
    /// Looks `germanText` up as a localisation key and keeps the result.
    explicit GPXError(std::string_view germanText);

    /// A message built from localised fixed pieces around a decimal number,
    /// such as "Punkt " + 3 + " hat ungültige Koordinaten.".
    static GPXError withNumber(std::string_view before, std::int64_t number,
                               std::string_view after);
    /// A localised prefix followed by text that is not translated (a parser's
    /// own description, a file name).
    static GPXError withDetail(std::string_view germanPrefix, std::string_view detail);

    const std::string& message() const { return m_message; }
    const char* what() const noexcept override { return m_message.c_str(); }

  private:
    struct AlreadyLocalized {};
    GPXError(AlreadyLocalized, std::string message) : m_message(std::move(message)) {}

    std::string m_message;
};

} // namespace trackloom
