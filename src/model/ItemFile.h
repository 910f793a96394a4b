// A single profile or macro as a property-list file of its own, to be carried to another machine or kept.
#pragma once

#include <filesystem>
#include <string>
#include <system_error>

#include "plist/Value.h"

namespace quorvi {

/// Why a file gives no item.
enum class ItemFault : std::uint8_t {
    none,
    notReadable, ///< missing, not permitted, or no regular file
    tooLarge,    ///< above limits::itemBytes, of which none is read then, or limits::itemValues
    damaged,     ///< no property list, or not a whole one
    otherItem,   ///< a property list without what is asked for
    tooManySteps ///< a macro of more than limits::macroSteps
};

struct ReadItem {
    plist::Dictionary item; ///< nil when there is a fault
    ItemFault fault = ItemFault::none;

    explicit operator bool() const { return static_cast<bool>(item); }
};

/// The profile in the file. What KyvarValidateProfile accepts is one.
[[nodiscard]] ReadItem readProfileFile(const std::filesystem::path& path);

/// The macro in the file: a dictionary with a name and steps, of any type. A macro is not cut to the steps
/// that there is room for, because the release of a key may be among the others.
[[nodiscard]] ReadItem readMacroFile(const std::filesystem::path& path);

/// Writes the profile or macro as it stands, in XML (see replaceFileAtomically). A link that another user has
/// put into a folder where everybody may, as /tmp is one, is not followed: permission_denied. No error when
/// all went well; invalid_argument without an item (nil), and for one that holds what a property list cannot.
[[nodiscard]] std::error_code writeItemFile(const plist::Dictionary& item, const std::filesystem::path& path);

/// Appends the item under a name that no other item of the array has (see makeNameUnique); everything else
/// of it stays as it is.
void appendItem(const plist::Array& array, const plist::Dictionary& item, const std::u16string& defaultName);

} // namespace quorvi
