// A display's description of the focused window.
#pragma once

#include <string>

#include <sys/types.h>

namespace quorvi::front {

/// Each display provides some parts; the others are empty or 0.
struct FrontWindow {
    std::string desktopId;   ///< the name of a desktop entry, with or without ".desktop", or an app_id
    std::string windowClass; ///< the second part of WM_CLASS (ICCCM, 4.1.2.5)
    std::string windowName;  ///< its first part
    pid_t pid = 0;           ///< set by the client: may be from another machine or name space

    bool operator==(const FrontWindow&) const = default;
    /// Some window managers report no window between two others.
    [[nodiscard]] bool isNone() const { return *this == FrontWindow(); }
};

} // namespace quorvi::front
