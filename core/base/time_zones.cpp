#include "core/base/time_zones.h"

#include <cstdlib>

namespace trackloom {

const date::time_zone* findTimeZone(std::string_view name) {
    try {
        return date::locate_zone(name);
    } catch (const std::exception&) {
        return nullptr;
    }
}

const date::time_zone* systemTimeZone() {
    if (const char* variable = std::getenv("TZ"); variable != nullptr && *variable != '\0') {
        std::string_view name(variable);
        if (name.front() == ':') {
            name.remove_prefix(1);
        }
        if (const auto* zone = findTimeZone(name)) {
            return zone;
        }
    }
    try {
        return date::current_zone();
    } catch (const std::exception&) {
        return date::locate_zone("UTC");
    }
}

} // namespace trackloom
