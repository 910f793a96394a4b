// The engine's own time, which only moves forward, unlike the caller's, which may jump.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <optional>

namespace quorvi::engine {

/// Time since any origin, of a clock that the caller does not change. A time before the last call's counts as
/// the last call's, and waits continue from there.
using Time = std::chrono::microseconds;

/// The earlier of the two; the second if there is no first.
[[nodiscard]] constexpr Time earlier(std::optional<Time> first, Time second) {
    return first && *first < second ? *first : second;
}

class Clock {
  public:
    /// Accepts any time. The first one, and one before the last, leave the engine's time unchanged; no call
    /// moves it by more than a day, which is longer than any wait.
    void set(Time callers) {
        if (m_isSet && callers > m_callers)
            m_now += stepTo(callers);
        m_callers = callers;
        m_isSet = true;
    }

    [[nodiscard]] Time now() const { return m_now; }
    [[nodiscard]] Time callers() const { return m_callers; }

    /// Converts an engine time, not before now, to the caller's time.
    [[nodiscard]] Time inCallersTime(Time own) const {
        const Time wait = own - m_now;
        return m_callers > Time::max() - wait ? Time::max() : m_callers + wait;
    }

  private:
    /// Computed unsigned, because two times may differ by more than a signed number holds.
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
