// A profile as a tree and as a record with a name entry.
#pragma once

#include "model/ConfigRecord.h"
#include "plist/Value.h"

namespace quorvi {

/// Fills the record, all of it, and the name of the entry. "driver" is not looked at: the device has no use
/// for it.
///
/// False, with nothing written, when the profile or the record is missing (nil, null) or the number is
/// outside 1 to 5; with the record zeroed, when "buttons" or "stages" is missing or of another type; and with
/// the record filled, when the entry is missing (null) or the name is missing, no string or empty, because
/// the device shows a slot by its name.
///
/// Stages beyond the fifth are left out, and a default stage above the stage count is lowered to it. A stage
/// or an assignment that is no dictionary leaves its bytes zero.
[[nodiscard]] bool KyvarProfileDictToStruct(
    const plist::Dictionary& profile, int number, ProfileRecord* record, ProfileNameEntry* nameEntry);

/// A new dictionary that refers to the given driver dictionary; nil when an argument is missing (null, nil)
/// or the name marks the slot as empty. All nine buttons are there, unassigned ones as command 0. A stage
/// count above 5 counts as 5.
[[nodiscard]] plist::Dictionary KyvarProfileStructToDict(
    const ProfileRecord* record, const ProfileNameEntry* nameEntry, const plist::Dictionary& driver);

/// Marks a slot as empty: zeroes the record but for its number, and fills the name with 0xFF.
void clearProfileSlot(int number, ProfileRecord& record, ProfileNameEntry& nameEntry);

} // namespace quorvi
