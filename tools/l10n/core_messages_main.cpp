// trackloom-core-messages OUTPUT SOURCE…: writes the core's German texts as a
// file for lupdate. The output is only rewritten when it changes, so that the
// translation targets do not run again after every edit of the core.

#include "tools/l10n/core_messages.h"

#include <fstream>
#include <iostream>
#include <sstream>

namespace {

std::string contentsOf(const char* path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::cerr << "Aufruf: trackloom-core-messages AUSGABE QUELLE…\n";
        return 1;
    }
    std::vector<std::string> literals;
    for (int i = 2; i < argc; ++i) {
        std::ifstream probe(argv[i]);
        if (!probe) {
            std::cerr << "Nicht lesbar: " << argv[i] << '\n';
            return 1;
        }
        for (auto& text : trackloom::l10n::coreMessagesIn(contentsOf(argv[i]))) {
            literals.push_back(std::move(text.literal));
        }
    }
    const auto generated = trackloom::l10n::lupdateInput(literals);
    if (contentsOf(argv[1]) != generated) {
        std::ofstream(argv[1], std::ios::binary) << generated;
    }
    return 0;
}
