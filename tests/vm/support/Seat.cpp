#include "vm/support/Seat.h"

#include <filesystem>
#include <fstream>

namespace quorvi::test {

namespace {

/// As the log-in manager does: whoever looks finds the old text or the new one.
void replaceFile(const std::string& path, const std::string& text) {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    {
        std::ofstream file(path + ".new");
        file << text;
    }
    std::filesystem::rename(path + ".new", path);
}

} // namespace

void showSession(const SessionDescription& session) {
    const auto user = std::to_string(session.user);
    const auto id = "s" + user;
    replaceFile("/run/systemd/users/" + user, "STATE=active\n");
    replaceFile("/run/systemd/sessions/" + id,
        "UID=" + user + "\nACTIVE=1\nSTATE=" + session.state + "\nREMOTE=" + (session.remote ? "1" : "0") +
            "\nCLASS=" + session.kind + "\nTYPE=wayland\nSEAT=seat0\n");
    replaceFile("/run/systemd/seats/seat0",
        "IS_SEAT0=1\nACTIVE=" + id + "\nACTIVE_UID=" + user + "\nSESSIONS=" + id + "\n");
}

void showNobody() {
    replaceFile("/run/systemd/seats/seat0", "IS_SEAT0=1\n");
}

} // namespace quorvi::test
