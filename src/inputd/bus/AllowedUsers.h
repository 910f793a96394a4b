// The users whom an administrator has allowed to use input devices, remembered so that each needs approval
// only once.
#pragma once

#include <set>
#include <string>

#include <sys/types.h>

namespace quorvi::inputd {

class AllowedUsers {
  public:
    /// Stores them in the folder's file "users", one number a line; without a folder, only in memory.
    explicit AllowedUsers(const std::string& folder);

    [[nodiscard]] bool contains(uid_t user) const { return m_users.contains(user); }
    /// Returns false if the user could not be stored; the permission then lasts until the service ends.
    bool add(uid_t user);

  private:
    std::string m_file;
    std::set<uid_t> m_users;
};

} // namespace quorvi::inputd
