// The whole configuration as a tree and as the device's record.
#pragma once

#include "model/ConfigRecord.h"
#include "plist/Value.h"

namespace quorvi {

/// Fills the record, all of it. The first 12 macros and the first 5 profiles that convert are carried; one
/// that does not convert takes no slot. Slots that stay free are marked as empty.
///
/// False when an argument is missing (nil, null), when "settings" is missing, and when no profile converts;
/// the record then holds what was converted before the failure.
[[nodiscard]] bool KyvarConfigDictToStruct(const plist::Dictionary& tree, ConfigRecord* record);

/// A new tree of the written version with every non-empty profile, each with a new empty "driver" dictionary,
/// and every readable macro of the 70 slots; nil when the record is missing (null). Takes a record of any
/// content.
[[nodiscard]] plist::Dictionary KyvarConfigStructToDict(const ConfigRecord* record);

} // namespace quorvi
