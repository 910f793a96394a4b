// The replacement of one step by another, so that what is pressed is still released.
#pragma once

#include <cstddef>
#include <cstdint>

#include "plist/Value.h"

namespace quorvi {

/// Puts another movement in the place of the step at the index, which must be below the number of steps. The
/// step stays a press or a release: a press over a release becomes the release of the new key or button. The
/// old step's partner, the next release behind a press or the last press before a release of the same key,
/// takes the other half; without one the step is replaced alone. Does nothing for codes that are neither a
/// key's nor a mouse button's.
void replaceStep(const plist::Array& steps, std::size_t index, std::uint32_t code, std::uint8_t argument);

} // namespace quorvi
