// Storage for a list of the applications launched at login. The rules of LoginItems.h use only this
// interface, so they are the same for every list.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "base/Status.h"

namespace quorvi {

/// One element of the list.
struct LoginItem {
    /// The application bundle's path, in UTF-8. std::nullopt for an element that is unreadable or has no
    /// application; such an element never matches, and is kept.
    std::optional<std::string> path;
    bool hide = false; ///< launch hidden
    /// The index of this element in the list last read; std::nullopt for an appended one.
    std::optional<std::size_t> origin;
    /// true: path and hide must be written. false: the element at `origin` stays, byte for byte if the store
    /// can.
    bool changed = false;
};

using LoginItems = std::vector<LoginItem>;

/// The purpose of reading: a missing list can be added to, but not removed from.
enum class LoginItemAccess { Add, Remove };

class LoginItemStore {
  public:
    virtual ~LoginItemStore() = default;

    /// Reads the list in its order, every element unchanged and with its index as origin.
    ///
    /// Returns noErr; fnfErr if the list's place cannot be reached; resNotFound if the list cannot be read,
    /// has another shape, or (for Remove) is missing; else the status of the failed file-system call. Sets
    /// `items` only on noErr.
    [[nodiscard]] virtual Status read(LoginItemAccess access, LoginItems& items) = 0;

    /// Writes back the list last read, with elements removed, changed and appended. Call this once for each
    /// read.
    ///
    /// Returns noErr; memFullErr if an element or the data cannot be created, without having written
    /// anything; else the status of the failed file-system call, never memFullErr.
    [[nodiscard]] virtual Status write(const LoginItems& items) = 0;
};

} // namespace quorvi
