// A profile as a tree and as a record with a name entry.
#pragma once

#include "model/ConfigRecord.h"
#include "plist/Value.h"

namespace quorvi {

/// Fills the record, all of it, and the name of the entry. "driver" is ignored: the device does not use it.
///
/// Returns false in three cases. Nothing is written if the profile or the record is missing (nil, null) or
/// the number is outside 1 to 5. The record is zeroed if "buttons" or "stages" is missing or has another
/// type. The record is filled if the entry is missing (null) or the name is missing, empty or not a string,
/// because the device shows a slot by its name.
///
/// Stages beyond the fifth are left out, and a default stage above the stage count is lowered to it. The
/// bytes of a stage or an assignment that is not a dictionary stay zero.
[[nodiscard]] bool KyvarProfileDictToStruct(
    const plist::Dictionary& profile, int number, ProfileRecord* record, ProfileNameEntry* nameEntry);

/// A new dictionary that refers to the given driver dictionary; nil when an argument is missing (null, nil)
/// or the name marks the slot as empty. It has all nine buttons, unassigned ones as command 0. A stage count
/// above 5 counts as 5.
[[nodiscard]] plist::Dictionary KyvarProfileStructToDict(
    const ProfileRecord* record, const ProfileNameEntry* nameEntry, const plist::Dictionary& driver);

/// Marks a slot as empty: zeroes the record except its number, and fills the name with 0xFF.
void clearProfileSlot(int number, ProfileRecord& record, ProfileNameEntry& nameEntry);

} // namespace quorvi
