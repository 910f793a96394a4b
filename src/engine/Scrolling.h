// Turns of the virtual wheels: those of the real wheel, and notches from buttons, which repeat like keys
// while held.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "engine/FrameWriter.h"
#include "engine/Functions.h"
#include "engine/Options.h"

namespace quorvi::engine {

/// Parts of a notch in high resolution, as the kernel defines it.
inline constexpr std::int32_t partsOfNotch = 120;

class Scrolling {
  public:
    explicit Scrolling(FrameWriter& writer) : m_writer(writer) {}

    /// Turns in that direction by notches and by parts of notches, which describe the same turn; both may be
    /// negative.
    void turn(ScrollDirection direction, std::int64_t notches, std::int64_t parts);

    /// Sends a notch at once, and more until the release. The input is 1 to 7.
    void press(std::uint8_t input, ScrollDirection direction, Time now);
    void release(std::uint8_t input);
    void wake(Time now);
    [[nodiscard]] std::optional<Time> nextWake() const;
    void endAll();
    [[nodiscard]] bool isAny() const;

  private:
    struct Held {
        bool isDown = false;
        ScrollDirection direction;
        Time due{0};
    };

    FrameWriter& m_writer;
    std::array<Held, buttonInputs> m_held{};
};

} // namespace quorvi::engine
