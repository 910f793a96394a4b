// The plain engine's macros.
#include <algorithm>

#include "engine/PlainMouse.h"

namespace quorvi::test {

std::optional<std::vector<int>> PlainMouse::macroBytes(int id, std::int64_t* delay) const {
    for (std::size_t slot = 0; slot < 70; ++slot) {
        const auto header = 492 + 4 * slot;
        const auto body = 772 + 178 * slot;
        const int length = at(header + 1) * 256 + at(header + 2);
        if (at(header) != id || id > 69 || length < 1 || length > 178 ||
            (at(body) == 255 && at(body + 1) == 255))
            continue;
        if (delay)
            *delay = (at(body + 40) * 65536 + at(body + 41) * 256 + at(body + 42)) * millisecond;
        const auto first = m_bytes.begin() + static_cast<std::ptrdiff_t>(body) + 50;
        return std::vector<int>(first, first + std::max(0, length - 50));
    }
    return std::nullopt;
}

void PlainMouse::startMacro(int id) {
    std::int64_t delay = 0;
    const auto bytes = macroBytes(id, &delay);
    if (!bytes || std::any_of(m_macros.begin(), m_macros.end(),
                      [=](const auto& macro) { return macro && macro->id == id; }))
        return;
    const auto free = std::find(m_macros.begin(), m_macros.end(), std::nullopt);
    if (free == m_macros.end())
        return;
    Macro macro{id, *bytes, {}, 0, m_now + delay, {}};
    for (std::size_t i = 0; i < bytes->size();) {
        const int command = (*bytes)[i];
        const std::map<int, std::size_t> widths{{0, 1}, {1, 1}, {17, 1}, {2, 2}, {3, 2}, {18, 2}, {19, 3}};
        const auto width = widths.count(command) > 0 ? widths.at(command) : 0;
        if (i + 1 + width > bytes->size())
            break;
        int argument = 0;
        for (std::size_t byte = 0; byte < width; ++byte)
            argument = argument * 256 + (*bytes)[i + 1 + byte];
        if (command < 17 || command > 19)
            macro.steps.push_back({command, argument, 0});
        else if (!macro.steps.empty())
            macro.steps.back().delay = argument * millisecond;
        i += 1 + width;
    }
    *free = macro;
    playMacros();
}

void PlainMouse::playMacros() {
    for (auto& macro : m_macros) {
        while (macro && macro->due <= m_now) {
            if (macro->next == macro->steps.size()) {
                endMacro(macro);
                break;
            }
            const Step step = macro->steps[macro->next++];
            auto& down = macro->down;
            const std::map<int, int> buttons{
                {129, BTN_LEFT}, {130, BTN_RIGHT}, {132, BTN_MIDDLE}, {136, BTN_SIDE}, {144, BTN_EXTRA}};
            std::vector<int> ups;
            int press = 0;
            if (step.command == 0 || step.command == 2)
                ups = {usageKey(step.argument)};
            else if (step.command == 1 || step.command == 3)
                press = usageKey(step.argument);
            else if (step.command == 128)
                ups = {BTN_LEFT, BTN_RIGHT, BTN_MIDDLE, BTN_SIDE, BTN_EXTRA};
            else if (buttons.count(step.command) > 0)
                press = buttons.at(step.command);
            if (press != 0 && std::find(down.begin(), down.end(), press) == down.end()) {
                down.push_back(press);
                keyDown(press);
            }
            for (const int key : ups)
                if (std::erase(down, key) > 0)
                    keyUp(key);
            macro->due = m_now + step.delay;
        }
    }
}

void PlainMouse::endMacro(std::optional<Macro>& macro) {
    for (auto key = macro->down.rbegin(); key != macro->down.rend(); ++key)
        keyUp(*key);
    macro.reset();
}

} // namespace quorvi::test
