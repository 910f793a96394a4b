// Sets the process's umask while the object lives.
#pragma once

#include <sys/stat.h>

namespace quorvi::test {

class UmaskGuard {
  public:
    explicit UmaskGuard(mode_t mask) : m_old(::umask(mask)) {}
    ~UmaskGuard() { ::umask(m_old); }
    UmaskGuard(const UmaskGuard&) = delete;
    UmaskGuard& operator=(const UmaskGuard&) = delete;

  private:
    mode_t m_old;
};

} // namespace quorvi::test
