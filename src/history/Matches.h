// Which profiles and macros of two trees are the same ones.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "plist/Value.h"

namespace quorvi {

/// Items beyond this one are not matched: the panel holds 5 profiles and 12 macros.
inline constexpr std::size_t mostMatched = 32;

class Matches {
  public:
    /// For each of the earlier list's items the place of the same one in the list of now.
    using Places = std::vector<std::optional<std::size_t>>;

    Matches(Places nowOfEarlier, std::size_t countOfNow);

    /// The places in both lists of those that are in both, in the order of now.
    [[nodiscard]] std::vector<std::pair<std::size_t, std::size_t>> pairs() const;
    [[nodiscard]] std::vector<std::size_t> onlyEarlier() const;
    [[nodiscard]] std::vector<std::size_t> onlyNow() const;
    /// Whether the two places hold the same item. Any numbers may be asked for.
    [[nodiscard]] bool areSame(std::int64_t earlier, std::int64_t now) const;
    /// Whether those that are in both have changed places among themselves.
    [[nodiscard]] bool areReordered() const;

  private:
    Places m_nowOfEarlier;
    Places m_earlierOfNow;
};

/// Of lists as whatCounts() has made them. A profile is known again by its name, or without that by what it
/// is for: a renamed one that has kept its functions.
[[nodiscard]] Matches matchedProfiles(const plist::Array& earlier, const plist::Array& now);

/// A macro is known again by its identifier when it has kept its name or its steps too: the identifier of a
/// removed one is soon given to another. Or by its name alone.
[[nodiscard]] Matches matchedMacros(const plist::Array& earlier, const plist::Array& now);

} // namespace quorvi
