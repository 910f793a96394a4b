// A macro as a tree and as a header and a body of the record.
#pragma once

#include "model/ConfigRecord.h"
#include "plist/Value.h"

namespace quorvi {

/// Fills the header and the body, all of both; steps that find no room are left out (see StepCode.h). A macro
/// whose name is missing, no string or empty is named "?". False, with nothing written, only when an argument
/// is missing (nil, null).
[[nodiscard]] bool KyvarMacroDictToStruct(
    const plist::Dictionary& macro, MacroHeader* header, MacroBody* body);

/// A new dictionary; nil when an argument is missing (null) or the slot holds no macro: an identifier above
/// 69, a name of 0xFF bytes, or a length outside 1 to 178. A length below 50 gives a macro without steps.
[[nodiscard]] plist::Dictionary KyvarMacroStructToDict(const MacroHeader* header, const MacroBody* body);

} // namespace quorvi
