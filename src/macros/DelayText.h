// Delays as people write them: "75 ms", "1.5 s", "2 min".
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "macros/StepText.h"

namespace quorvi {

/// How the user writes numbers and units.
struct DelayLanguage {
    char16_t decimalSign; ///< a comma, or anything else for a point
    TextLookup lookup;    ///< the units: patterns with "^1" for the number, and lists of names
};

/// The delay exactly, with the shortest unit names: milliseconds below a second, else seconds with as many
/// places as it takes; "0" for none. Milliseconds, from 0 on; below that there is none either.
[[nodiscard]] std::u16string delayText(std::int32_t milliseconds, const DelayLanguage& language);

/// Why a text is no delay that can be stored.
enum class DelayFault : std::uint8_t {
    nonsense, ///< no number, or a unit that is none
    negative,
    tooFine, ///< a part of a millisecond
    tooLong, ///< more than limits::longestDelay
};

/// The milliseconds that the text stands for, from 0 to limits::longestDelay, or what is wrong with it.
///
/// A number without a unit counts milliseconds. Units are milliseconds, seconds and minutes, by their English
/// names and those of the language. Digits may be those of other scripts. The language's decimal sign always
/// is one. The other of point and comma groups digits where three follow each, and is a decimal sign
/// elsewhere. Blanks and apostrophes group digits too.
[[nodiscard]] std::variant<std::int32_t, DelayFault> delayInText(
    std::u16string_view text, const DelayLanguage& language);

} // namespace quorvi
