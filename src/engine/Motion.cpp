#include "engine/Motion.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "model/PointerSpeed.h"

namespace quorvi::engine {

namespace {

constexpr double kFastestHand = 20.0;                       ///< inches a second: a quick turn of the hand
constexpr Time kShortestWay = std::chrono::milliseconds(8); ///< the interval of the slowest polling rate
constexpr Time kRest = std::chrono::milliseconds(100);

/// Gains are whole multiples of 1/kGainUnit, so that equal moves always have equal results.
constexpr std::int64_t kGainUnit = 1 << 16;

/// More than any real report.
constexpr std::int64_t kMostCounts = std::numeric_limits<std::int32_t>::max();

} // namespace

double HandSpeed::after(double inchesX, double inchesY, Time now) {
    if (!m_moves || now - m_last > kRest) {
        m_moves = true;
        m_since = now;
        m_way = 0;
        m_share = 0;
    } else {
        m_way += std::hypot(inchesX, inchesY);
    }
    m_last = now;
    if (const auto elapsed = now - m_since; elapsed >= kShortestWay) {
        m_share = std::min(1.0, m_way / std::chrono::duration<double>(elapsed).count() / kFastestHand);
        m_since = now;
        m_way = 0;
    }
    return m_share;
}

void Motion::setSensorDpi(std::uint16_t dpi) {
    if (dpi == m_sensorDpi)
        return;
    m_sensorDpi = dpi;
    reset();
}

void Motion::reset() {
    m_restX = 0;
    m_restY = 0;
    m_speed = {};
}

Move Motion::scaled(Move counts, std::uint16_t dpiX, std::uint16_t dpiY, float factor, Time now) {
    const auto gained = gain(counts, factor, now);
    return {wholeCounts(counts.x, dpiX, gained, m_restX), wholeCounts(counts.y, dpiY, gained, m_restY)};
}

std::int64_t Motion::gain(Move counts, float factor, Time now) {
    if (factor == neutralAcceleration)
        return kGainUnit;
    const auto dpi = static_cast<double>(m_sensorDpi);
    const double hand =
        m_speed.after(static_cast<double>(counts.x) / dpi, static_cast<double>(counts.y) / dpi, now);
    const double gained = hand > 0 ? pointerSpeed(hand, double{factor}) / hand : 1.0;
    return std::llround(gained * static_cast<double>(kGainUnit));
}

std::int64_t Motion::wholeCounts(
    std::int64_t count, std::int64_t dpi, std::int64_t gain, std::int64_t& left) const {
    // 31 bits of counts, 13 of sensitivity, 17 of gain: it stays within 63.
    const auto parts = m_sensorDpi * kGainUnit;
    left += std::clamp(count, -kMostCounts, kMostCounts) * dpi * gain;
    const auto whole = left / parts;
    left -= whole * parts;
    return whole;
}

} // namespace quorvi::engine
