// Plays macros.
//
// A macro runs to its end even if its button is released, and one press plays it once: a press while it runs
// does nothing, so its keys never mix with themselves. Up to four different macros run at the same time. A
// macro's own delay comes before its first step. A step's delay starts when the step is sent, so it is never
// shorter than recorded. At its end a macro releases everything it still holds.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "engine/Configuration.h"
#include "engine/HeldKeys.h"
#include "model/CodedSteps.h"

namespace quorvi::engine {

class MacroPlayer {
  public:
    MacroPlayer(HeldKeys& keys, FrameWriter& writer) : m_keys(keys), m_writer(writer) {}

    /// Plays the steps due at once. Does nothing if the macro is already running, or four others are.
    void start(std::uint8_t macroId, const Configuration::Macro& macro, Time now);
    void wake(Time now);
    [[nodiscard]] std::optional<Time> nextWake() const;

    /// Ends the macros that the configuration no longer has in the same form.
    void keepOnly(const Configuration& configuration);
    void endAll();
    [[nodiscard]] bool isPlaying() const { return m_playing > 0; }
    /// How many steps of the macro have gone out; nothing when it does not run.
    [[nodiscard]] std::optional<std::size_t> stepsPlayed(std::uint8_t macroId) const;

  private:
    /// Codes that a macro has pressed. A step has at least two bytes, so half as many codes are enough.
    struct Pressed {
        std::array<std::uint16_t, limits::stepBytes / 2> codes{};
        std::size_t size = 0;
    };
    struct Playing {
        bool isActive = false;
        std::uint8_t macroId = 0;
        std::array<std::uint8_t, limits::stepBytes> bytes{}; ///< a copy: the record may change while it plays
        std::size_t size = 0;
        std::size_t position = 0; ///< of the next step in the bytes
        Time due{0};
        Pressed pressed;

        [[nodiscard]] std::span<const std::uint8_t> all() const { return std::span(bytes).first(size); }
    };

    void play(Playing& macro, Time now);
    void playStep(Playing& macro, const CodedStep& step);
    void press(Playing& macro, std::uint16_t code);
    void release(Playing& macro, std::uint16_t code);
    void releaseButtons(Playing& macro);
    void end(Playing& macro);

    static constexpr std::size_t kMostAtOnce = 4;

    HeldKeys& m_keys;
    FrameWriter& m_writer;
    std::size_t m_playing = 0; ///< how many are active
    std::array<Playing, kMostAtOnce> m_macros{};
};

} // namespace quorvi::engine
