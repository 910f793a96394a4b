// The command codes of button assignments that the panel interprets. Every other code is stored and kept
// unchanged; model/Commands.h lists them all.
#pragma once

#include <cstdint>

namespace quorvi::commands {

inline constexpr std::int32_t noFunction = 0;       ///< the input is switched off
inline constexpr std::int32_t click = 1;            ///< the primary click; plain when param2 is 0
inline constexpr std::int32_t switchToProfile = 34; ///< param1: the profile's number, from 1
inline constexpr std::int32_t singleKey = 49; ///< param1: USB usage of the key; param2: USB modifier bits
inline constexpr std::int32_t runMacro = 65;  ///< param1: the macro's "macroid"; param2: 1

} // namespace quorvi::commands
