// The device-wide settings as a tree and as a record.
#pragma once

#include "model/ConfigRecord.h"
#include "plist/Value.h"

namespace quorvi {

/// Fills the record, all of it. "independentxy" is ignored: it follows from the two codes. Returns false, and
/// writes nothing, if an argument is missing (nil, null).
[[nodiscard]] bool KyvarSettingsDictToStruct(const plist::Dictionary& settings, SettingsRecord* record);

/// A new dictionary, with "independentxy" added; nil when the record is missing (null).
[[nodiscard]] plist::Dictionary KyvarSettingsStructToDict(const SettingsRecord* record);

} // namespace quorvi
