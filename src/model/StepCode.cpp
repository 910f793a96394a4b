#include "model/StepCode.h"

#include <utility>

#include "model/BigEndian.h"
#include "model/Keys.h"

namespace quorvi {

namespace {

using plist::Array;
using plist::Dictionary;

/// A command with its argument and the delay behind it.
constexpr std::size_t kUsualStepBytes = 4;

struct Opcode {
    std::uint8_t code;
    std::size_t width; ///< argument bytes
};

/// 0 for a number of more than 24 bits; a negative one therefore counts as too large.
std::size_t bytesNeeded(std::uint32_t number) {
    if (number > limits::longestDelay)
        return 0;
    return number < 0x100 ? 1 : number < 0x10000 ? 2 : 3;
}

Opcode delayOpcode(std::size_t width) {
    switch (width) {
    case 2:
        return {opcodes::delay16, 2};
    case 3:
        return {opcodes::delay24, 3};
    default:
        return {opcodes::delay8, 1};
    }
}

/// The form of a command for the size of its argument.
Opcode stepOpcode(std::uint8_t command, std::size_t width) {
    if (opcodes::isDelay(command))
        return delayOpcode(width);
    switch (command) {
    case opcodes::narrow0:
    case opcodes::wide0:
        return width > 1 ? Opcode{opcodes::wide0, 2} : Opcode{opcodes::narrow0, 1};
    case opcodes::narrow1:
    case opcodes::wide1:
        return width > 1 ? Opcode{opcodes::wide1, 2} : Opcode{opcodes::narrow1, 1};
    default:
        return {command, 0};
    }
}

class StepWriter {
  public:
    explicit StepWriter(std::span<std::uint8_t, limits::stepBytes> bytes) : m_bytes(bytes) {}

    /// Returns false if there is no room; a command or delay that does not fit is not written at all.
    bool write(const Dictionary& step) { return writeCommand(step) && writeDelay(step); }
    [[nodiscard]] std::size_t used() const { return m_used; }

  private:
    /// A missing argument is stored as 0 by a command that has one.
    bool writeCommand(const Dictionary& step) {
        const auto argument = static_cast<std::uint32_t>(step.integer(keys::argument));
        const auto command = static_cast<std::uint8_t>(step.integer(keys::command));
        return put(stepOpcode(command, bytesNeeded(argument)), argument);
    }

    bool writeDelay(const Dictionary& step) {
        const auto delay = static_cast<std::uint32_t>(step.integer(keys::delay));
        const auto width = bytesNeeded(delay);
        return delay == 0 || width == 0 || put(delayOpcode(width), delay);
    }

    bool put(Opcode opcode, std::uint32_t argument) {
        if (m_used + 1 + opcode.width > m_bytes.size())
            return false;
        m_bytes[m_used] = opcode.code;
        storeBigEndian(m_bytes.subspan(m_used + 1, opcode.width), argument);
        m_used += 1 + opcode.width;
        return true;
    }

    std::span<std::uint8_t, limits::stepBytes> m_bytes;
    std::size_t m_used = 0;
};

Dictionary decodedStep(const CodedStep& coded) {
    auto step = Dictionary::create();
    step.append(keys::command, std::int32_t{coded.opcode});
    if (opcodes::argumentWidth(coded.opcode) > 0)
        step.append(keys::argument, static_cast<std::int32_t>(coded.argument));
    return step;
}

/// Does nothing if there is no step.
void append(const Array& steps, Dictionary step) {
    if (step)
        steps.append(std::move(step));
}

} // namespace

std::size_t encodeSteps(const Array& steps, std::span<std::uint8_t, limits::stepBytes> bytes) {
    StepWriter writer(bytes);
    for (const auto& item : steps.items()) {
        const auto step = item.dictionary();
        if (step && !writer.write(step))
            break;
    }
    return writer.used();
}

Array decodeSteps(std::span<const std::uint8_t> bytes) {
    auto steps = Array::create();
    steps.reserve(bytes.size() / kUsualStepBytes);
    // The step not yet appended, because its delay may follow. Nil before the first step.
    Dictionary step;
    while (const auto coded = takeCodedStep(bytes)) {
        if (opcodes::isDelay(coded->opcode))
            step.set(keys::delay, static_cast<std::int32_t>(coded->argument));
        else
            append(steps, std::exchange(step, decodedStep(*coded)));
    }
    append(steps, std::move(step));
    return steps;
}

} // namespace quorvi
