#include "model/NaiveEncoder.h"

#include <array>

namespace quorvi::test {

namespace {

using plist::Array;
using plist::Dictionary;
using Bytes = std::vector<std::uint8_t>;

constexpr std::array<const char*, 9> kButtonKeys = {"01", "02", "03", "04", "05", "06", "07", "08", "09"};

std::uint8_t low(std::int64_t value) {
    return static_cast<std::uint8_t>(value & 255);
}

std::uint8_t dpiCode(const Dictionary& dictionary, const char* key) {
    std::int64_t rest = std::int64_t{dictionary.integer(key)} - 100;
    const bool negative = rest < 0;
    rest = (negative ? -rest : rest) / 25;
    return low(negative ? -rest : rest);
}

bool putName(Bytes& out, std::size_t at, const plist::Value& name) {
    for (std::size_t i = 0; i < 40; ++i)
        out[at + i] = 0;
    const auto* text = name.string();
    if (!text || text->empty())
        return false;
    for (std::size_t unit = 0; unit < 20 && unit < text->size(); ++unit) {
        out[at + 2 * unit] = low((*text)[unit]);
        out[at + 2 * unit + 1] = low((*text)[unit] / 256);
    }
    return true;
}

Bytes numbered(int opcode, std::uint32_t number, int width) {
    Bytes code = {low(opcode)};
    for (int byte = width - 1; byte >= 0; --byte)
        code.push_back(low(std::int64_t{number} >> (8 * byte)));
    return code;
}

int widthOf(std::uint32_t number) {
    return number < 256U ? 1 : number < 65536U ? 2 : number <= 16777215U ? 3 : 0;
}

Bytes commandCode(const Dictionary& step) {
    const int command = low(step.integer("command"));
    const auto argument = static_cast<std::uint32_t>(step.integer("argument"));
    const int width = step.value("argument").isNothing() ? 0 : widthOf(argument);
    if (command <= 3) {
        const bool wide = width > 1;
        return numbered(command % 2 + (wide ? 2 : 0), argument, wide ? 2 : 1);
    }
    if (command == 17 || command == 18 || command == 19) {
        const int stored = width == 0 ? 1 : width;
        return numbered(16 + stored, argument, stored);
    }
    return {low(command)};
}

Bytes stepsCode(const Array& steps) {
    Bytes code;
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const auto step = steps.dictionary(i);
        if (!step)
            continue;
        for (const auto byte : commandCode(step))
            code.push_back(byte);
        if (code.size() > 128) {
            code.resize(code.size() - commandCode(step).size());
            return code;
        }
        const auto delay = static_cast<std::uint32_t>(step.integer("delay"));
        const int width = widthOf(delay);
        if (delay == 0 || width == 0)
            continue;
        if (code.size() + 1 + static_cast<std::size_t>(width) > 128)
            return code;
        for (const auto byte : numbered(16 + width, delay, width))
            code.push_back(byte);
    }
    return code;
}

void putMacro(Bytes& out, std::size_t slot, const Dictionary& macro) {
    const std::size_t header = 492 + 4 * slot;
    const std::size_t body = 772 + 178 * slot;
    const auto steps = stepsCode(macro.array("steps"));
    out[header] = low(macro.integer("macroid"));
    out[header + 1] = 0;
    out[header + 2] = low(static_cast<std::int64_t>(50 + steps.size()));
    if (!putName(out, body, macro.value("name")))
        out[body] = '?';
    const std::int64_t delay = macro.integer("delay");
    out[body + 40] = low(delay >> 16);
    out[body + 41] = low(delay >> 8);
    out[body + 42] = low(delay);
    for (std::size_t i = 0; i < steps.size(); ++i)
        out[body + 50 + i] = steps[i];
}

void clearProfile(Bytes& out, std::size_t slot) {
    for (std::size_t i = 0; i < 56; ++i)
        out[212 + 56 * slot + i] = i == 0 ? low(static_cast<std::int64_t>(slot) + 1) : 0;
    for (std::size_t i = 0; i < 40; ++i)
        out[7 + 41 * slot + 1 + i] = 0xFF;
}

bool putProfile(Bytes& out, std::size_t slot, const Dictionary& profile) {
    const auto stages = profile.array("stages");
    const auto buttons = profile.dictionary("buttons");
    if (!stages || !buttons || !putName(out, 7 + 41 * slot + 1, profile.value("name")))
        return false;
    const std::size_t at = 212 + 56 * slot;
    const std::size_t count = stages.size() % 256 < 5 ? stages.size() % 256 : 5;
    const std::size_t wanted = low(profile.integer("defaultstage"));
    out[at] = low(static_cast<std::int64_t>(slot) + 1);
    out[at + 1] = low(profile.integer("ledstate"));
    out[at + 2] = low(static_cast<std::int64_t>(wanted > count ? count : wanted));
    out[at + 3] = low(static_cast<std::int64_t>(count));
    for (std::size_t i = 0; i < count; ++i) {
        const auto stage = stages.dictionary(i);
        out[at + 4 + 2 * i] = stage ? dpiCode(stage, "dpix") : 0;
        out[at + 5 + 2 * i] = stage ? dpiCode(stage, "dpiy") : 0;
    }
    for (std::size_t number = 1; number <= 9; ++number) {
        const auto assignment = buttons.dictionary(kButtonKeys[number - 1]);
        const std::size_t entry = at + 20 + 4 * (number - 1);
        out[entry] = assignment ? low(static_cast<std::int64_t>(number)) : 0;
        out[entry + 1] = low(assignment.integer("command"));
        out[entry + 2] = low(assignment.integer("param1"));
        out[entry + 3] = low(assignment.integer("param2"));
    }
    return true;
}

void putSettings(Bytes& out, const Dictionary& settings) {
    const int rate = settings.integer("pollingrate");
    out[2] = low(settings.integer("profileid"));
    out[3] = rate == 125 ? 8 : rate == 1000 ? 1 : 2;
    out[4] = low(settings.integer("stage"));
    out[5] = dpiCode(settings, "dpix");
    out[6] = dpiCode(settings, "dpiy");
}

} // namespace

NaiveRecord naiveEncode(const Dictionary& tree) {
    NaiveRecord record{false, Bytes(13232, 0)};
    auto& out = record.bytes;
    out[0] = low(tree.integer("firmware"));
    out[1] = low(std::int64_t{tree.integer("firmware")} >> 8);
    const auto settings = tree.dictionary("settings");
    if (!settings)
        return record;
    putSettings(out, settings);

    const auto macros = tree.array("macros");
    for (std::size_t i = 0, slot = 0; i < macros.size() && slot < 12; ++i) {
        if (macros.dictionary(i))
            putMacro(out, slot++, macros.dictionary(i));
    }
    const auto profiles = tree.array("profiles");
    std::size_t slot = 0;
    for (std::size_t i = 0; i < profiles.size() && slot < 5; ++i)
        slot += putProfile(out, slot, profiles.dictionary(i)) ? 1 : 0;
    record.converts = slot > 0;
    for (; slot < 5; ++slot)
        clearProfile(out, slot);
    return record;
}

} // namespace quorvi::test
