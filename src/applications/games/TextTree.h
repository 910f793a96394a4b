// Nested texts in game launchers' formats: Valve's KeyValues and JSON.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvi::games {

/// A text or members, or neither.
struct TextTree {
    // Defined where the pair below is complete, as clang requires.
    TextTree();
    TextTree(const TextTree& other);
    TextTree(TextTree&& other) noexcept;
    TextTree& operator=(const TextTree& other);
    TextTree& operator=(TextTree&& other) noexcept;
    ~TextTree();

    std::string text; ///< a JSON number, true and false as written; empty for null
    std::vector<std::pair<std::string, TextTree>> members; ///< those of a JSON array have no names

    /// The first member with that name, ignoring case, or an empty one.
    [[nodiscard]] const TextTree& operator[](std::string_view name) const&;
    const TextTree& operator[](std::string_view name) const&& = delete; // the result would dangle
};

// Reading is total: it stops at the first fault and returns everything before it. Nesting deeper than 32 and
// more than a hundred thousand values are faults.

[[nodiscard]] TextTree readKeyValues(std::string_view text);
[[nodiscard]] TextTree readJson(std::string_view text);

} // namespace quorvi::games
