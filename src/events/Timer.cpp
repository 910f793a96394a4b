#include "events/Timer.h"

#include <algorithm>

#include <sys/timerfd.h>
#include <unistd.h>

namespace quorvi {

Timer::Timer() : m_fd(timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK)) {}

Timer::~Timer() {
    if (m_fd >= 0)
        close(m_fd);
}

void Timer::set(std::optional<Clock::time_point> due) {
    if (due == m_due)
        return;
    m_due = due;
    itimerspec setting{};
    if (due) {
        // A time of 0 would turn it off.
        const auto time = std::max(due->time_since_epoch(), Clock::duration(1));
        const auto seconds = std::chrono::floor<std::chrono::seconds>(time);
        setting.it_value.tv_sec = seconds.count();
        setting.it_value.tv_nsec = std::chrono::nanoseconds(time - seconds).count();
    }
    timerfd_settime(m_fd, TFD_TIMER_ABSTIME, &setting, nullptr);
}

} // namespace quorvi
