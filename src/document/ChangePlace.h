// The place in the window where a change of the settings shows.
#pragma once

#include <cstdint>
#include <vector>

#include "plist/Value.h"

namespace quorvi {

enum class PlaceTab : std::uint8_t { buttons, sensitivity, profiles, macros, device };

/// The controls that show a change. Positions count from 0; -1 is none.
struct ChangePlace {
    std::vector<PlaceTab> tabs; ///< the tabs that show it, the most relevant first; may be empty
    std::int32_t macro = -1;    ///< the changed or added macro
    std::int32_t step = -1;     ///< its step
};

/// The places at which the second tree differs from the first.
[[nodiscard]] ChangePlace placeOfChange(const plist::Dictionary& from, const plist::Dictionary& to);

} // namespace quorvi
