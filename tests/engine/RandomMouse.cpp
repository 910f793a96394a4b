#include "engine/RandomMouse.h"

#include <limits>

#include "model/CodedSteps.h"
#include "model/Commands.h"

namespace quorvi::test {

std::vector<std::uint8_t> RandomMouse::steps() {
    const std::uint8_t openings[] = {
        0, 0, 1, 1, 1, 2, 3, 17, 17, 18, 19, 128, 129, 130, 132, 136, 144, 131, 5};
    std::vector<std::uint8_t> bytes;
    for (int left = below(12); left > 0; --left) {
        const auto opcode = openings[static_cast<std::size_t>(below(std::size(openings)))];
        bytes.push_back(opcode);
        for (auto width = opcodes::argumentWidth(opcode); width > 0; --width)
            bytes.push_back(static_cast<std::uint8_t>(width > 1      ? 0
                                                      : oneIn(8)     ? below(256)
                                                      : opcode == 17 ? below(60)
                                                                     : 4 + below(5)));
    }
    if (!bytes.empty() && oneIn(6))
        bytes.pop_back();
    return bytes;
}

TestRecord RandomMouse::record() {
    TestRecord record;
    const auto commands = commandTable();
    for (int profile = 1; profile <= 5; ++profile) {
        if (profile > 1 && !oneIn(2))
            continue;
        record.profile(profile);
        for (int input = 1; input <= 9; ++input) {
            const auto& command =
                commands[static_cast<std::size_t>(below(static_cast<int>(commands.size())))];
            const int code = oneIn(10) ? below(256) : oneIn(5) ? 65 : command.code;
            record.function(profile, input, code,
                code == 49 ? 4 + below(4)
                : oneIn(9) ? below(256)
                           : below(6),
                oneIn(2) ? below(256) : 0);
        }
        std::vector<std::pair<int, int>> stages;
        for (int left = below(6); left > 0; --left)
            stages.emplace_back(100 + 25 * below(256), 100 + 25 * below(256));
        record.stages(profile, stages, below(7));
    }
    for (int slot = below(8); slot >= 0; --slot)
        record.macro(slot, below(6), steps(), oneIn(4) ? static_cast<std::uint32_t>(below(100)) : 0);
    record.active(below(7), below(7));
    if (oneIn(30))
        record.raw().macroHeaders[0].length = {
            static_cast<std::uint8_t>(below(2)), static_cast<std::uint8_t>(below(256))};
    if (oneIn(30))
        record.raw().profiles[0].number = static_cast<std::uint8_t>(below(6));
    return record;
}

engine::Options RandomMouse::options() {
    engine::Options options;
    if (oneIn(2))
        options.sensorDpi = static_cast<std::uint16_t>(m_random());
    for (float& factor : options.acceleration)
        if (oneIn(2))
            factor = static_cast<float>(below(30)) / 10.0F;
    if (oneIn(3))
        options.buttonCodes[static_cast<std::size_t>(below(7))] =
            static_cast<std::uint16_t>(oneIn(2) ? below(KEY_CNT + 20) : KEY_A + below(3));
    if (oneIn(3))
        options.letterKeys[static_cast<std::size_t>(below(26))] = static_cast<std::uint16_t>(below(KEY_CNT));
    options.macrosAreQuiet = oneIn(10);
    return options;
}

int RandomMouse::value() {
    switch (below(12)) {
    case 0:
        return std::numeric_limits<int>::max();
    case 1:
        return std::numeric_limits<int>::min();
    case 2:
        return static_cast<int>(m_random());
    default:
        return below(7) - 3;
    }
}

std::vector<input_event> RandomMouse::frame(const engine::Options& options) {
    const std::uint16_t axes[] = {
        REL_X, REL_X, REL_Y, REL_Y, REL_WHEEL, REL_WHEEL_HI_RES, REL_HWHEEL, REL_HWHEEL_HI_RES, REL_DIAL};
    std::vector<input_event> events;
    for (int left = 1 + below(3); left > 0; --left) {
        if (oneIn(2))
            events.push_back(
                TestMouse::event(EV_KEY, options.buttonCodes[static_cast<std::size_t>(below(7))], below(2)));
        else if (oneIn(8))
            events.push_back(
                TestMouse::event(EV_KEY, oneIn(2) ? below(KEY_CNT + 9) : KEY_A + below(3), below(3)));
        else if (oneIn(20))
            events.push_back(TestMouse::event(static_cast<int>(m_random() % 32 + 3), below(0x300), value()));
        else
            events.push_back(
                TestMouse::event(EV_REL, axes[static_cast<std::size_t>(below(std::size(axes)))], value()));
    }
    return events;
}

} // namespace quorvi::test
