// Delays as people write them: "75 ms", "1.5 s", "2 min".
#pragma once

#include <cstdint>
#include <optional>
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

/// The exact delay with the shortest unit name: milliseconds below a second, otherwise seconds with as many
/// decimals as needed. The argument is in milliseconds; "0" for 0 and below.
[[nodiscard]] std::u16string delayText(std::int32_t milliseconds, const DelayLanguage& language);

/// Why a text is not a delay that can be stored.
enum class DelayFault : std::uint8_t {
    nonsense, ///< not a number, or an unknown unit
    negative,
    tooFine, ///< a part of a millisecond
    tooLong, ///< more than limits::longestDelay
};

/// The text's milliseconds, from 0 to limits::longestDelay, or the reason why it is not a delay.
///
/// A number without a unit counts milliseconds. Units are milliseconds, seconds and minutes, by their English
/// names and those of the language. Digits may be those of other scripts. The language's decimal sign is
/// always accepted. The other of point and comma groups digits if three follow each, and is a decimal sign
/// otherwise. Blanks and apostrophes group digits too.
[[nodiscard]] std::variant<std::int32_t, DelayFault> delayInText(
    std::u16string_view text, const DelayLanguage& language);

/// The factor of a text such as "0.5" or "2", in thousandths. std::nullopt if the text is not a factor above
/// 0, has more than three decimals, or is above 16,777. Numbers are as in delayInText().
[[nodiscard]] std::optional<std::int32_t> factorInText(std::u16string_view text, char16_t decimalSign);

} // namespace quorvi
