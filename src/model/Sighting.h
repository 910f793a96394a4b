// A look at a file that others may replace at any time. Private to this library.
#pragma once

#include <string>
#include <string_view>

#include <sys/stat.h>

#include "model/SharedFile.h"

namespace quorvi {

/// What was under a name of a folder, with what it takes to see whether it still is.
struct Sighting {
    Found found;
    struct stat status {};
    int error = 0; ///< as errno: there is something that is no regular file, or it cannot even be looked at

    /// The file with that name in the open folder. Links are not followed, and nobody is waited for.
    static Sighting of(int folder, const std::string& name);

    /// Whether the same is under that name now. Of what can be read the bytes count: they may be others
    /// though size and times are not.
    [[nodiscard]] bool isAt(int folder, const std::string& name) const;

    [[nodiscard]] std::string_view bytes() const {
        return {reinterpret_cast<const char*>(found.bytes.data()), found.bytes.size()};
    }
};

} // namespace quorvi
