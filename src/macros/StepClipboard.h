// The steps of a macro as a text for the clipboard, and such a text as steps: "press Ctrl, 50 ms, press C".
//
// The text is always English and names keys by their places on the keyboard of the United States: a step
// holds a place, not a character, and the text may be pasted under another language and layout.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "plist/Value.h"

namespace quorvi {

/// The steps with their delays. Leaves out steps that are neither a key's nor a mouse button's, and delays
/// that a mouse cannot keep (above 16,777,215 ms, or negative). Empty if nothing is left.
[[nodiscard]] std::string textOfSteps(const plist::Array& steps);

enum class StepsTextError : std::uint8_t {
    none,
    empty,    ///< only blanks and commas
    tooLong,  ///< longer than kLongestStepsText
    notAStep, ///< a part is neither a step nor a delay, or a delay has no step before it
};

/// Longer texts are not read, in UTF-16 units. Sixteen steps are at most some 800.
inline constexpr std::size_t kLongestStepsText = 16384;

struct StepsOfText {
    plist::Array steps; ///< new ones; nil with an error
    StepsTextError error = StepsTextError::none;
    std::u16string part; ///< with notAStep the part of the text, without blanks around it
};

/// Reads what textOfSteps() writes, and what people write: parts are separated by commas or line breaks; case
/// and the number of blanks do not matter; keys have the usual other names too; a delay is a whole number of
/// milliseconds, or with "s" of seconds with up to three decimals, and may follow "wait". A comma between two
/// digits is a decimal sign. Delays that follow each other add up. There may be more steps than a macro
/// holds.
[[nodiscard]] StepsOfText stepsOfText(std::u16string_view text);

} // namespace quorvi
