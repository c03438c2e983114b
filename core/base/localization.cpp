#include "core/base/localization.h"

namespace trackloom {
namespace {

MessageLookup& installedLookup() {
    static MessageLookup lookup;
    return lookup;
}

} // namespace

void setMessageLookup(MessageLookup lookup) {
    installedLookup() = std::move(lookup);
}

std::string localized(std::string_view germanText) {
    const auto& lookup = installedLookup();
    return lookup ? lookup(germanText) : std::string(germanText);
}

} // namespace trackloom
