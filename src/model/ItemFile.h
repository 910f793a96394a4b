// A single profile or macro as its own property-list file, for another machine or as a backup.
#pragma once

#include <filesystem>
#include <string>
#include <system_error>

#include "plist/Value.h"

namespace quorvi {

/// Why an item cannot be read from a file.
enum class ItemFault : std::uint8_t {
    none,
    notReadable, ///< missing, not permitted, or not a regular file
    tooLarge,    ///< above limits::itemBytes (then nothing is read) or limits::itemValues
    damaged,     ///< not a complete property list
    otherItem,   ///< a property list without the requested kind of item
    tooManySteps ///< a macro of more than limits::macroSteps
};

struct ReadItem {
    plist::Dictionary item; ///< nil if there is a fault
    ItemFault fault = ItemFault::none;

    explicit operator bool() const { return static_cast<bool>(item); }
};

/// Reads a profile: any dictionary that KyvarValidateProfile accepts.
[[nodiscard]] ReadItem readProfileFile(const std::filesystem::path& path);

/// Reads a macro: a dictionary with a name and steps, of any type. A macro with too many steps is refused,
/// not cut, because the release of a key may be among the cut steps.
[[nodiscard]] ReadItem readMacroFile(const std::filesystem::path& path);

/// Writes the profile or macro unchanged, in XML (see replaceFileAtomically). Returns permission_denied for
/// another user's link in a folder that everybody may write to, such as /tmp, and invalid_argument for a
/// missing item (nil) and for one that a property list cannot hold.
[[nodiscard]] std::error_code writeItemFile(const plist::Dictionary& item, const std::filesystem::path& path);

/// Appends the item under a name that no other item of the array has (see makeNameUnique); the rest of it
/// stays unchanged.
void appendItem(const plist::Array& array, const plist::Dictionary& item, const std::u16string& defaultName);

} // namespace quorvi
