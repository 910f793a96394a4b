// Moves of the mouse: counts of its sensor become counts of the pointer.
#pragma once

#include <array>
#include <cstdint>

#include "engine/Clock.h"
#include "engine/Options.h"

namespace quorvi::engine {

/// The hand's speed: distance over time for at least eight milliseconds, because single reports come
/// unevenly. 0 for the first of them, and after a rest.
class HandSpeed {
  public:
    /// Adds a move in inches. Returns the speed as a share of the fastest, 0 to 1.
    double after(double inchesX, double inchesY, Time now);

  private:
    Time m_since{0};
    Time m_last{0};
    double m_way = 0; ///< inches since m_since
    double m_share = 0;
    bool m_moves = false;
};

/// A move, before or after scaling.
struct Move {
    std::int64_t x = 0;
    std::int64_t y = 0;
};

/// Returns whole counts and keeps the fractions of each axis, so that the pointer does not drift.
class Motion {
  public:
    /// Drops the fractions, whose unit has changed.
    void setSensorDpi(std::uint16_t dpi);

    /// Scales the sensor's counts by that sensitivity and acceleration factor. Counts beyond 32 bits are
    /// clamped.
    [[nodiscard]] Move scaled(Move counts, std::uint16_t dpiX, std::uint16_t dpiY, float factor, Time now);

    /// Drops the fractions of counts.
    void reset();

  private:
    [[nodiscard]] std::int64_t gain(Move counts, float factor, Time now);
    [[nodiscard]] std::int64_t wholeCounts(
        std::int64_t count, std::int64_t dpi, std::int64_t gain, std::int64_t& left) const;

    std::int64_t m_sensorDpi = Options{}.sensorDpi;
    std::int64_t m_restX = 0; ///< of a count, in parts of m_sensorDpi times the unit of the gain
    std::int64_t m_restY = 0;
    HandSpeed m_speed;
};

} // namespace quorvi::engine
