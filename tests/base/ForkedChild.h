// Runs an action in a child process, which may give up privileges or resources that the tests still need.
#pragma once

#include <csignal>
#include <cstdlib>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quorvi::test {

enum class Outcome { Failed, Succeeded, Broken };

/// Runs the preparation and then the action, and returns the action's result; Broken if the preparation fails
/// or the child dies.
template <typename Preparation, typename Action>
[[nodiscard]] Outcome inChild(Preparation prepare, Action act) {
    constexpr int preparationFailed = 2;
    const pid_t child = ::fork();
    if (child < 0)
        return Outcome::Broken;
    if (child == 0)
        ::_exit(!prepare() ? preparationFailed : act() ? 0 : 1);
    int status = 0;
    if (::waitpid(child, &status, 0) != child || !WIFEXITED(status))
        return Outcome::Broken;
    switch (WEXITSTATUS(status)) {
    case 0:
        return Outcome::Succeeded;
    case 1:
        return Outcome::Failed;
    default:
        return Outcome::Broken;
    }
}

/// Permissions do not bind root, so root becomes nobody.
[[nodiscard]] inline bool dropPrivileges() {
    constexpr uid_t nobody = 65534;
    return ::geteuid() != 0 || (::setgid(nobody) == 0 && ::setuid(nobody) == 0);
}

/// Files end after this many bytes, as on a full disk.
[[nodiscard]] inline bool limitFileSize(rlim_t bytes) {
    const struct rlimit limit = {bytes, bytes};
    return std::signal(SIGXFSZ, SIG_IGN) != SIG_ERR && ::setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

[[nodiscard]] inline bool unchanged() {
    return true;
}

} // namespace quorvi::test
