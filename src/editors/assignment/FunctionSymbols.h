// The signs of the inputs' functions, which the pop-ups draw before their titles.
#pragma once

#include <optional>

#include "widgets/SymbolIcon.h"

namespace quorvi {

/// The sign of the function with that command code; std::nullopt for "No Function" and unknown codes.
[[nodiscard]] std::optional<Symbol> symbolOfFunction(int command);

} // namespace quorvi
