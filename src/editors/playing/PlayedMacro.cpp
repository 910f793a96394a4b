#include "editors/playing/PlayedMacro.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "engine/Configuration.h"
#include "engine/UsbKeys.h"
#include "model/ConfigMapping.h"
#include "model/Limits.h"

namespace quorvi {

namespace {

constexpr double kMicroseconds = 1e6; // of a second

/// The buttons that steps press, in the order of their numbers.
constexpr std::array<std::uint16_t, 5> kButtons{BTN_LEFT, BTN_RIGHT, BTN_MIDDLE, BTN_SIDE, BTN_EXTRA};

/// From 1; 0 for a key.
int buttonOf(std::uint16_t code) {
    const auto found = std::ranges::find(kButtons, code);
    return found == kButtons.end() ? 0 : static_cast<int>(found - kButtons.begin()) + 1;
}

/// The record that the mouse would get; null when there is none.
std::unique_ptr<engine::Configuration> configurationOf(const plist::Dictionary& settings) {
    auto record = std::make_unique<ConfigRecord>();
    auto configuration = std::make_unique<engine::Configuration>();
    const std::span bytes(reinterpret_cast<const std::uint8_t*>(record.get()), sizeof *record);
    if (!KyvarConfigDictToStruct(settings, record.get()) || !configuration->take(bytes))
        return nullptr;
    return configuration;
}

} // namespace

PlayedMacro::PlayedMacro(Time time, Listener& listener) : m_time(std::move(time)), m_listener(listener) {}

bool PlayedMacro::start(const plist::Dictionary& settings, std::int32_t macroId) {
    stop();
    const auto configuration = configurationOf(settings);
    if (!configuration || macroId < 0 || macroId > limits::highestMacroId)
        return false;
    m_macroId = static_cast<std::uint8_t>(macroId);
    const auto macro = configuration->macro(m_macroId);
    if (!macro)
        return false;
    setNow();
    m_start = m_clock.now() + std::chrono::milliseconds(macro->delay);
    m_player.start(m_macroId, *macro, m_clock.now());
    if (step())
        m_listener.stepHasGoneOut();
    awaitNext();
    return true;
}

void PlayedMacro::stop() {
    m_awaiting.reset();
    m_player.endAll();
}

std::optional<std::size_t> PlayedMacro::step() const {
    const auto played = m_player.stepsPlayed(m_macroId);
    return played && *played > 0 ? std::optional(*played - 1) : std::nullopt;
}

std::chrono::milliseconds PlayedMacro::elapsed() const {
    engine::Clock now = m_clock;
    now.set(engine::Time(std::llround(m_time.clock() * kMicroseconds)));
    return std::max(std::chrono::milliseconds(0),
        std::chrono::duration_cast<std::chrono::milliseconds>(now.now() - m_start));
}

void PlayedMacro::setNow() {
    m_clock.set(engine::Time(std::llround(m_time.clock() * kMicroseconds)));
    m_writer.setTime(m_clock.callers());
}

void PlayedMacro::wake() {
    setNow();
    const auto before = step();
    m_player.wake(m_clock.now());
    if (step() != before)
        m_listener.stepHasGoneOut();
    awaitNext();
}

void PlayedMacro::awaitNext() {
    const auto due = m_player.nextWake();
    if (!due) {
        m_awaiting.reset();
        return m_listener.hasEnded();
    }
    m_awaiting = std::make_unique<QObject>();
    const double seconds = static_cast<double>((*due - m_clock.now()).count()) / kMicroseconds;
    m_time.callLater(std::max(0.0, seconds), m_awaiting.get(), [this] { wake(); });
}

void PlayedMacro::write(engine::Device /*device*/, std::span<const input_event> frame) {
    for (const input_event& event : frame) {
        if (event.type != EV_KEY)
            continue;
        const bool down = event.value != 0;
        if (const int button = buttonOf(event.code))
            m_listener.buttonChanged(button, down);
        else if (const std::uint8_t usage = engine::usageOfKey(event.code))
            m_listener.keyChanged(usage, down);
    }
}

} // namespace quorvi
