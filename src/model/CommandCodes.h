// The command codes of button assignments that the model and the editors treat by their meaning. Every other
// code is stored and carried as it stands.
#pragma once

#include <cstdint>

namespace quorvi::commands {

inline constexpr std::int32_t noFunction = 0;
inline constexpr std::int32_t click = 1;            ///< plain when its second parameter is 0
inline constexpr std::int32_t switchToProfile = 34; ///< first parameter: the profile's number, from 1
inline constexpr std::int32_t singleKey = 49;
inline constexpr std::int32_t runMacro = 65; ///< first parameter: the macro's identifier

} // namespace quorvi::commands
