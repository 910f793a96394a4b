// Reading the byte code of a macro's steps piece by piece (described in StepCode.h), without a tree: for
// playing macros as well as for building a tree.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "model/BigEndian.h"
#include "model/ConfigRecord.h"
#include "model/Limits.h"

namespace quorvi {

namespace opcodes {
// The narrow and the wide form of the two step commands that have an argument.
inline constexpr std::uint8_t narrow0 = 0;
inline constexpr std::uint8_t narrow1 = 1;
inline constexpr std::uint8_t wide0 = 2;
inline constexpr std::uint8_t wide1 = 3;
// A delay, by the bytes that it needs.
inline constexpr std::uint8_t delay8 = 17;
inline constexpr std::uint8_t delay16 = 18;
inline constexpr std::uint8_t delay24 = 19;

[[nodiscard]] constexpr bool isDelay(std::uint8_t opcode) {
    return opcode >= delay8 && opcode <= delay24;
}

/// The number of argument bytes, 0 to 3.
[[nodiscard]] constexpr std::size_t argumentWidth(std::uint8_t opcode) {
    switch (opcode) {
    case narrow0:
    case narrow1:
    case delay8:
        return 1;
    case wide0:
    case wide1:
    case delay16:
        return 2;
    case delay24:
        return 3;
    default:
        return 0;
    }
}
} // namespace opcodes

/// A step, or a delay, which has its own opcode.
struct CodedStep {
    std::uint8_t opcode = 0;
    std::uint32_t argument = 0; ///< 0 when the opcode has none
};

/// Removes the first step or delay from the bytes and returns it. Returns std::nullopt and leaves the bytes
/// unchanged if they are empty or end within the argument.
[[nodiscard]] constexpr std::optional<CodedStep> takeCodedStep(std::span<const std::uint8_t>& bytes) {
    if (bytes.empty())
        return std::nullopt;
    const auto opcode = bytes[0];
    const auto width = opcodes::argumentWidth(opcode);
    if (1 + width > bytes.size())
        return std::nullopt;
    const CodedStep step{opcode, loadBigEndian(bytes.subspan(1, width))};
    bytes = bytes.subspan(1 + width);
    return step;
}

/// The step bytes of a slot; std::nullopt if the slot does not hold a macro: an identifier above 69, a name
/// of 0xFF bytes, or a length outside 1 to 178. A length below 50 returns an empty span.
[[nodiscard]] constexpr std::optional<std::span<const std::uint8_t>> stepBytesOf(
    const MacroHeader& header, const MacroBody& body) {
    constexpr auto bytesBefore = offsetof(MacroBody, steps);
    const auto length = loadBigEndian(header.length);
    if (header.macroId > limits::highestMacroId || isUnusedName(body.name) || length < 1 ||
        length > sizeof(MacroBody))
        return std::nullopt;
    return std::span(body.steps).first(length > bytesBefore ? length - bytesBefore : 0);
}

} // namespace quorvi
