// The items of the tables' context and gear menus, identified by tags.
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
    kDuplicateStepItem = 306,
    kMultiplyDelaysItem = 307,
    kInsertTextItem = 308,
    // Insertions before the selected steps, and in the same order those after them.
    kInsertBeforeItems = 320,
    kRecordBeforeItem = kInsertBeforeItems,
    kKeyBeforeItem = 321,
    kPauseBeforeItem = 322,
    kButton1BeforeItem = 323, ///< followed by the other four
    kInsertAfterItems = 330
};

} // namespace quorvi
