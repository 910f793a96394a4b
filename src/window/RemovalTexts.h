// Texts about inputs affected by a removal, for the question before it.
#pragma once

#include <QString>

#include <cstddef>

#include "plist/Value.h"
#include "widgets/FilledText.h"

namespace quorvi {

/// The new functions of the inputs that run the macro at the index: a line for each of the first ones, and
/// the number of others. Empty if none runs it.
[[nodiscard]] QString effectOfRemovingMacro(
    const plist::Dictionary& tree, std::size_t macro, const PanelText& text);

/// The same for the inputs that switch to the profile at the index, or to a later one, whose number will
/// change.
[[nodiscard]] QString effectOfRemovingProfile(
    const plist::Dictionary& tree, std::size_t profile, const PanelText& text);

} // namespace quorvi
