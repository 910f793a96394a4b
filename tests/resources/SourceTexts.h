// String literals of C++ sources: enough of a reader to tell which texts a program looks up.
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace quorvi::test {

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
