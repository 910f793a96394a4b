// The clock that the panel measures and waits with.
#pragma once

#include <QTimer>

#include <chrono>
#include <functional>
#include <utility>

namespace quorvi {

/// Seconds since some moment before the start of this process. They never go backwards, whatever the user
/// does to the time of day.
[[nodiscard]] inline double steadySeconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

/// Calls the action once when so many seconds have passed, unless the context is gone by then.
inline void callAfterSeconds(double seconds, QObject* context, std::function<void()> action) {
    const auto time =
        std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::duration<double>(seconds));
    QTimer::singleShot(time, Qt::PreciseTimer, context, std::move(action));
}

} // namespace quorvi
