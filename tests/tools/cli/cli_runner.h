#pragma once

// Runs trackloom-cli as a separate process, the way scripts use it.

#include <string>
#include <vector>

namespace trackloom::testing {

struct CliResult {
    int status = -1;
    std::string out;
    std::string err;
};

/// Runs the tool with `arguments` (each passed as one argument, unquoted).
CliResult runCli(const std::vector<std::string>& arguments);

/// A fresh empty folder under the system's temporary folder.
std::string temporaryFolder();

} // namespace trackloom::testing
