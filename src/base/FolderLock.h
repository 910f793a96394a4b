// The lock that a process holds while it replaces a settings file.
#pragma once

#include <chrono>

#include "base/FileCalls.h"

namespace quorvi {

/// An exclusive lock (flock) on the file's folder: it needs no lock file and ends with the process. Nothing
/// relies on it: some file systems have no locks, and editors do not take them.
class FolderLock {
  public:
    /// The longest total wait over the object's lifetime.
    static constexpr std::chrono::milliseconds kPatience{250};

    /// Does not lock yet. The folder is an open descriptor; it and the calls must outlive the object.
    FolderLock(FileCalls& calls, int folder) : m_calls(calls), m_folder(folder) {}
    ~FolderLock() { release(); }
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    /// Takes the lock, or gives up after kPatience. Does nothing if it is already held.
    void take();
    void release();

  private:
    FileCalls& m_calls;
    int m_folder;
    bool m_held = false;
    std::chrono::nanoseconds m_waited{};
};

} // namespace quorvi
