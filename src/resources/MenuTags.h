// The items of the tables' context and gear menus, as their tags tell them apart.
#pragma once

namespace quorvi {

enum TableMenuItem : int {
    kNewProfileItem = 11,
    kImportProfileItem = 12,
    kExportProfileItem = 13,
    kRemoveProfileItem = 14,
    kDuplicateProfileItem = 15,
    kAssignApplicationItem = 16,
    kRemoveApplicationItem = 17,
    kRestoreDefaultsItem = 18,
    kNewMacroItem = 21,
    kImportMacroItem = 22,
    kExportMacroItem = 23,
    kRemoveMacroItem = 24,
    kRecordItem = 31,
    kRecordStepItem = 32,
    kRemoveStepItem = 33,
    kRemoveAllStepsItem = 34,
    kUseDelayForAllItem = 35,
    kRemoveAllDelaysItem = 36,
    // Above the codes of functions, which fit a byte.
    kMoveStepUpItem = 301,
    kMoveStepDownItem = 302,
    kCutStepItem = 303,
    kCopyStepItem = 304,
    kPasteStepsItem = 305,
    kDuplicateStepItem = 306
};

} // namespace quorvi
