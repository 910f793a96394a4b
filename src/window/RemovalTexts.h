// What a question before a removal says of the inputs that will do something else.
#pragma once

#include <QString>

#include <cstddef>

#include "plist/Value.h"
#include "widgets/FilledText.h"

namespace quorvi {

/// What the inputs that run the macro at the index of the tree will do without it: a line for each of the
/// first ones, and how many there are beside them. Empty when none runs it.
[[nodiscard]] QString effectOfRemovingMacro(
    const plist::Dictionary& tree, std::size_t macro, const PanelText& text);

/// The same of the inputs that switch to the profile at the index, or to one behind it, whose number is to be
/// another profile's.
[[nodiscard]] QString effectOfRemovingProfile(
    const plist::Dictionary& tree, std::size_t profile, const PanelText& text);

} // namespace quorvi
