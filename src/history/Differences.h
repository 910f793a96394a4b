// The differences between two configuration trees, in words for users.
#pragma once

#include <cstddef>
#include <vector>

#include "history/Phrase.h"
#include "plist/Value.h"

namespace quorvi {

/// The longest list; "Other settings are different" stands for the rest.
inline constexpr std::size_t mostDifferences = 100;

/// The differences between the earlier and the present tree, each as one sentence: "Button 4 of “Drawing”:
/// Back → Copy", "Macro “Build” was there", "Profile “Mail” was not there". Lost items come first, then new
/// ones, then changes, in the window's order.
///
/// Empty exactly if both trees are equivalent for the user. Ignores the firmware's number and the stored menu
/// texts of assignments. Differences without words become "Other settings are different". Accepts any trees,
/// including nil. Single keys have their names in the present keyboard layout (KeyNames.h).
[[nodiscard]] std::vector<Phrase> differencesBetween(
    const plist::Dictionary& earlier, const plist::Dictionary& now);

} // namespace quorvi
