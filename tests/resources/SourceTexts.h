// String literals of C++ sources: reads enough to find the texts that a program looks up.
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace quorvi::test {

struct Token {
    enum class Kind { Name, Literal, Other };
    Kind kind;
    std::string text; ///< of a literal without its quotes
    bool isUtf16 = false;
};

/// The source's tokens without comments. Signs are single characters: "+=" is two tokens.
[[nodiscard]] std::vector<Token> tokensOf(std::string_view source);

struct Literal {
    bool isUtf16; ///< written as u"…"
    std::string text;
};

/// The string literals in the source's text, those side by side joined, escapes replaced, comments left out.
[[nodiscard]] std::vector<Literal> literalsIn(std::string_view source);

/// The literals within the parentheses or braces that follow one of the names: Entry{"Record", 1} gives
/// "Record" for "Entry".
[[nodiscard]] std::vector<Literal> literalsGivenTo(
    const std::set<std::string, std::less<>>& names, std::string_view source);

} // namespace quorvi::test
