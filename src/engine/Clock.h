// The engine's own time, which goes forward only, beside the caller's, which may jump.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <optional>

namespace quorvi::engine {

/// Since any origin, of a clock that the caller keeps to. A time before that of the last call counts as that
/// of the last call, and what waits goes on waiting from there.
using Time = std::chrono::microseconds;

/// The earlier of the two; the second when there is no first.
[[nodiscard]] constexpr Time earlier(std::optional<Time> first, Time second) {
    return first && *first < second ? *first : second;
}

class Clock {
  public:
    /// Takes any time. The first one, and one before the last, move the own time nowhere; no single one moves
    /// it by more than a day, which is longer than anything waits.
    void set(Time callers) {
        if (m_isSet && callers > m_callers)
            m_now += stepTo(callers);
        m_callers = callers;
        m_isSet = true;
    }

    [[nodiscard]] Time now() const { return m_now; }
    [[nodiscard]] Time callers() const { return m_callers; }

    /// The caller's time when the own time, not before now, will have come.
    [[nodiscard]] Time inCallersTime(Time own) const {
        const Time wait = own - m_now;
        return m_callers > Time::max() - wait ? Time::max() : m_callers + wait;
    }

  private:
    /// Counted without a sign, because two times may lie further apart than a signed number holds.
    [[nodiscard]] Time stepTo(Time later) const {
        const auto step =
            static_cast<std::uint64_t>(later.count()) - static_cast<std::uint64_t>(m_callers.count());
        return Time(static_cast<Time::rep>(std::min(step, kLongestStep)));
    }

    static constexpr std::uint64_t kLongestStep = std::chrono::microseconds(std::chrono::hours(24)).count();

    bool m_isSet = false;
    Time m_callers{0};
    Time m_now{0};
};

} // namespace quorvi::engine
