#include "cli_runner.h"

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace trackloom::testing {
namespace {

std::string drain(int fd) {
    std::string text;
    std::array<char, 65536> buffer{};
    ssize_t count = 0;
    while ((count = ::read(fd, buffer.data(), buffer.size())) > 0) {
        text.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return text;
}

} // namespace

CliResult runCli(const std::vector<std::string>& arguments) {
    const auto folder = temporaryFolder();
    const auto outPath = folder + "/out";
    const auto errPath = folder + "/err";
    const pid_t child = fork();
    if (child == 0) {
        const int out = ::open(outPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        const int err = ::open(errPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        ::dup2(out, 1);
        ::dup2(err, 2);
        std::vector<char*> argv;
        argv.push_back(const_cast<char*>(TRACKLOOM_CLI));
        for (const auto& argument : arguments) {
            argv.push_back(const_cast<char*>(argument.c_str()));
        }
        argv.push_back(nullptr);
        ::execv(TRACKLOOM_CLI, argv.data());
        ::_exit(127);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    CliResult result;
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    const int out = ::open(outPath.c_str(), O_RDONLY);
    const int err = ::open(errPath.c_str(), O_RDONLY);
    result.out = drain(out);
    result.err = drain(err);
    ::close(out);
    ::close(err);
    std::filesystem::remove_all(folder);
    return result;
}

std::string temporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "trackloom-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) {
        throw std::runtime_error("mkdtemp failed");
    }
    return pattern;
}

} // namespace trackloom::testing
