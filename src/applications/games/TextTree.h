// Texts in texts, as game launchers keep them: Valve's KeyValues and JSON.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvi::games {

/// A text or members, or neither.
struct TextTree {
    // Where they are defined the pairs below are whole, which clang wants to know.
    TextTree();
    TextTree(const TextTree& other);
    TextTree(TextTree&& other) noexcept;
    TextTree& operator=(const TextTree& other);
    TextTree& operator=(TextTree&& other) noexcept;
    ~TextTree();

    std::string text; ///< a JSON number, true and false as they are written; null is nothing
    std::vector<std::pair<std::string, TextTree>> members; ///< those of a JSON array have no names

    /// The first member of that name, without regard to case, or an empty one.
    [[nodiscard]] const TextTree& operator[](std::string_view name) const&;
    const TextTree& operator[](std::string_view name) const&& = delete; // it would be gone before it is read
};

// Reading is total: at the first fault it ends with what it has read. What nests deeper than 32 is such a
// fault, and so is what comes behind a hundred thousand values.

[[nodiscard]] TextTree readKeyValues(std::string_view text);
[[nodiscard]] TextTree readJson(std::string_view text);

} // namespace quorvi::games
