#include "platform/ProcessEnd.h"

#include <cerrno>

#include <sys/syscall.h>
#include <unistd.h>

namespace quorvi {

// The C library's function came four years after the kernel's.
ProcessEnd::ProcessEnd(pid_t process, std::function<void()> ended)
    : m_process(static_cast<int>(syscall(SYS_pidfd_open, process, 0))) {
    if (m_process < 0) {
        if (errno == ESRCH)
            QMetaObject::invokeMethod(&m_context, std::move(ended), Qt::QueuedConnection);
        return;
    }
    m_notifier = std::make_unique<QSocketNotifier>(m_process, QSocketNotifier::Read);
    QObject::connect(
        m_notifier.get(), &QSocketNotifier::activated, &m_context, [this, ended = std::move(ended)] {
            m_notifier->setEnabled(false);
            // Queued: the function may destroy this object while the notifier is still active.
            QMetaObject::invokeMethod(&m_context, ended, Qt::QueuedConnection);
        });
}

ProcessEnd::~ProcessEnd() {
    m_notifier.reset();
    if (m_process >= 0)
        close(m_process);
}

} // namespace quorvi
