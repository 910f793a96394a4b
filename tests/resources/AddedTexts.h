// Finds where a source makes a text for the user by adding texts. Other languages need the parts in another
// order, so such a text has to be a pattern with places.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvi::test {

/// Each place where a text that was looked up, or a variable that holds one, is added to something with "+"
/// or
/// "+=", or put into a pattern that the source writes itself: the function's or the variable's name, with its
/// first argument if that is a literal.
[[nodiscard]] std::vector<std::string> addedTextsIn(std::string_view source);

} // namespace quorvi::test
