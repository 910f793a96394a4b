// Double clicks. Desktops treat two changes of a mouse button within 25 ms as a worn switch and drop them, so
// a double click takes some time. Its second click lasts as long as the input is down, for selecting words by
// dragging.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "engine/HeldKeys.h"
#include "engine/Options.h"

namespace quorvi::engine {

class DoubleClicks {
  public:
    explicit DoubleClicks(HeldKeys& keys) : m_keys(keys) {}

    /// The input is 1 to 7. Does nothing while that input's last double click is running.
    void press(std::uint8_t input, std::uint16_t button, Time now);
    void release(std::uint8_t input);
    void wake(Time now);
    [[nodiscard]] std::optional<Time> nextWake() const;
    void endAll();
    [[nodiscard]] bool areAny() const;

  private:
    enum class Phase : std::uint8_t { Idle, FirstDown, Between, SecondDown, Held };
    struct Clicks {
        Phase phase = Phase::Idle;
        bool inputIsDown = false;
        std::uint16_t button = 0;
        Time due{0};
    };
    void advance(Clicks& clicks, Time now);
    void end(Clicks& clicks);

    HeldKeys& m_keys;
    std::array<Clicks, buttonInputs> m_clicks{};
};

} // namespace quorvi::engine
