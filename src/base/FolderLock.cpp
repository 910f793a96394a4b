#include "base/FolderLock.h"

#include <cerrno>
#include <thread>

#include <sys/file.h>

namespace quorvi {

void FolderLock::take() {
    // flock() has no timeout, so poll. The lock is usually held for microseconds.
    constexpr std::chrono::milliseconds pause{1};
    const auto start = std::chrono::steady_clock::now();
    const auto before = m_waited;
    while (!m_held) {
        m_held = m_calls.flock(m_folder, LOCK_EX | LOCK_NB) == 0;
        if (m_held || (errno != EWOULDBLOCK && errno != EINTR))
            return;
        m_waited = before + (std::chrono::steady_clock::now() - start);
        if (m_waited + pause > kPatience)
            return;
        std::this_thread::sleep_for(pause);
    }
}

void FolderLock::release() {
    if (m_held)
        m_calls.flock(m_folder, LOCK_UN);
    m_held = false;
}

} // namespace quorvi
