// What is different between two configuration trees, in words that a user understands.
#pragma once

#include <cstddef>
#include <vector>

#include "history/Phrase.h"
#include "plist/Value.h"

namespace quorvi {

/// The list is no longer than this; "Other settings are different" stands for what it has no room for.
inline constexpr std::size_t mostDifferences = 100;

/// What the earlier tree had that the one of now has not, and the other way round, each as one sentence:
/// "Button 4 of “Drawing”: Back → Copy", "Macro “Build” was there", "Profile “Mail” was not there". What is
/// lost comes first, then what is new, then what has changed, in the order of the window.
///
/// Empty exactly when both trees have the user do the same things. The firmware's number and what menus once
/// said of an assignment make no difference. What there are no words for is "Other settings are different".
/// Takes trees of any content, nil too. Single keys are named under the keyboard layout in use (KeyNames.h).
[[nodiscard]] std::vector<Phrase> differencesBetween(
    const plist::Dictionary& earlier, const plist::Dictionary& now);

} // namespace quorvi
