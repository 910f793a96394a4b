// The device-wide settings as a tree and as a record.
#pragma once

#include "model/ConfigRecord.h"
#include "plist/Value.h"

namespace quorvi {

/// Fills the record, all of it. "independentxy" is not looked at: the two codes say it.
/// False, with nothing written, when an argument is missing (nil, null).
[[nodiscard]] bool KyvarSettingsDictToStruct(const plist::Dictionary& settings, SettingsRecord* record);

/// A new dictionary, with "independentxy" added; nil when the record is missing (null).
[[nodiscard]] plist::Dictionary KyvarSettingsStructToDict(const SettingsRecord* record);

} // namespace quorvi
