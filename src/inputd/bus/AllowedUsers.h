// The users whom an administrator has let use input devices, so that each is asked for once.
#pragma once

#include <set>
#include <string>

#include <sys/types.h>

namespace quorvi::inputd {

class AllowedUsers {
  public:
    /// Kept in the folder's file "users", a number on each line. Without a folder they are kept as long as
    /// the object.
    explicit AllowedUsers(const std::string& folder);

    [[nodiscard]] bool contains(uid_t user) const { return m_users.contains(user); }
    /// False when it could not be written down; it counts until the service ends then.
    bool add(uid_t user);

  private:
    std::string m_file;
    std::set<uid_t> m_users;
};

} // namespace quorvi::inputd
