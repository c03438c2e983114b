#include "tools/l10n/core_messages.h"

#include <cctype>
#include <map>
#include <set>

namespace trackloom::l10n {
namespace {

enum class Kind { identifier, text, open, close, comma, assign, other };

struct Token {
    Kind kind;
    std::string value;
    int line;
};

bool isIdentifierChar(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) || c == '_';
}

class Tokenizer {
  public:
    explicit Tokenizer(std::string_view source) : m_source(source) {}

    std::vector<Token> tokens() {
        std::vector<Token> result;
        while (m_at < m_source.size()) {
            const char c = m_source[m_at];
            if (c == '\n') {
                ++m_line;
                ++m_at;
            } else if (std::isspace(static_cast<unsigned char>(c))) {
                ++m_at;
            } else if (startsWith("//") || c == '#') {
                // Preprocessor lines carry include paths, never messages.
                skipLine();
            } else if (startsWith("/*")) {
                skipUntil("*/");
            } else if (startsWith("R\"")) {
                skipRawString();
            } else if (c == '"') {
                result.push_back({Kind::text, quoted('"'), m_line});
            } else if (c == '\'') {
                quoted('\'');
                result.push_back({Kind::other, {}, m_line});
            } else if (isIdentifierChar(c)) {
                const std::size_t start = m_at;
                while (m_at < m_source.size() && isIdentifierChar(m_source[m_at])) {
                    ++m_at;
                }
                std::string word(m_source.substr(start, m_at - start));
                // An encoding prefix belongs to the literal that follows it.
                if ((word == "u8" || word == "u" || word == "U" || word == "L") &&
                    m_at < m_source.size() && m_source[m_at] == '"') {
                    continue;
                }
                result.push_back({Kind::identifier, std::move(word), m_line});
            } else {
                ++m_at;
                const Kind kind = c == '('                       ? Kind::open
                                  : c == ')'                     ? Kind::close
                                  : c == ','                     ? Kind::comma
                                  : c == '=' && !startsWith("=") ? Kind::assign
                                                                 : Kind::other;
                if (c == '=' && startsWith("=")) {
                    ++m_at;
                }
                result.push_back({kind, std::string(1, c), m_line});
            }
        }
        return result;
    }

  private:
    bool startsWith(std::string_view text) const {
        return m_source.substr(m_at, text.size()) == text;
    }

    void skipLine() {
        // A backslash at the end of a preprocessor line continues it.
        while (m_at < m_source.size() && m_source[m_at] != '\n') {
            if (m_source[m_at] == '\\' && m_at + 1 < m_source.size() &&
                m_source[m_at + 1] == '\n') {
                ++m_line;
                ++m_at;
            }
            ++m_at;
        }
    }

    void skipUntil(std::string_view end) {
        const auto found = m_source.find(end, m_at);
        const std::size_t stop =
            found == std::string_view::npos ? m_source.size() : found + end.size();
        for (; m_at < stop; ++m_at) {
            m_line += m_source[m_at] == '\n';
        }
    }

    void skipRawString() {
        const auto open = m_source.find('(', m_at);
        if (open == std::string_view::npos) {
            m_at = m_source.size();
            return;
        }
        const std::string delimiter(m_source.substr(m_at + 2, open - m_at - 2));
        m_at = open;
        skipUntil(")" + delimiter + "\"");
    }

    std::string quoted(char quote) {
        const std::size_t start = ++m_at;
        while (m_at < m_source.size() && m_source[m_at] != quote && m_source[m_at] != '\n') {
            m_at += m_source[m_at] == '\\' ? 2 : 1;
        }
        std::string contents(m_source.substr(start, std::min(m_at, m_source.size()) - start));
        ++m_at;
        return contents;
    }

    std::string_view m_source;
    std::size_t m_at = 0;
    int m_line = 1;
};

bool isTranslatingCall(const std::string& name) {
    static const std::set<std::string> names{"GPXError", "withNumber", "withDetail", "localized"};
    return names.contains(name);
}

/// The joined literals starting at `at`, and the index after them.
std::pair<std::string, std::size_t> joinedText(const std::vector<Token>& tokens, std::size_t at) {
    std::string text;
    while (at < tokens.size() && tokens[at].kind == Kind::text) {
        text += tokens[at++].value;
    }
    return {text, at};
}

/// Whether tokens [begin, end) make up one argument on their own: a text that
/// is only part of an expression is not the message.
bool isWholeArgument(const std::vector<Token>& tokens, std::size_t begin, std::size_t end) {
    return begin > 0 && end < tokens.size() &&
           (tokens[begin - 1].kind == Kind::open || tokens[begin - 1].kind == Kind::comma) &&
           (tokens[end].kind == Kind::close || tokens[end].kind == Kind::comma);
}

} // namespace

std::vector<SourceText> coreMessagesIn(std::string_view source) {
    const auto tokens = Tokenizer(source).tokens();

    std::map<std::string, std::string> constants;
    for (std::size_t i = 0; i + 2 < tokens.size(); ++i) {
        if (tokens[i].kind == Kind::identifier && tokens[i + 1].kind == Kind::assign &&
            tokens[i + 2].kind == Kind::text) {
            constants[tokens[i].value] = joinedText(tokens, i + 2).first;
        }
    }

    std::vector<SourceText> found;
    // The parenthesis depths at which a translating call's arguments are read.
    std::vector<int> callDepths;
    int depth = 0;
    const auto inCall = [&] { return !callDepths.empty() && callDepths.back() == depth; };
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const Token& token = tokens[i];
        switch (token.kind) {
        case Kind::open:
            ++depth;
            if (i > 0 && tokens[i - 1].kind == Kind::identifier &&
                isTranslatingCall(tokens[i - 1].value)) {
                callDepths.push_back(depth);
            }
            break;
        case Kind::close:
            if (!callDepths.empty() && callDepths.back() == depth) {
                callDepths.pop_back();
            }
            --depth;
            break;
        case Kind::text: {
            auto [text, next] = joinedText(tokens, i);
            if (inCall() && isWholeArgument(tokens, i, next)) {
                found.push_back({std::move(text), token.line});
            }
            i = next - 1;
            break;
        }
        case Kind::identifier: {
            const auto constant = constants.find(token.value);
            if (constant != constants.end() && inCall() && isWholeArgument(tokens, i, i + 1)) {
                found.push_back({constant->second, token.line});
            }
            break;
        }
        default:
            break;
        }
    }
    return found;
}

std::string lupdateInput(const std::vector<std::string>& literals) {
    std::string out = "// Generated from the core's sources for lupdate; never compiled.\n"
                      "static const char* const coreMessages[] = {\n";
    std::set<std::string> written;
    for (const auto& literal : literals) {
        if (!literal.empty() && written.insert(literal).second) {
            out += "    QT_TRANSLATE_NOOP(\"" + std::string(coreContext) + "\", \"" + literal +
                   "\"),\n";
        }
    }
    return out + "};\n";
}

} // namespace trackloom::l10n
