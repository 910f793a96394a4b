// Who may use the mice of a seat: the user who sits there.
#pragma once

#include <optional>
#include <string>

#include <sys/types.h>

namespace quorvi::inputd {

/// The login manager's description of a seat's active session.
struct ActiveSession {
    uid_t user = 0;
    std::string kind;  ///< "user", "greeter", "lock-screen" and so on
    std::string state; ///< "active", "online", "closing"
    bool isRemote = false;

    bool operator==(const ActiveSession&) const = default;
};

/// std::nullopt if no user is logged in there.
[[nodiscard]] std::optional<ActiveSession> activeSession(const std::string& seat);

/// Whether the session is the user's own, local and not closing. A greeter's user and root get no exception.
[[nodiscard]] bool mayUse(uid_t user, const std::optional<ActiveSession>& session);

} // namespace quorvi::inputd
