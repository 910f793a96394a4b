// Who sits at the machine, as the log-in manager writes it down for sd-login.
#pragma once

#include <string>

#include <sys/types.h>

namespace quorvi::test {

constexpr uid_t kAnna = 1000; // tests/vm/image
constexpr uid_t kBerta = 1001;

struct SessionDescription {
    uid_t user = kAnna;
    std::string kind = "user";
    std::string state = "active";
    bool remote = false;
};

/// Shows that session on the first seat.
void showSession(const SessionDescription& session);
/// Nobody is logged in.
void showNobody();

} // namespace quorvi::test
