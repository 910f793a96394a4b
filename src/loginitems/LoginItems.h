// The applications launched at login: adds one, and removes those that match a name.
//
// std::nullopt stands for a missing argument. (An empty text is not missing, but matches no application.)
// Paths and suffixes are UTF-8; texts are compared code point by code point. At most 16 matching elements are
// collected in a pass; later ones are ignored.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/Status.h"
#include "loginitems/LoginItemStore.h"

namespace quorvi {

/// Puts the application bundle at `path` on the list.
///
/// An element matches if its path equals `path`, ignoring case (an exact match), or ends with the
/// application's name (the last component of `path`, including a closing slash), or ends with `secondSuffix`.
/// If the only match is exact, nothing changes, not even `hide`. Otherwise, with an exact match or with
/// `replace`, the new element replaces the first match and the other matches are removed; else it is
/// appended.
///
/// `alreadyRegistered`, if not null, receives whether there was an exact match, as soon as that is known.
///
/// Returns paramErr without a path, ioErr for an invalid one (empty, or not UTF-8), the statuses of
/// LoginItemStore::read, and memFullErr if the new list cannot be created; the list then stays unchanged.
/// Ignores errors in writing the new list: a missing start at the next login is no reason to refuse the
/// application now.
Status AddLoginItem(LoginItemStore& store, std::optional<std::string_view> path,
    std::optional<std::string_view> secondSuffix, bool hide, bool replace, bool* alreadyRegistered);

/// Removes the elements whose path ends with `nameSuffix`. Writes nothing without a match.
///
/// `removed`, if not null, receives their number, 0 on every failure.
///
/// Returns paramErr without a suffix, else the statuses of LoginItemStore::read and write.
Status RemoveLoginItem(
    LoginItemStore& store, std::optional<std::string_view> nameSuffix, std::int16_t* removed);

/// The same for the current user's lists: the desktop's, in which the panel registers its helper, and the
/// property list in the Preferences folder. `removed` counts both. A missing list is ignored if the other
/// exists; returns fnfErr if the user has no home folder.
Status RemoveLoginItem(std::optional<std::string_view> nameSuffix, std::int16_t* removed);

/// The same for the user with that home folder; returns pathTooLongErr if its path has more than 1,000 bytes.
/// Uses the default place of the desktop's list.
Status RemoveLoginItemForUser(std::optional<std::string_view> homeFolder,
    std::optional<std::string_view> nameSuffix, std::int16_t* removed);

/// The same for the property-list file in that Preferences folder.
Status RemoveLoginItemInFolder(std::optional<std::string_view> preferencesFolder,
    std::optional<std::string_view> nameSuffix, std::int16_t* removed);

} // namespace quorvi
