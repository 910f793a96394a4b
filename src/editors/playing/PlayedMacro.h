// One macro played in real time by the engine that the mouse runs, into whoever listens.
#pragma once

#include <QObject>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "engine/Clock.h"
#include "engine/FrameWriter.h"
#include "engine/HeldKeys.h"
#include "engine/MacroPlayer.h"
#include "engine/Output.h"
#include "plist/Value.h"

namespace quorvi {

class PlayedMacro final : private engine::Output {
  public:
    /// What it measures and waits with; none is empty.
    struct Time {
        std::function<double()> clock; ///< in seconds
        /// Calls the action once when so many seconds have passed, unless the context is gone by then.
        std::function<void(double seconds, QObject* context, std::function<void()> action)> callLater;
    };
    /// Hears what comes out. It must not start, stop or destroy the player, except in hasEnded().
    class Listener {
      public:
        virtual void keyChanged(std::uint8_t usage, bool down) = 0; ///< a USB usage
        virtual void buttonChanged(int button, bool down) = 0; ///< from 1: left, right, middle, back, forward
        virtual void stepHasGoneOut() = 0;
        /// The last step has had its delay, and what was left down is up.
        virtual void hasEnded() = 0;

      protected:
        ~Listener() = default;
    };

    /// The listener must outlive it.
    PlayedMacro(Time time, Listener& listener);
    ~PlayedMacro() override = default;
    PlayedMacro(const PlayedMacro&) = delete;
    PlayedMacro& operator=(const PlayedMacro&) = delete;

    /// Plays the macro with the identifier as the mouse would get it: in the record that the settings make.
    /// False when the record does not have it. What is due at once has gone out when this returns.
    bool start(const plist::Dictionary& settings, std::int32_t macroId);
    /// Ends it; what it has left down goes up.
    void stop();
    [[nodiscard]] bool isRunning() const { return m_player.isPlaying(); }

    /// The index of the step that has gone out last; nothing before the first, and when nothing runs.
    [[nodiscard]] std::optional<std::size_t> step() const;
    /// Since the macro's first step; 0 before it.
    [[nodiscard]] std::chrono::milliseconds elapsed() const;

  private:
    void write(engine::Device device, std::span<const input_event> frame) override;
    void runs(const engine::Running& /*running*/) override {}

    void wake();
    void awaitNext();
    /// Sets the engine's time to now.
    void setNow();

    Time m_time;
    Listener& m_listener;
    engine::Clock m_clock;
    engine::FrameWriter m_writer{*this};
    engine::HeldKeys m_keys{m_writer};
    engine::MacroPlayer m_player{m_keys, m_writer};
    std::uint8_t m_macroId = 0;
    engine::Time m_start{0};             ///< when the first step is due
    std::unique_ptr<QObject> m_awaiting; ///< null while nothing is due
};

} // namespace quorvi
