// The byte code of a macro's steps.
//
// A step is one opcode byte and 0 to 3 argument bytes, big-endian; the opcode determines how many. Delays
// have their own opcodes and belong to the step before them. Steps and delays are packed without gaps.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "model/CodedSteps.h"
#include "model/Limits.h"
#include "plist/Value.h"

namespace quorvi {

/// Writes the steps from the first byte on and returns the number of bytes written. Stops before the first
/// step or delay that does not fit; later bytes stay unchanged. Skips elements that are not dictionaries.
[[nodiscard]] std::size_t encodeSteps(
    const plist::Array& steps, std::span<std::uint8_t, limits::stepBytes> bytes);

/// The steps of the byte code, a new array of new dictionaries. A delay with no step before it is dropped,
/// and so is a step or delay whose argument is cut off by the end.
[[nodiscard]] plist::Array decodeSteps(std::span<const std::uint8_t> bytes);

} // namespace quorvi
