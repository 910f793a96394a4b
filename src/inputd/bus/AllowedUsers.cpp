#include "inputd/bus/AllowedUsers.h"

#include <cstdio>
#include <fstream>

namespace quorvi::inputd {

AllowedUsers::AllowedUsers(const std::string& folder) : m_file(folder.empty() ? "" : folder + "/users") {
    std::ifstream file(m_file);
    for (uid_t user = 0; file >> user;)
        m_users.insert(user);
}

bool AllowedUsers::add(uid_t user) {
    m_users.insert(user);
    if (m_file.empty())
        return false;
    // The file has the old list or the new one; after a power failure a lost user needs approval again.
    const auto fresh = m_file + ".new";
    std::ofstream file(fresh);
    for (const auto each : m_users)
        file << each << '\n';
    file.close();
    return file.good() && std::rename(fresh.c_str(), m_file.c_str()) == 0;
}

} // namespace quorvi::inputd
