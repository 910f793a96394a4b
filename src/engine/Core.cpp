#include "engine/Core.h"

#include <algorithm>
#include <utility>

#include "engine/Devices.h"
#include "model/PointerSpeed.h"

namespace quorvi::engine {

namespace {

constexpr std::uint8_t kPassed = 0xFF; ///< a code that is down but not an input
constexpr std::uint8_t kWheelAway = 8;
constexpr std::uint8_t kWheelBack = 9;

/// Notches of one frame that press something. A wheel that spins freely has a few; garbage has billions.
constexpr std::int64_t kMostNotches = 16;

std::uint16_t keyboardKeyOr(std::uint16_t code, std::uint16_t otherwise) {
    Device device{};
    return findDeviceOfKey(code, device) && device == Device::Keyboard ? code : otherwise;
}

Options inBounds(Options options) {
    if (options.sensorDpi < lowestSensorDpi || options.sensorDpi > highestSensorDpi)
        options.sensorDpi = Options{}.sensorDpi;
    std::ranges::transform(options.acceleration, options.acceleration.begin(), effectiveAcceleration);
    std::ranges::transform(options.letterKeys, usLetterKeys, options.letterKeys.begin(), keyboardKeyOr);
    return options;
}

bool saysTheSame(const SettingsRecord& a, const SettingsRecord& b) {
    return a.profileId == b.profileId && a.stage == b.stage && a.dpiXCode == b.dpiXCode &&
           a.dpiYCode == b.dpiYCode;
}

} // namespace

Engine::Core::Core(Output& output) : m_output(output), m_writer(output) {
    setOptions({});
}

void Engine::Core::begin(Time now) {
    m_clock.set(now);
    m_writer.setTime(now);
}

void Engine::Core::finish() {
    m_writer.flush();
    if (m_told == running())
        return;
    m_told = running();
    m_output.runs(m_told);
}

bool Engine::Core::setRecord(std::span<const std::uint8_t> record) {
    const auto before = m_configuration.settings();
    if (!m_configuration.take(record))
        return false;
    m_macros.keepOnly(m_configuration);
    if (std::exchange(m_hasRecord, true) && saysTheSame(before, m_configuration.settings()))
        m_position.stayOnRecord();
    else
        m_position.start();
    return true;
}

void Engine::Core::setOptions(const Options& options) {
    m_options = inBounds(options);
    m_motion.setSensorDpi(m_options.sensorDpi);
    m_inputOf.fill(0);
    for (auto input = std::uint8_t{buttonInputs}; input > 0; --input) {
        const auto code = m_options.buttonCodes[input - 1U];
        if (code != KEY_RESERVED && code < m_inputOf.size())
            m_inputOf[code] = input;
    }
}

void Engine::Core::input(std::span<const input_event> frame) {
    for (const input_event& event : frame) {
        if (event.type == EV_KEY)
            key(event.code, event.value);
        else if (event.type == EV_REL)
            relative(event.code, event.value);
        else if (event.type == EV_SYN && event.code == SYN_REPORT)
            endFrame();
    }
    if (frame.empty() || frame.back().type != EV_SYN || frame.back().code != SYN_REPORT)
        endFrame();
}

void Engine::Core::wake() {
    const auto now = m_clock.now();
    m_macros.wake(now);
    m_clicks.wake(now);
    m_scrolling.wake(now);
}

void Engine::Core::releaseAll() {
    m_macros.endAll();
    m_clicks.endAll();
    m_scrolling.endAll();
    m_position.releaseAll();
    m_keys.releaseAll();
    m_motion.reset();
    m_pressedAs.fill(0);
    m_held = {};
}

std::optional<Time> Engine::Core::nextWake() const {
    std::optional<Time> next = m_macros.nextWake();
    for (const auto other : {m_clicks.nextWake(), m_scrolling.nextWake()})
        if (other)
            next = earlier(next, *other);
    if (next)
        next = m_clock.inCallersTime(std::max(*next, m_clock.now()));
    return next;
}

bool Engine::Core::isBusy() const {
    return m_keys.areAny() || m_macros.isPlaying() || m_clicks.areAny() || m_scrolling.isAny();
}

/// Value 2 is a key repeat; ignored, because the desktop repeats the keys that we hold.
void Engine::Core::key(std::uint16_t code, std::int32_t value) {
    if (code >= m_pressedAs.size())
        return;
    if (value == 1 && m_pressedAs[code] == 0)
        press(code);
    else if (value == 0 && m_pressedAs[code] != 0)
        release(code);
}

void Engine::Core::press(std::uint16_t code) {
    const auto input = m_inputOf[code];
    if (input == 0 || !m_hasRecord) {
        m_pressedAs[code] = kPassed;
        m_keys.press(code);
    } else if (!m_held[input].isDown) {
        m_pressedAs[code] = input;
        pressInput(input);
    }
}

void Engine::Core::release(std::uint16_t code) {
    const auto as = std::exchange(m_pressedAs[code], std::uint8_t{0});
    if (as == kPassed)
        m_keys.release(code);
    else
        releaseInput(as);
}

void Engine::Core::pressInput(std::uint8_t input) {
    const ButtonAssignment& assignment = assignmentOf(input);
    const Function& function = functionOf(assignment, input);
    HeldInput& held = m_held[input];
    held = {true, function.act, Chord(function, assignment, m_options.letterKeys)};
    switch (function.act) {
    case Act::DoubleClick:
        return m_clicks.press(input, function.key, m_clock.now());
    case Act::Scroll:
        return m_scrolling.press(input, function.scroll, m_clock.now());
    case Act::LowestStage:
        return m_position.holdLowest();
    default:
        held.chord.press(m_keys);
        runOnce(function, assignment);
    }
}

void Engine::Core::releaseInput(std::uint8_t input) {
    const HeldInput held = std::exchange(m_held[input], {});
    switch (held.act) {
    case Act::DoubleClick:
        return m_clicks.release(input);
    case Act::Scroll:
        return m_scrolling.release(input);
    case Act::LowestStage:
        return m_position.releaseLowest();
    default:
        held.chord.release(m_keys);
    }
}

void Engine::Core::relative(std::uint16_t code, std::int32_t value) {
    switch (code) {
    case REL_X:
        m_move.x += value;
        break;
    case REL_Y:
        m_move.y += value;
        break;
    case REL_WHEEL:
        m_vertical.notches += value;
        break;
    case REL_HWHEEL:
        m_horizontal.notches += value;
        break;
    case REL_WHEEL_HI_RES:
        m_vertical.parts += value;
        m_vertical.hasParts = true;
        break;
    case REL_HWHEEL_HI_RES:
        m_horizontal.parts += value;
        m_horizontal.hasParts = true;
        break;
    default:
        break;
    }
}

void Engine::Core::endFrame() {
    move();
    if (m_vertical.isAny()) {
        const Turn turn = std::exchange(m_vertical, {});
        turnWheel(turn.notches, partsOf(turn));
    }
    if (m_horizontal.isAny()) {
        const Turn turn = std::exchange(m_horizontal, {});
        m_scrolling.turn({REL_HWHEEL, 1}, turn.notches, partsOf(turn));
    }
    m_writer.flush();
}

void Engine::Core::move() {
    Move counts = std::exchange(m_move, {});
    if (counts.x == 0 && counts.y == 0)
        return;
    if (m_hasRecord) {
        const auto& runs = running();
        counts = m_motion.scaled(
            counts, runs.dpiX, runs.dpiY, m_options.acceleration[runs.profile - 1U], m_clock.now());
    }
    if (counts.x != 0)
        m_writer.put(Device::Pointer, EV_REL, REL_X, counts.x);
    if (counts.y != 0)
        m_writer.put(Device::Pointer, EV_REL, REL_Y, counts.y);
}

/// A desktop that receives high-resolution events ignores the plain ones.
std::int64_t Engine::Core::partsOf(const Turn& turn) {
    return turn.hasParts ? turn.parts : turn.notches * partsOfNotch;
}

void Engine::Core::turnWheel(std::int64_t notches, std::int64_t parts) {
    if (!m_hasRecord)
        return m_scrolling.turn({REL_WHEEL, 1}, notches, parts);
    turnInput(kWheelAway, std::max(notches, std::int64_t{0}), std::max(parts, std::int64_t{0}));
    turnInput(kWheelBack, std::max(-notches, std::int64_t{0}), std::max(-parts, std::int64_t{0}));
}

/// Scrolling uses the high resolution; other functions need a whole notch.
void Engine::Core::turnInput(std::uint8_t input, std::int64_t notches, std::int64_t parts) {
    if (notches == 0 && parts == 0)
        return;
    const ButtonAssignment& assignment = assignmentOf(input);
    const Function& function = functionOf(assignment, input);
    if (function.act == Act::Scroll)
        return m_scrolling.turn(function.scroll, notches, parts);
    const Chord chord(function, assignment, m_options.letterKeys);
    for (auto notch = std::min(notches, kMostNotches); notch > 0; --notch) {
        chord.press(m_keys);
        chord.release(m_keys);
        runOnce(function, assignment);
    }
}

/// Runs a function that a press triggers and that its release does not affect.
void Engine::Core::runOnce(const Function& function, const ButtonAssignment& assignment) {
    switch (function.act) {
    case Act::StageUp:
        return m_position.step(1);
    case Act::StageDown:
        return m_position.step(-1);
    case Act::NextStage:
        return m_position.cycle();
    case Act::SwitchToProfile:
        return m_position.switchToProfile(assignment.param1);
    case Act::NextProfile:
        return m_position.goToProfileBeside(1);
    case Act::PreviousProfile:
        return m_position.goToProfileBeside(-1);
    case Act::RunMacro:
        if (const auto macro = m_configuration.macro(assignment.param1); macro && !m_options.macrosAreQuiet)
            m_macros.start(assignment.param1, *macro, m_clock.now());
        return;
    default:
        return;
    }
}

const ButtonAssignment& Engine::Core::assignmentOf(std::uint8_t input) const {
    return m_configuration.assignment(m_position.profile(), input);
}

} // namespace quorvi::engine
