// The bits of a profile's "ledstate". Bits that the panel does not know are kept as they are.
#pragma once

#include <cstdint>

namespace quorvi::lights {

inline constexpr std::int32_t wheel = 1;
inline constexpr std::int32_t battery = 2; ///< the battery indicator

} // namespace quorvi::lights
