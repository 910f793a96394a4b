#include "engine/MacroPlayer.h"

#include <algorithm>

#include "engine/UsbKeys.h"
#include "macros/StepCodes.h"

namespace quorvi::engine {

namespace {

/// In the order of stepcodes::buttonsDown.
constexpr std::array<std::uint16_t, 5> kStepButtons{BTN_LEFT, BTN_RIGHT, BTN_MIDDLE, BTN_SIDE, BTN_EXTRA};
static_assert(kStepButtons.size() == stepcodes::buttonsDown.size());

/// Removes the delays after a step from the bytes and returns the last one.
Time takeDelay(std::span<const std::uint8_t>& bytes) {
    std::uint32_t delay = 0;
    while (!bytes.empty() && opcodes::isDelay(bytes[0])) {
        const auto coded = takeCodedStep(bytes);
        if (!coded)
            break;
        delay = coded->argument;
    }
    return std::chrono::milliseconds(delay);
}

} // namespace

void MacroPlayer::start(std::uint8_t macroId, const Configuration::Macro& macro, Time now) {
    const bool runs = std::ranges::any_of(
        m_macros, [=](const Playing& other) { return other.isActive && other.macroId == macroId; });
    const auto free = std::ranges::find(m_macros, false, &Playing::isActive);
    if (runs || free == m_macros.end())
        return;
    free->isActive = true;
    ++m_playing;
    free->macroId = macroId;
    std::ranges::copy(macro.steps, free->bytes.begin());
    free->size = macro.steps.size();
    auto bytes = free->all();
    (void)takeDelay(bytes); // a delay without a step
    free->position = free->size - bytes.size();
    free->due = now + std::chrono::milliseconds(macro.delay);
    free->pressed.size = 0;
    play(*free, now);
}

void MacroPlayer::wake(Time now) {
    for (Playing& macro : m_macros)
        play(macro, now);
}

std::optional<Time> MacroPlayer::nextWake() const {
    std::optional<Time> next;
    if (!isPlaying())
        return next;
    for (const Playing& macro : m_macros)
        if (macro.isActive)
            next = earlier(next, macro.due);
    return next;
}

void MacroPlayer::keepOnly(const Configuration& configuration) {
    for (Playing& playing : m_macros) {
        const auto macro = configuration.macro(playing.macroId);
        if (playing.isActive && !(macro && std::ranges::equal(macro->steps, playing.all())))
            end(playing);
    }
}

void MacroPlayer::endAll() {
    for (Playing& macro : m_macros)
        if (macro.isActive)
            end(macro);
}

std::optional<std::size_t> MacroPlayer::stepsPlayed(std::uint8_t macroId) const {
    const auto macro = std::ranges::find_if(
        m_macros, [=](const Playing& other) { return other.isActive && other.macroId == macroId; });
    if (macro == m_macros.end())
        return std::nullopt;
    auto bytes = macro->all().first(macro->position);
    std::size_t steps = 0;
    while (const auto coded = takeCodedStep(bytes))
        steps += opcodes::isDelay(coded->opcode) ? 0 : 1;
    return steps;
}

/// Each round shortens the remaining bytes.
void MacroPlayer::play(Playing& macro, Time now) {
    while (macro.isActive && macro.due <= now) {
        auto bytes = macro.all().subspan(macro.position);
        const auto step = takeCodedStep(bytes);
        if (!step)
            return end(macro);
        playStep(macro, *step);
        m_writer.flush();
        macro.due = now + takeDelay(bytes);
        macro.position = macro.size - bytes.size();
    }
}

void MacroPlayer::playStep(Playing& macro, const CodedStep& step) {
    switch (step.opcode) {
    case opcodes::narrow0:
    case opcodes::wide0:
        return release(macro, keyOfUsage(step.argument));
    case opcodes::narrow1:
    case opcodes::wide1:
        return press(macro, keyOfUsage(step.argument));
    case stepcodes::buttonsUp:
        return releaseButtons(macro);
    default:
        break;
    }
    const auto button = std::ranges::find(stepcodes::buttonsDown, std::uint32_t{step.opcode});
    if (button != stepcodes::buttonsDown.end())
        press(macro, kStepButtons[static_cast<std::size_t>(button - stepcodes::buttonsDown.begin())]);
}

void MacroPlayer::press(Playing& macro, std::uint16_t code) {
    Pressed& pressed = macro.pressed;
    const auto codes = std::span(pressed.codes).first(pressed.size);
    if (code == KEY_RESERVED || pressed.size == pressed.codes.size() ||
        std::ranges::find(codes, code) != codes.end())
        return;
    pressed.codes[pressed.size++] = code;
    m_keys.press(code);
}

void MacroPlayer::release(Playing& macro, std::uint16_t code) {
    Pressed& pressed = macro.pressed;
    const auto codes = std::span(pressed.codes).first(pressed.size);
    const auto found = std::ranges::find(codes, code);
    if (found == codes.end())
        return;
    std::copy(found + 1, codes.end(), found);
    --pressed.size;
    m_keys.release(code);
}

void MacroPlayer::releaseButtons(Playing& macro) {
    for (const auto button : kStepButtons)
        release(macro, button);
}

void MacroPlayer::end(Playing& macro) {
    while (macro.pressed.size > 0)
        m_keys.release(macro.pressed.codes[--macro.pressed.size]);
    macro.isActive = false;
    --m_playing;
    m_writer.flush();
}

} // namespace quorvi::engine
