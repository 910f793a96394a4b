// What the environment says of the session that the helper runs in.
#pragma once

#include <filesystem>
#include <string>

namespace quorvi::front {

struct Session {
    std::string x11Display;              ///< as in $DISPLAY; empty when there is none
    std::filesystem::path waylandSocket; ///< empty when there is none
    bool isWayland = false;
    std::filesystem::path resources; ///< of the helper's application
    std::string desktop;             ///< the first name in $XDG_CURRENT_DESKTOP; may be empty

    [[nodiscard]] static Session ofThisProcess();
};

} // namespace quorvi::front
