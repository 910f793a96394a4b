// The helper's session, from the environment.
#pragma once

#include <filesystem>
#include <string>

namespace quorvi::front {

struct Session {
    std::string x11Display;              ///< as in $DISPLAY; may be empty
    std::filesystem::path waylandSocket; ///< may be empty
    bool isWayland = false;
    std::filesystem::path resources; ///< of the helper's application
    std::string desktop;             ///< the first name in $XDG_CURRENT_DESKTOP; may be empty

    [[nodiscard]] static Session ofThisProcess();
};

} // namespace quorvi::front
