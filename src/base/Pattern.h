// Texts with places that other texts are put into.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace quorvi {

/// The pattern with the first part in place of "^1", the second in place of "^2" and so on. Parts are
/// inserted unchanged, even with such marks; a mark without a part stays. At most nine parts.
[[nodiscard]] std::u16string filledPattern(
    std::u16string_view pattern, std::initializer_list<std::u16string_view> parts);

/// What the pattern of a list has between "^1" and "^2", to be put between each two of its parts; a view of
/// the pattern.
[[nodiscard]] std::u16string_view separatorIn(std::u16string_view pattern);

} // namespace quorvi
