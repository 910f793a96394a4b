// Who may use the mice of a seat: the user who sits there.
#pragma once

#include <optional>
#include <string>

#include <sys/types.h>

namespace quorvi::inputd {

/// What the log-in manager says of the session that a seat shows now.
struct ActiveSession {
    uid_t user = 0;
    std::string kind;  ///< "user", "greeter", "lock-screen" and so on
    std::string state; ///< "active", "online", "closing"
    bool isRemote = false;

    bool operator==(const ActiveSession&) const = default;
};

/// Nothing when nobody is logged in there.
[[nodiscard]] std::optional<ActiveSession> activeSession(const std::string& seat);

/// The user's own session, at the machine itself, and not on its way out. Neither a greeter's user nor root
/// is somebody else here.
[[nodiscard]] bool mayUse(uid_t user, const std::optional<ActiveSession>& session);

} // namespace quorvi::inputd
