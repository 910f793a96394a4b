// The panel's clock for measuring and waiting.
#pragma once

#include <QTimer>

#include <chrono>
#include <functional>
#include <utility>

namespace quorvi {

/// Seconds since some moment before the start of this process. They never go backwards, even if the time of
/// day is changed.
[[nodiscard]] inline double steadySeconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

/// Calls the action once after that many seconds, unless the context is gone by then.
inline void callAfterSeconds(double seconds, QObject* context, std::function<void()> action) {
    const auto time =
        std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::duration<double>(seconds));
    QTimer::singleShot(time, Qt::PreciseTimer, context, std::move(action));
}

} // namespace quorvi
