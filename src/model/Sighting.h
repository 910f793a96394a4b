// A snapshot of a file that other programs may replace at any time. Private to this library.
#pragma once

#include <string>
#include <string_view>

#include <sys/stat.h>

#include "model/SharedFile.h"

namespace quorvi {

/// The file found under a name in a folder, with enough to check whether it is still there.
struct Sighting {
    Found found;
    struct stat status {};
    int error = 0; ///< an errno if it is not a regular file, or cannot be inspected

    /// The file with that name in the open folder. Does not follow links and never blocks.
    static Sighting of(int folder, const std::string& name);

    /// Whether the same file is under that name now. Compares the bytes if they can be read: they may differ
    /// even with equal size and times.
    [[nodiscard]] bool isAt(int folder, const std::string& name) const;
    /// The same, but does not read a file whose change time is the same. That time may miss a change within
    /// some milliseconds, so the caller must compare the bytes later (isAt).
    [[nodiscard]] bool isProbablyAt(int folder, const std::string& name) const;

    [[nodiscard]] std::string_view bytes() const {
        return {reinterpret_cast<const char*>(found.bytes.data()), found.bytes.size()};
    }
};

} // namespace quorvi
