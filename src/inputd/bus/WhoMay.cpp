#include "inputd/bus/WhoMay.h"

#include <cstdlib>

#include <systemd/sd-login.h>

namespace quorvi::inputd {

namespace {

/// Takes ownership of a text returned by sd-login; empty if the call failed.
std::string taken(int result, char* text) {
    std::string copy = result >= 0 && text ? text : "";
    std::free(text); // NOLINT(cppcoreguidelines-no-malloc): it is malloc's
    return copy;
}

} // namespace

std::optional<ActiveSession> activeSession(const std::string& seat) {
    ActiveSession active;
    char* text = nullptr;
    int result = sd_seat_get_active(seat.c_str(), &text, &active.user);
    const auto session = taken(result, text);
    if (session.empty())
        return {};
    text = nullptr;
    result = sd_session_get_class(session.c_str(), &text);
    active.kind = taken(result, text);
    text = nullptr;
    result = sd_session_get_state(session.c_str(), &text);
    active.state = taken(result, text);
    // An error counts as remote.
    active.isRemote = sd_session_is_remote(session.c_str()) != 0;
    return active;
}

bool mayUse(uid_t user, const std::optional<ActiveSession>& session) {
    return session && session->user == user && session->kind == "user" && session->state == "active" &&
           !session->isRemote;
}

} // namespace quorvi::inputd
