// Plays macros.
//
// A macro runs to its end whatever becomes of the button that started it, and one press plays it once: a
// press while it runs does nothing, so that what it types never mixes with itself. Different macros run
// beside each other, up to four. A macro's own delay comes before its first step. A step's delay counts from
// the moment that the step went out, and so is never shorter than it was recorded. At the end goes up what
// the macro left down.
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

    /// Plays what is due at once. Nothing when the macro runs already, or when four others do.
    void start(std::uint8_t macroId, const Configuration::Macro& macro, Time now);
    void wake(Time now);
    [[nodiscard]] std::optional<Time> nextWake() const;

    /// Ends those that the configuration does not have as they are played.
    void keepOnly(const Configuration& configuration);
    void endAll();
    [[nodiscard]] bool isPlaying() const { return m_playing > 0; }

  private:
    /// Codes that a macro has pressed. A step has two bytes at least, so that half as many do.
    struct Pressed {
        std::array<std::uint16_t, limits::stepBytes / 2> codes{};
        std::size_t size = 0;
    };
    struct Playing {
        bool isActive = false;
        std::uint8_t macroId = 0;
        std::array<std::uint8_t, limits::stepBytes> bytes{}; ///< a copy: the record may change meanwhile
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
