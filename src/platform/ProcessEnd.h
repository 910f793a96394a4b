// Watches for the end of a process, which need not be a child.
#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>

#include <sys/types.h>

namespace quorvi {

class ProcessEnd {
  public:
    /// The function is called once, from the event loop, when the process has ended or does not exist; not
    /// after this object is destroyed. Causes no wake-ups before. Before Linux 5.3 the function is never
    /// called.
    ProcessEnd(pid_t process, std::function<void()> ended);
    ~ProcessEnd();
    ProcessEnd(const ProcessEnd&) = delete;
    ProcessEnd& operator=(const ProcessEnd&) = delete;

  private:
    int m_process; ///< readable when the process has ended; -1 for none
    QObject m_context;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace quorvi
