// The applications launched at log-in: adding one, and removing those that a name stands for.
//
// An argument that may be missing is a std::optional, and std::nullopt is the missing one. (An empty text is
// there, and stands for no application.) Paths and suffixes are UTF-8; texts are compared code point by code
// point. At most 16 matching elements are collected in a pass; what follows them is not looked at.
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
/// An element matches when its path equals `path` without regard to case (an exact match), or ends with the
/// application's name (the last component of `path`, a closing slash included), or ends with `secondSuffix`.
/// When the only match is an exact one, nothing is changed, the element's hiding included. Otherwise, with an
/// exact match or with `replace`, the new element takes the place of the first match and the other matches
/// go; else it is appended.
///
/// `alreadyRegistered`, when given, receives whether there was an exact match, as soon as that is known.
///
/// Returns paramErr without a path, ioErr when it names no application (empty, or not UTF-8), the statuses of
/// LoginItemStore::read, and memFullErr when the new list cannot be made; the list is then as it was. Whether
/// the file system took the new list is not looked at: that the application is not started at the next log-in
/// is no reason to refuse it now.
Status AddLoginItem(LoginItemStore& store, std::optional<std::string_view> path,
    std::optional<std::string_view> secondSuffix, bool hide, bool replace, bool* alreadyRegistered);

/// Removes the elements whose path ends with `nameSuffix`. Without a match nothing is written.
///
/// `removed`, when given, receives their number, 0 on every failure.
///
/// Returns paramErr without a suffix, else the statuses of LoginItemStore::read and write.
Status RemoveLoginItem(
    LoginItemStore& store, std::optional<std::string_view> nameSuffix, std::int16_t* removed);

/// The same on the lists of the user who runs this: the desktop's, in which the panel registers its helper,
/// and the property list in the Preferences folder. `removed` counts both. A list that is not there does not
/// count beside the other; fnfErr when the user has no home folder.
Status RemoveLoginItem(std::optional<std::string_view> nameSuffix, std::int16_t* removed);

/// The same on the lists of the user with that home folder; pathTooLongErr when the folder's path has more
/// than 1,000 bytes. The desktop's list is looked for where it is unless that user has set another place.
Status RemoveLoginItemForUser(std::optional<std::string_view> homeFolder,
    std::optional<std::string_view> nameSuffix, std::int16_t* removed);

/// The same on the property-list file in that Preferences folder.
Status RemoveLoginItemInFolder(std::optional<std::string_view> preferencesFolder,
    std::optional<std::string_view> nameSuffix, std::int16_t* removed);

} // namespace quorvi
