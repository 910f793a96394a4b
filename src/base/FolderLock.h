// The lock that whoever replaces a settings file holds meanwhile.
#pragma once

#include <chrono>

#include "base/FileCalls.h"

namespace quorvi {

/// The exclusive lock (flock) on the folder that the file is in: no file of its own is needed, and it ends
/// with the process. It is a courtesy and not relied upon: some file systems have none, and editors take
/// none.
class FolderLock {
  public:
    /// Longer than this nobody waits, taken together over the life of the object.
    static constexpr std::chrono::milliseconds kPatience{250};

    /// Takes nothing yet. The folder is an open one; it and the calls have to outlive the object.
    FolderLock(FileCalls& calls, int folder) : m_calls(calls), m_folder(folder) {}
    ~FolderLock() { release(); }
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    /// Does nothing when it is held. Whether it is held in the end has no consequences.
    void take();
    void release();

  private:
    FileCalls& m_calls;
    int m_folder;
    bool m_held = false;
    std::chrono::nanoseconds m_waited{};
};

} // namespace quorvi
