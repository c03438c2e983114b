#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace trackloom {

/// Turns a German source text into the text of the current language. German
/// is the source language, so the default lookup returns its key unchanged.
using MessageLookup = std::function<std::string(std::string_view germanText)>;

/// Replaces the lookup for the whole process (the application installs its
/// translator once at start, before any background work runs).
void setMessageLookup(MessageLookup lookup);

/// The localised form of `germanText` through the installed lookup.
std::string localized(std::string_view germanText);

} // namespace trackloom
