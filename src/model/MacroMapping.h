// A macro as a tree and as a header and a body of the record.
#pragma once

#include "model/ConfigRecord.h"
#include "plist/Value.h"

namespace quorvi {

/// Fills the header and the body, all of both; steps that do not fit are left out (see StepCode.h). A macro
/// whose name is missing, empty or not a string is named "?". Returns false, and writes nothing, only if an
/// argument is missing (nil, null).
[[nodiscard]] bool KyvarMacroDictToStruct(
    const plist::Dictionary& macro, MacroHeader* header, MacroBody* body);

/// A new dictionary; nil if an argument is missing (null) or the slot does not hold a macro: an identifier
/// above 69, a name of 0xFF bytes, or a length outside 1 to 178. A length below 50 yields a macro without
/// steps.
[[nodiscard]] plist::Dictionary KyvarMacroStructToDict(const MacroHeader* header, const MacroBody* body);

} // namespace quorvi
