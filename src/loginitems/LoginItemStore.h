// Where a list of the applications launched at log-in is kept. The rules of LoginItems.h know a list only
// through this interface, so that they are the same wherever the list lies.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "base/Status.h"

namespace quorvi {

/// One element of the list.
struct LoginItem {
    /// The application bundle's path, in UTF-8. Nothing for an element that is unreadable or names no
    /// application; such an element is never a match, and is kept.
    std::optional<std::string> path;
    bool hide = false; ///< launch hidden
    /// Which element of the list last read stands here (its index then); nothing for an appended one.
    std::optional<std::size_t> origin;
    /// Path and hide are to be written here. Unset, the element at `origin` stays, byte for byte where the
    /// store can.
    bool changed = false;
};

using LoginItems = std::vector<LoginItem>;

/// What a list is read for: a list that is not there yet can be added to, but nothing removed from it.
enum class LoginItemAccess { Add, Remove };

class LoginItemStore {
  public:
    virtual ~LoginItemStore() = default;

    /// Reads the list in its order, every element unchanged and with its index as origin.
    ///
    /// Returns noErr; fnfErr when the list's place cannot be reached; resNotFound when the list cannot be
    /// read, has another shape, or (for Remove) is missing; else the status of the file-system call that
    /// failed. `items` is set on noErr only.
    [[nodiscard]] virtual Status read(LoginItemAccess access, LoginItems& items) = 0;

    /// Writes back a list made from what was last read: elements may be left out, changed and appended. Once
    /// for each read.
    ///
    /// Returns noErr; memFullErr when an element or the data to write cannot be made, in which case nothing
    /// was touched; else the status of the file-system call that failed, never memFullErr.
    [[nodiscard]] virtual Status write(const LoginItems& items) = 0;
};

} // namespace quorvi
