// The engine's implementation: it sorts the input and passes it to the classes that handle it.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>

#include "engine/Chord.h"
#include "engine/Clock.h"
#include "engine/DoubleClicks.h"
#include "engine/Engine.h"
#include "engine/MacroPlayer.h"
#include "engine/Motion.h"
#include "engine/Position.h"
#include "engine/Scrolling.h"

namespace quorvi::engine {

class Engine::Core {
  public:
    explicit Core(Output& output);

    /// Called before and after every other call: sets the time, and handles its effects.
    void begin(Time now);
    void finish();

    [[nodiscard]] bool setRecord(std::span<const std::uint8_t> record);
    void setOptions(const Options& options);
    void input(std::span<const input_event> frame);
    void wake();
    void releaseAll();

    [[nodiscard]] std::optional<Time> nextWake() const;
    [[nodiscard]] const Running& running() const { return m_position.running(); }
    [[nodiscard]] bool isBusy() const;

  private:
    /// One wheel's turn in one frame. A high-resolution mouse reports it in parts of a notch too.
    struct Turn {
        std::int64_t notches = 0;
        std::int64_t parts = 0;
        bool hasParts = false;

        [[nodiscard]] bool isAny() const { return notches != 0 || hasParts; }
    };
    /// The keys and buttons that a mouse button holds down until its release.
    struct HeldInput {
        bool isDown = false;
        Act act = Act::Nothing;
        Chord chord;
    };

    void key(std::uint16_t code, std::int32_t value);
    void press(std::uint16_t code);
    void release(std::uint16_t code);
    void pressInput(std::uint8_t input);
    void releaseInput(std::uint8_t input);
    void relative(std::uint16_t code, std::int32_t value);
    void endFrame();
    void move();
    [[nodiscard]] static std::int64_t partsOf(const Turn& turn);
    void turnWheel(std::int64_t notches, std::int64_t parts);
    void turnInput(std::uint8_t input, std::int64_t notches, std::int64_t parts);
    void runOnce(const Function& function, const ButtonAssignment& assignment);

    [[nodiscard]] const ButtonAssignment& assignmentOf(std::uint8_t input) const;

    // The data used for every report, kept together: between reports the processor's caches lose it, so it
    // should span few pages.
    Output& m_output;
    Clock m_clock;
    Move m_move;
    Turn m_vertical;
    Turn m_horizontal;
    Running m_told;
    bool m_hasRecord = false;
    Options m_options;
    Position m_position{m_configuration};
    Motion m_motion;
    DoubleClicks m_clicks{m_keys};
    Scrolling m_scrolling{m_writer};
    FrameWriter m_writer;
    MacroPlayer m_macros{m_keys, m_writer};

    HeldKeys m_keys{m_writer};
    Configuration m_configuration;
    std::array<std::uint8_t, KEY_CNT> m_inputOf{};    ///< by code: its input, 0 for none
    std::array<std::uint8_t, KEY_CNT> m_pressedAs{};  ///< by code that is down: its input, or kPassed
    std::array<HeldInput, buttonInputs + 1> m_held{}; ///< by input
};

} // namespace quorvi::engine
