// The engine behind its door: what comes in is told apart here and handed to whoever does it.
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

    /// Before and behind everything else: the time, and what has come of it.
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
    /// What one frame says of one wheel. A mouse with high resolution says all of it in parts too.
    struct Turn {
        std::int64_t notches = 0;
        std::int64_t parts = 0;
        bool hasParts = false;

        [[nodiscard]] bool isAny() const { return notches != 0 || hasParts; }
    };
    /// What a button of the mouse has pressed, until it goes up.
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

    // What each report of the mouse needs, side by side: between two of them the processor does other things
    // and forgets where all of this is, page by page.
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
    std::array<std::uint8_t, KEY_CNT> m_inputOf{};    ///< by code: the input that it is, 0 for none
    std::array<std::uint8_t, KEY_CNT> m_pressedAs{};  ///< by code that is down: its input, or that it passed
    std::array<HeldInput, buttonInputs + 1> m_held{}; ///< by input
};

} // namespace quorvi::engine
