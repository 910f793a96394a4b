// Replaces a step by another one, so that every press keeps its release.
#pragma once

#include <cstddef>
#include <cstdint>

#include "plist/Value.h"

namespace quorvi {

/// Replaces the step at the index, which must be below the number of steps. The step stays a press or a
/// release: a press recorded over a release becomes the release of the new key or button. The old step's
/// partner (the next release after a press, or the last press before a release, of the same key) becomes the
/// other half; without a partner only the step is replaced. Does nothing for codes that are neither a key's
/// nor a mouse button's.
void replaceStep(const plist::Array& steps, std::size_t index, std::uint32_t code, std::uint8_t argument);

} // namespace quorvi
