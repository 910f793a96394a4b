#include "macros/TypedTextSteps.h"

#include <array>
#include <bit>
#include <limits>
#include <optional>
#include <vector>

#include "macros/StepCodes.h"
#include "macros/TextKeystrokes.h"
#include "model/Keys.h"

namespace quorvi {

namespace {

constexpr std::uint8_t kLeftShiftUsage = 0xE1;
constexpr std::uint8_t kRightAltUsage = 0xE6;
constexpr std::size_t kStepsOfStroke = 2; // down and up

std::size_t changesBetween(unsigned held, unsigned next) {
    return static_cast<std::size_t>(std::popcount(held ^ next));
}

/// The steps of a way to type a character, with these modifiers held before it.
std::size_t costOf(const Keystrokes& way, unsigned held) {
    std::size_t cost = 0;
    for (const Keystroke& stroke : way) {
        cost += changesBetween(held, stroke.held) + kStepsOfStroke;
        held = stroke.held;
    }
    return cost;
}

/// The shortest way to type a text up to one of its characters, with certain modifiers held after it.
struct Best {
    std::size_t cost = std::numeric_limits<std::size_t>::max();
    const Keystrokes* way = nullptr; ///< of the character; null if these modifiers cannot be held after it
    unsigned heldBefore = 0;

    [[nodiscard]] bool isPossible() const { return cost != std::numeric_limits<std::size_t>::max(); }
};

/// By the modifiers that are held after the character.
using Column = std::array<Best, modifierChoices>;

Column columnBehind(const Column& before, const std::vector<Keystrokes>& ways) {
    Column column;
    for (unsigned held = 0; held < before.size(); ++held) {
        if (!before[held].isPossible())
            continue;
        for (const Keystrokes& way : ways) {
            Best& best = column[way.back().held];
            const std::size_t cost = before[held].cost + costOf(way, held);
            if (cost < best.cost)
                best = {.cost = cost, .way = &way, .heldBefore = held};
        }
    }
    return column;
}

/// The best modifiers to hold at the end, where each has to be released.
unsigned bestEnd(const Column& column) {
    unsigned best = 0;
    const auto costWithEnd = [&](unsigned held) {
        return column[held].isPossible() ? column[held].cost + changesBetween(held, 0) : column[held].cost;
    };
    for (unsigned held = 1; held < column.size(); ++held)
        if (costWithEnd(held) < costWithEnd(best))
            best = held;
    return best;
}

class StepWriter {
  public:
    void write(const Keystroke& stroke) {
        hold(stroke.held);
        put(stepcodes::keyDown, stroke.usage);
        put(stepcodes::keyUp, stroke.usage);
    }
    /// Releases first, so that no modifiers are held together unnecessarily.
    void hold(unsigned next) {
        change(m_held & ~next, stepcodes::keyUp);
        change(next & ~m_held, stepcodes::keyDown);
        m_held = next;
    }
    [[nodiscard]] const plist::Array& steps() const { return m_steps; }

  private:
    void change(unsigned modifiers, std::uint32_t code) {
        if (modifiers & shiftHeld)
            put(code, kLeftShiftUsage);
        if (modifiers & altGrHeld)
            put(code, kRightAltUsage);
    }
    void put(std::uint32_t code, std::uint8_t usage) {
        auto step = plist::Dictionary::create();
        step.set(keys::command, static_cast<std::int32_t>(code));
        step.set(keys::argument, std::int32_t{usage});
        step.set(keys::delay, typingDelay);
        m_steps.append(step);
    }

    plist::Array m_steps = plist::Array::create();
    unsigned m_held = 0;
};

/// The ways that lead to the modifiers held after the last column, in the order of the text.
plist::Array stepsAlong(const std::vector<Column>& columns) {
    std::vector<const Keystrokes*> ways(columns.size());
    unsigned held = columns.empty() ? 0 : bestEnd(columns.back());
    for (std::size_t index = columns.size(); index-- > 0;) {
        const Best& best = columns[index][held];
        ways[index] = best.way;
        held = best.heldBefore;
    }
    StepWriter writer;
    for (const Keystrokes* way : ways)
        for (const Keystroke& stroke : *way)
            writer.write(stroke);
    writer.hold(0);
    return writer.steps();
}

/// Counts a character of two units, which no key types, once.
bool isSecondUnit(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

void note(std::u16string& untypable, std::u16string_view character) {
    if (untypable.find(character) == std::u16string::npos)
        untypable += character;
}

} // namespace

TypedTextSteps stepsOfTypedText(std::u16string_view text, const KeyboardLayout& layout, std::size_t room) {
    TextKeystrokes keystrokes(layout);
    TypedTextSteps result;
    std::vector<Column> columns;
    Column last;
    last[0].cost = 0;
    for (std::size_t index = 0; index < text.size(); ++index) {
        const std::size_t units = index + 1 < text.size() && isSecondUnit(text[index + 1]) ? 2 : 1;
        const auto& ways = keystrokes.waysToType(text[index]);
        if (ways.empty()) {
            note(result.untypable, text.substr(index, units));
            index += units - 1;
            continue;
        }
        const Column column = columnBehind(last, ways);
        const unsigned end = bestEnd(column);
        if (result.noRoom > 0 || column[end].cost + changesBetween(end, 0) > room) {
            ++result.noRoom;
            continue;
        }
        columns.push_back(column);
        last = column;
        result.typed += text[index];
    }
    result.steps = stepsAlong(columns);
    return result;
}

} // namespace quorvi
