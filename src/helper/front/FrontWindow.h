// What a display says of the window that has the focus.
#pragma once

#include <string>

#include <sys/types.h>

namespace quorvi::front {

/// Each display knows some of it; what it does not know is empty or 0.
struct FrontWindow {
    std::string desktopId;   ///< the name of a desktop entry, with or without ".desktop", or an app_id
    std::string windowClass; ///< the second part of WM_CLASS (ICCCM, 4.1.2.5)
    std::string windowName;  ///< its first part
    pid_t pid = 0;           ///< as the client says it: may be that of another machine or a name space

    bool operator==(const FrontWindow&) const = default;
    /// Between two windows some window managers say that none is in front.
    [[nodiscard]] bool isNone() const { return *this == FrontWindow(); }
};

} // namespace quorvi::front
