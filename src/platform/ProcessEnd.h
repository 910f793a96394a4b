// The end of a process that need not be a child of this one.
#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>

#include <sys/types.h>

namespace quorvi {

class ProcessEnd {
  public:
    /// The function is called once, from the event loop, when the process has ended or is not there; not
    /// after the end of this object. Nothing wakes this process before. Linux before 5.3 cannot tell, and
    /// the function is never called there.
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
