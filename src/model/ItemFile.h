// A single profile or macro as a property-list file of its own, to be carried to another machine or kept.
#pragma once

#include <filesystem>
#include <string>

#include "plist/Value.h"

namespace quorvi {

/// The profile in the file; nil when the file cannot be read, is no property list or holds no profile (see
/// KyvarValidateProfile).
[[nodiscard]] plist::Dictionary readProfileFile(const std::filesystem::path& path);

/// The macro in the file; nil when the file cannot be read, is no property list or holds no dictionary with a
/// name and steps. Nothing else is asked of a macro.
[[nodiscard]] plist::Dictionary readMacroFile(const std::filesystem::path& path);

/// Writes the profile or macro as it stands, in XML. False when there is none (nil), when it holds what a
/// property list cannot, and when the file cannot be replaced (see replaceFileAtomically).
[[nodiscard]] bool writeItemFile(const plist::Dictionary& item, const std::filesystem::path& path);

/// Appends the item under a name that no other item of the array has (see makeNameUnique); everything else
/// of it stays as it is.
void appendItem(const plist::Array& array, const plist::Dictionary& item, const std::u16string& defaultName);

} // namespace quorvi
