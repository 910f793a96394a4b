// The numbers that identify the tables and their columns in the interface file.
#pragma once

namespace quorvi {

enum TableTag : int { kProfilesTable = 1, kMacrosTable = 2, kStepsTable = 3, kStagesTable = 4 };

enum TableColumnIdentifier : int {
    kProfileNumberColumn = 11,
    kProfileNameColumn = 12,
    kProfileApplicationColumn = 13,
    kProfileAutoswitchColumn = 14,
    kMacroNameColumn = 21,
    kStepActionColumn = 31,
    kStepDelayColumn = 32,
    kStageNumberColumn = 41,
    kStageResolutionColumn = 42
};

} // namespace quorvi
