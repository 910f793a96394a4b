#include "applications/ExecKey.h"

#include <algorithm>
#include <array>

#include "applications/PathName.h"

namespace quorvi {

namespace {

constexpr std::string_view kBlanks = " \t\n";
constexpr std::string_view kEscapedInQuotes = "\"`$\\";

/// Splits an Exec value into words, character by character.
class WordReader {
  public:
    explicit WordReader(std::string_view text) : m_rest(text) {}

    std::optional<std::vector<std::string>> words() {
        std::vector<std::string> words;
        for (skipBlanks(); !m_rest.empty(); skipBlanks())
            if (!readWord(words.emplace_back()))
                return std::nullopt;
        return words;
    }

  private:
    void skipBlanks() { m_rest.remove_prefix(std::min(m_rest.find_first_not_of(kBlanks), m_rest.size())); }

    char take() {
        const char c = m_rest.front();
        m_rest.remove_prefix(1);
        return c;
    }

    bool nextIsOneOf(std::string_view characters) const {
        return !m_rest.empty() && characters.find(m_rest.front()) != std::string_view::npos;
    }

    bool readWord(std::string& word) {
        while (!m_rest.empty() && !nextIsOneOf(kBlanks)) {
            const char c = take();
            if (c == '"' || c == '\'') {
                if (!readQuoted(word, c))
                    return false;
            } else if (c == '\\' && !m_rest.empty()) {
                word.push_back(take());
            } else {
                addPlain(word, c);
            }
        }
        return true;
    }

    bool readQuoted(std::string& word, char quote) {
        while (!m_rest.empty()) {
            const char c = take();
            if (c == quote)
                return true;
            if (c == '\\' && quote == '"' && nextIsOneOf(kEscapedInQuotes))
                word.push_back(take());
            else
                addPlain(word, c);
        }
        return false;
    }

    void addPlain(std::string& word, char c) {
        if (c == '%' && nextIsOneOf("%"))
            take();
        word.push_back(c);
    }

    std::string_view m_rest;
};

/// The options of "env" whose value is the next word.
constexpr std::array<std::string_view, 4> kEnvOptionsWithValue{"-u", "--unset", "-C", "--chdir"};

using Words = std::vector<std::string>;

/// The start of env's command, after its options and variables.
Words::const_iterator envCommand(Words::const_iterator word, Words::const_iterator end) {
    bool options = true; // only before the variables
    for (; word != end; ++word) {
        const bool isOption = options && word->starts_with('-');
        if (!isOption && word->find('=') == std::string::npos)
            break;
        options = isOption && *word != "--";
        const bool takesNext = isOption && std::find(kEnvOptionsWithValue.begin(), kEnvOptionsWithValue.end(),
                                               *word) != kEnvOptionsWithValue.end();
        if (takesNext && std::next(word) != end)
            ++word;
    }
    return word;
}

} // namespace

std::string execLine(std::string_view path) {
    // A program's path must not hold "=", and desktops look for the program before they turn "%%" into "%".
    // An argument may hold both, so such a program is passed as an argument to another one that just runs it.
    const bool asArgument = path.find_first_of("%=") != std::string_view::npos;
    std::string line(asArgument ? "nice -n 0 \"" : "\"");
    for (const char c : path) {
        if (kEscapedInQuotes.find(c) != std::string_view::npos)
            line.push_back('\\');
        else if (c == '%') // would start a field code
            line.push_back('%');
        line.push_back(c);
    }
    line.push_back('"');
    return line;
}

std::optional<std::vector<std::string>> execWords(std::string_view exec) {
    return WordReader(exec).words();
}

std::string execProgramName(std::string_view exec) {
    const auto words = execWords(exec);
    if (!words || words->empty())
        return {};
    auto program = words->begin();
    while (lastComponent(*program) == "env") {
        const auto command = envCommand(std::next(program), words->end());
        if (command == words->end())
            break;
        program = command;
    }
    return std::string(lastComponent(*program));
}

} // namespace quorvi
