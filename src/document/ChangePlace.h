// Where in the window a change of the settings is to be seen.
#pragma once

#include <cstdint>
#include <vector>

#include "plist/Value.h"

namespace quorvi {

enum class PlaceTab : std::uint8_t { buttons, sensitivity, profiles, macros, device };

/// What shows a change. Positions count from 0; -1 is none.
struct ChangePlace {
    std::vector<PlaceTab>
        tabs;                ///< on which it is to be seen, the one that tells most of it first; perhaps none
    std::int32_t macro = -1; ///< the macro that is another one, or that has come
    std::int32_t step = -1;  ///< the step of it
};

/// The places at which the second tree differs from the first.
[[nodiscard]] ChangePlace placeOfChange(const plist::Dictionary& from, const plist::Dictionary& to);

} // namespace quorvi
