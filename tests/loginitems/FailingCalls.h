// File-system calls that fail like a full disk, because a test cannot fill one.
#pragma once

#include <cerrno>

#include "base/FileCalls.h"

namespace quorvi::test {

class FailingCalls : public FileCalls {
  public:
    int openat(int folder, const char* name, int flags, mode_t mode) override {
        return failOpen ? fail() : FileCalls::openat(folder, name, flags, mode);
    }
    ssize_t write(int file, const void* bytes, std::size_t count) override {
        return failWrite ? fail() : FileCalls::write(file, bytes, count);
    }
    int unlinkat(int folder, const char* name) override {
        return failUnlink ? fail() : FileCalls::unlinkat(folder, name);
    }

    bool failOpen = false;
    bool failWrite = false;
    bool failUnlink = false;
    int error = ENOSPC;

  private:
    int fail() const {
        errno = error;
        return -1;
    }
};

} // namespace quorvi::test
