// Matches the profiles and macros of two trees.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "plist/Value.h"

namespace quorvi {

/// The most items that are matched; the panel has at most 5 profiles and 12 macros.
inline constexpr std::size_t mostMatched = 32;

class Matches {
  public:
    /// For each of the earlier list's items, its place in the present list.
    using Places = std::vector<std::optional<std::size_t>>;

    Matches(Places nowOfEarlier, std::size_t countOfNow);

    /// The places in both lists of the items in both, in present order.
    [[nodiscard]] std::vector<std::pair<std::size_t, std::size_t>> pairs() const;
    [[nodiscard]] std::vector<std::size_t> onlyEarlier() const;
    [[nodiscard]] std::vector<std::size_t> onlyNow() const;
    /// Whether the two places hold the same item. Accepts any numbers.
    [[nodiscard]] bool areSame(std::int64_t earlier, std::int64_t now) const;
    /// Whether the items in both lists have a different order.
    [[nodiscard]] bool areReordered() const;

  private:
    Places m_nowOfEarlier;
    Places m_earlierOfNow;
};

/// Matches lists made by whatCounts(). A profile matches by its name, else by its functions, for a renamed
/// one.
[[nodiscard]] Matches matchedProfiles(const plist::Array& earlier, const plist::Array& now);

/// A macro matches by its identifier together with its name or its steps, because identifiers of removed
/// macros are soon reused; else by its name alone.
[[nodiscard]] Matches matchedMacros(const plist::Array& earlier, const plist::Array& now);

} // namespace quorvi
