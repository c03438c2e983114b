#include "core/base/gpx_error.h"

#include "core/base/localization.h"

namespace trackloom {

GPXError::GPXError(std::string_view germanText) : m_message(localized(germanText)) {}

GPXError GPXError::withNumber(std::string_view before, std::int64_t number,
                              std::string_view after) {
    return GPXError(AlreadyLocalized{},
                    localized(before) + std::to_string(number) + localized(after));
}

GPXError GPXError::withDetail(std::string_view germanPrefix, std::string_view detail) {
    return GPXError(AlreadyLocalized{}, localized(germanPrefix) + std::string(detail));
}

} // namespace trackloom
