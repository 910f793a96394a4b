// The whole configuration as a tree and as the device's record.
#pragma once

#include "model/ConfigRecord.h"
#include "plist/Value.h"

namespace quorvi {

/// Fills the record, all of it. Stores the first 12 macros and the first 5 profiles that convert; one that
/// does not convert takes no slot. Marks free slots as empty.
///
/// Returns false if an argument is missing (nil, null), if "settings" is missing, or if no profile converts;
/// the record then holds the parts converted before the failure.
[[nodiscard]] bool KyvarConfigDictToStruct(const plist::Dictionary& tree, ConfigRecord* record);

/// A new tree of the written version with every non-empty profile, each with a new empty "driver" dictionary,
/// and every readable macro of the 70 slots; nil if the record is missing (null). Accepts a record with any
/// content.
[[nodiscard]] plist::Dictionary KyvarConfigStructToDict(const ConfigRecord* record);

} // namespace quorvi
