#include "engine/PlainMouse.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "engine/UsbKeys.h"
#include "model/Commands.h"

namespace quorvi::test {

namespace {

std::int64_t within32Bits(std::int64_t value) {
    return std::clamp(value, std::int64_t{-2147483647}, std::int64_t{2147483647});
}

} // namespace

PlainMouse::PlainMouse() = default;

int PlainMouse::usageKey(int usage) {
    return usage > 255 ? 0 : engine::keyOfUsage(static_cast<std::uint32_t>(usage));
}

void PlainMouse::come(std::int64_t now) {
    if (m_callers && now > *m_callers)
        m_now += std::min(now - *m_callers, std::int64_t{86'400} * 1'000'000);
    m_callers = now;
}

bool PlainMouse::isUsed(int profile) const {
    if (profile < 1 || profile > 5)
        return false;
    const auto name = 7 + 41 * std::size_t(profile - 1) + 1;
    return !(at(name) == 255 && at(name + 1) == 255);
}

int PlainMouse::stageCount() const {
    return std::min(5, at(profileAt(m_profile) + 3));
}

int PlainMouse::firstStageUnless(int stage) const {
    if (stageCount() == 0)
        return 0;
    return stage >= 1 && stage <= stageCount() ? stage : 1;
}

bool PlainMouse::setRecord(std::span<const std::uint8_t> bytes, std::int64_t now) {
    come(now);
    const auto before = m_bytes;
    if (bytes.size() != 13232)
        return false;
    m_bytes.assign(bytes.begin(), bytes.end());
    bool isGood = false;
    for (int profile = 1; profile <= 5; ++profile) {
        if (!isUsed(profile))
            continue;
        isGood = true;
        if (at(profileAt(profile)) != profile) {
            isGood = false;
            break;
        }
    }
    if (!isGood) {
        m_bytes = before;
        return false;
    }
    for (auto& macro : m_macros)
        if (macro && macroBytes(macro->id, nullptr) != macro->bytes)
            endMacro(macro);
    const auto settings = [](const std::vector<int>& all) {
        return std::vector<int>{all[2], all[4], all[5], all[6]};
    };
    if (before.empty() || settings(before) != settings(m_bytes) || !isUsed(m_profile)) {
        startProfile();
    } else {
        m_stage = firstStageUnless(m_stage);
    }
    return true;
}

void PlainMouse::startProfile() {
    m_profile = at(2);
    for (int profile = 1; !isUsed(m_profile); ++profile)
        if (isUsed(profile))
            m_profile = profile;
    m_stage = firstStageUnless(at(4));
}

void PlainMouse::goToProfile(int profile) {
    if (!isUsed(profile) || profile == m_profile)
        return;
    m_profile = profile;
    m_stage = firstStageUnless(at(profileAt(profile) + 2));
}

void PlainMouse::goBeside(int direction) {
    std::vector<int> used;
    for (int profile = 1; profile <= 5; ++profile)
        if (isUsed(profile))
            used.push_back(profile);
    const auto place = std::find(used.begin(), used.end(), m_profile) - used.begin();
    const auto size = static_cast<std::ptrdiff_t>(used.size());
    goToProfile(used[static_cast<std::size_t>((place + direction + size) % size)]);
}

void PlainMouse::setOptions(const engine::Options& options, std::int64_t now) {
    come(now);
    const auto dpi = m_options.sensorDpi;
    m_options = options;
    if (m_options.sensorDpi < 100 || m_options.sensorDpi > 64000)
        m_options.sensorDpi = 1600;
    if (m_options.sensorDpi != dpi) {
        m_restX = m_restY = 0;
        m_lastMove.reset();
    }
    for (float& factor : m_options.acceleration)
        if (!(factor >= 0.1F && factor <= 2.0F))
            factor = 1;
    for (std::size_t letter = 0; letter < 26; ++letter) {
        const auto keys = engine::keyboardKeys();
        if (std::find(keys.begin(), keys.end(), m_options.letterKeys[letter]) == keys.end())
            m_options.letterKeys[letter] = engine::usLetterKeys[letter];
    }
}

void PlainMouse::emit(int type, int code, std::int64_t value) {
    if (value == 0 && type == EV_REL)
        return;
    const auto number = static_cast<std::uint16_t>(code);
    engine::Device device = engine::Device::Pointer;
    if (type == EV_KEY && !(code >= 0x110 && code < 0x120)) {
        const auto keys = engine::keyboardKeys();
        if (std::find(keys.begin(), keys.end(), number) == keys.end())
            return;
        device = engine::Device::Keyboard;
    }
    changes.push_back({*m_callers, device, static_cast<std::uint16_t>(type), number,
        static_cast<std::int32_t>(within32Bits(value))});
}

void PlainMouse::keyDown(int code) {
    if (code != 0 && ++m_counts[code] == 1)
        emit(EV_KEY, code, 1);
}

void PlainMouse::keyUp(int code) {
    if (code != 0 && m_counts[code] > 0 && --m_counts[code] == 0)
        emit(EV_KEY, code, 0);
}

std::vector<int> PlainMouse::keysOf(int command, int param1, int param2) const {
    const auto letter = [this](char c) { return int{m_options.letterKeys[std::size_t(c - 'a')]}; };
    switch (command) {
    case 1:
        return {BTN_LEFT};
    case 2:
        return {BTN_RIGHT};
    case 3:
        return {BTN_MIDDLE};
    case 5:
        return {BTN_SIDE};
    case 6:
        return {BTN_EXTRA};
    case 80:
        return {KEY_PLAYPAUSE};
    case 81:
        return {KEY_NEXTSONG};
    case 82:
        return {KEY_PREVIOUSSONG};
    case 83:
        return {KEY_STOPCD};
    case 84:
        return {KEY_VOLUMEUP};
    case 85:
        return {KEY_VOLUMEDOWN};
    case 86:
        return {KEY_MUTE};
    case 96:
        return {KEY_PAGEUP};
    case 97:
        return {KEY_PAGEDOWN};
    case 98:
        return {KEY_HOME};
    case 99:
        return {KEY_END};
    case 100:
        return {KEY_LEFTCTRL, KEY_TAB};
    case 101:
        return {KEY_LEFTCTRL, KEY_LEFTSHIFT, KEY_TAB};
    case 102:
        return {KEY_LEFTCTRL, KEY_KPPLUS};
    case 103:
        return {KEY_LEFTCTRL, KEY_KPMINUS};
    case 112:
        return {KEY_LEFTCTRL, letter('c')};
    case 113:
        return {KEY_LEFTCTRL, letter('x')};
    case 114:
        return {KEY_LEFTCTRL, letter('v')};
    case 115:
        return {KEY_LEFTCTRL, letter('z')};
    case 116:
        return {KEY_LEFTCTRL, KEY_LEFTSHIFT, letter('z')};
    case 117:
        return {KEY_LEFTCTRL, letter('a')};
    case 128:
        return {KEY_LEFTMETA, letter('d')};
    case 129:
        return {KEY_LEFTALT, KEY_TAB};
    case 130:
        return {KEY_LEFTALT, KEY_F4};
    case 131:
        return {KEY_SYSRQ};
    case 132:
        return {KEY_LEFTMETA, letter('l')};
    case 49: {
        const int modifiers[] = {KEY_LEFTCTRL, KEY_LEFTSHIFT, KEY_LEFTALT, KEY_LEFTMETA, KEY_RIGHTCTRL,
            KEY_RIGHTSHIFT, KEY_RIGHTMETA, KEY_RIGHTMETA};
        std::vector<int> keys;
        for (int bit = 0; bit < 8; ++bit)
            if (param2 & 1 << bit)
                keys.push_back(modifiers[bit]);
        keys.push_back(usageKey(param1));
        return keys;
    }
    default:
        return {};
    }
}

void PlainMouse::input(const std::vector<input_event>& frame, std::int64_t now) {
    come(now);
    std::int64_t x = 0;
    std::int64_t y = 0;
    std::map<int, std::optional<std::int64_t>> turned;
    for (const auto& event : frame) {
        if (event.type == EV_REL && event.code == REL_X)
            x += event.value;
        else if (event.type == EV_REL && event.code == REL_Y)
            y += event.value;
        else if (event.type == EV_REL)
            turned[event.code] = turned[event.code].value_or(0) + event.value;
        if (event.type != EV_KEY || event.code >= KEY_CNT)
            continue;
        const bool isDown = m_codesDown.count(event.code) > 0;
        if (event.value == 1 && !isDown) {
            int input = -1;
            for (int i = 7; i >= 1; --i)
                if (m_options.buttonCodes[std::size_t(i - 1)] == event.code && event.code != 0)
                    input = i;
            if (input > 0 && !m_bytes.empty()) {
                if (m_buttons.count(input) > 0)
                    continue;
                m_codesDown[event.code] = input;
                buttonDown(input);
            } else {
                m_codesDown[event.code] = -1;
                keyDown(event.code);
            }
        } else if (event.value == 0 && isDown) {
            const int input = m_codesDown[event.code];
            m_codesDown.erase(event.code);
            input > 0 ? buttonUp(input) : keyUp(event.code);
        }
    }
    moved(x, y);
    const auto notches = turned[REL_WHEEL].value_or(0);
    const auto parts = turned[REL_WHEEL_HI_RES].value_or(notches * 120);
    if (m_bytes.empty()) {
        scroll(8, notches, parts);
    } else {
        notch(8, std::max<std::int64_t>(notches, 0), std::max<std::int64_t>(parts, 0));
        notch(9, std::max<std::int64_t>(-notches, 0), std::max<std::int64_t>(-parts, 0));
    }
    const auto sideways = turned[REL_HWHEEL].value_or(0);
    scroll(11, sideways, turned[REL_HWHEEL_HI_RES].value_or(sideways * 120));
}

void PlainMouse::buttonDown(int input) {
    const auto place = profileAt(m_profile) + 20 + 4 * std::size_t(input - 1);
    const int command = at(place) == 0 || !findCommand(at(place + 1)) ? 0 : at(place + 1);
    Button& button = m_buttons[input];
    button.command = command;
    button.keys = keysOf(command, at(place + 2), at(place + 3));
    if (command == 4) {
        if (m_clicks.count(input) > 0)
            return;
        m_clicks[input] = {1, false, true, m_now + 40 * millisecond};
        keyDown(BTN_LEFT);
    } else if (command >= 8 && command <= 11) {
        button.due = m_now + 300 * millisecond;
        scroll(command, 1, 120);
    } else {
        for (const int key : button.keys)
            keyDown(key);
        once(command, at(place + 2));
    }
}

void PlainMouse::buttonUp(int input) {
    const Button button = m_buttons[input];
    m_buttons.erase(input);
    for (auto key = button.keys.rbegin(); key != button.keys.rend(); ++key)
        keyUp(*key);
    if (button.command != 4 || m_clicks.count(input) == 0)
        return;
    m_clicks[input].isReleased = true;
    if (!m_clicks[input].waits) {
        m_clicks.erase(input);
        keyUp(BTN_LEFT);
    }
}

void PlainMouse::once(int command, int param1) {
    if (command == 16 && stageCount() > 0)
        m_stage = std::min(m_stage + 1, stageCount());
    else if (command == 17 && stageCount() > 0)
        m_stage = std::max(m_stage - 1, 1);
    else if (command == 18 && stageCount() > 0)
        m_stage = m_stage == stageCount() ? 1 : m_stage + 1;
    else if (command == 32 || command == 33)
        goBeside(command == 32 ? 1 : -1);
    else if (command == 34)
        goToProfile(param1);
    else if (command == 65 && !m_options.macrosAreQuiet)
        startMacro(param1);
}

void PlainMouse::notch(int input, std::int64_t count, std::int64_t parts) {
    const auto place = profileAt(m_profile) + 20 + 4 * std::size_t(input - 1);
    const auto* known = findCommand(at(place + 1));
    if (at(place) == 0 || !known || known->inputs != CommandInputs::ButtonsAndWheel)
        return;
    if (known->code >= 8 && known->code <= 11)
        return scroll(known->code, count, parts);
    const int param1 = at(place + 2);
    const auto keys = keysOf(known->code, param1, at(place + 3));
    for (std::int64_t i = 0; i < std::min<std::int64_t>(count, 16); ++i) {
        for (const int key : keys)
            keyDown(key);
        for (auto key = keys.rbegin(); key != keys.rend(); ++key)
            keyUp(*key);
        once(known->code, param1);
    }
}

void PlainMouse::scroll(int command, std::int64_t count, std::int64_t parts) {
    const int sign = command == 8 || command == 11 ? 1 : -1;
    emit(EV_REL, command <= 9 ? REL_WHEEL : REL_HWHEEL, count * sign);
    emit(EV_REL, command <= 9 ? REL_WHEEL_HI_RES : REL_HWHEEL_HI_RES, parts * sign);
}

double PlainMouse::handSpeed(std::int64_t x, std::int64_t y) {
    const double inches = std::hypot(double(x) / m_options.sensorDpi, double(y) / m_options.sensorDpi);
    if (!m_lastMove || m_now - *m_lastMove > 100 * millisecond) {
        m_since = m_now;
        m_way = m_share = 0;
    } else {
        m_way += inches;
    }
    m_lastMove = m_now;
    if (m_now - m_since >= 8 * millisecond) {
        m_share = std::min(1.0, m_way / (double(m_now - m_since) / 1e6) / 20.0);
        m_since = m_now;
        m_way = 0;
    }
    return m_share;
}

void PlainMouse::moved(std::int64_t x, std::int64_t y) {
    if (x == 0 && y == 0)
        return;
    if (m_bytes.empty()) {
        emit(EV_REL, REL_X, x);
        emit(EV_REL, REL_Y, y);
        return;
    }
    const double factor = double(m_options.acceleration[std::size_t(m_profile - 1)]);
    std::int64_t gain = 65536;
    if (factor != 1.0)
        if (const double hand = handSpeed(x, y); hand > 0)
            gain = std::llround(hand / (1.0 + (1.0 / factor - 1.0) * hand) / hand * 65536.0);
    const auto whole = [&](std::int64_t counts, int dpi, std::int64_t& rest) {
        rest += within32Bits(counts) * dpi * gain;
        const auto unit = std::int64_t{m_options.sensorDpi} * 65536;
        const auto result = rest / unit;
        rest %= unit;
        return result;
    };
    const auto now = running();
    emit(EV_REL, REL_X, whole(x, now.dpiX, m_restX));
    emit(EV_REL, REL_Y, whole(y, now.dpiY, m_restY));
}

engine::Running PlainMouse::running() const {
    if (m_bytes.empty())
        return {};
    int stage = m_stage;
    const auto stages = profileAt(m_profile) + 4;
    const auto codes = [&](int number) {
        const auto place = stages + 2 * std::size_t(number - 1);
        return std::pair{at(place), at(place + 1)};
    };
    for (const auto& [input, button] : m_buttons) {
        if (button.command != 19)
            continue;
        stage = firstStageUnless(0);
        for (int other = 2; other <= stageCount(); ++other)
            if (codes(other).first + codes(other).second < codes(stage).first + codes(stage).second)
                stage = other;
    }
    const auto [x, y] = stage == 0 ? std::pair{at(5), at(6)} : codes(stage);
    return {static_cast<std::uint8_t>(m_profile), static_cast<std::uint8_t>(stage),
        static_cast<std::uint16_t>(x * 25 + 100), static_cast<std::uint16_t>(y * 25 + 100)};
}

void PlainMouse::wakeClicks() {
    std::vector<int> over;
    for (auto& [input, click] : m_clicks) {
        if (!click.waits || click.due > m_now)
            continue;
        click.due = m_now + 40 * millisecond;
        ++click.changes;
        if (click.changes == 2)
            keyUp(BTN_LEFT);
        else if (click.changes == 3)
            keyDown(BTN_LEFT);
        else
            click.waits = false;
        if (!click.waits && click.isReleased) {
            keyUp(BTN_LEFT);
            over.push_back(input);
        }
    }
    for (const int input : over)
        m_clicks.erase(input);
}

void PlainMouse::wake(std::int64_t now) {
    come(now);
    playMacros();
    wakeClicks();
    for (auto& [input, button] : m_buttons) {
        if (button.command < 8 || button.command > 11 || button.due > m_now)
            continue;
        button.due = m_now + 60 * millisecond;
        scroll(button.command, 1, 120);
    }
}

void PlainMouse::releaseAll(std::int64_t now) {
    come(now);
    m_buttons.clear();
    for (auto& macro : m_macros)
        if (macro)
            endMacro(macro);
    for (const auto& [input, click] : m_clicks)
        if (click.changes != 2)
            keyUp(BTN_LEFT);
    m_clicks.clear();
    m_codesDown.clear();
    for (auto& [code, count] : m_counts) {
        if (count > 0)
            emit(EV_KEY, code, 0);
        count = 0;
    }
    m_restX = m_restY = 0;
    m_lastMove.reset();
}

std::optional<std::int64_t> PlainMouse::nextWake() const {
    std::set<std::int64_t> due;
    for (const auto& macro : m_macros)
        if (macro)
            due.insert(macro->due);
    for (const auto& [input, click] : m_clicks)
        if (click.waits)
            due.insert(click.due);
    for (const auto& [input, button] : m_buttons)
        if (button.command >= 8 && button.command <= 11)
            due.insert(button.due);
    if (due.empty())
        return std::nullopt;
    return *m_callers + std::max(std::int64_t{0}, *due.begin() - m_now);
}

} // namespace quorvi::test
