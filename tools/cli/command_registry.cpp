#include "tools/cli/command_registry.h"

#include "core/base/gpx_error.h"

#include <iostream>

namespace trackloom::cli {

int CommandRegistry::run() const {
    if (!m_work) {
        return usageError;
    }
    try {
        const auto output = m_work();
        std::cout << output << '\n';
        return success;
    } catch (const GPXError& error) {
        std::cerr << error.message() << '\n';
        return refused;
    }
}

} // namespace trackloom::cli
