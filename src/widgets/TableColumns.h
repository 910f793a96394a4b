// The columns of the panel's four tables, in order from the left.
#pragma once

#include <array>
#include <span>

namespace quorvi {

struct TableColumn {
    int identifier;     ///< unique over all tables: 11 to 42
    const char* title;  ///< English, a key of the string table; empty for a table without a header
    int widthInLetters; ///< minimum, in average letters; 0 takes the remaining room
    /// English, explains the title's terms; empty if it needs no explanation.
    const char* explanation = "";
};

inline constexpr std::array profileColumns{
    TableColumn{11, "No.", 6}, // may have a mark next to it
    TableColumn{12, "Profile", 0},
    TableColumn{13, "Application", 0},
    TableColumn{14, "Switch Automatically", 12,
        "A profile that switches automatically is in use while its application is in front."},
};
inline constexpr std::array macroColumns{TableColumn{21, "Macro", 0}};
inline constexpr std::array stepColumns{
    TableColumn{31, "Action", 0},
    TableColumn{32, "Delay After", 16, "How long the mouse waits before the next step."},
};
inline constexpr std::array stageColumns{
    TableColumn{41, "No.", 4},
    TableColumn{42, "Sensitivity", 0,
        "Dots per inch: how many steps the mouse counts over one inch. The more steps, the further the "
        "pointer moves."},
};

/// The columns of the table with the tag (1 profiles, 2 macros, 3 steps, 4 stages); none for another tag.
[[nodiscard]] constexpr std::span<const TableColumn> tableColumns(int tableTag) {
    switch (tableTag) {
    case 1:
        return profileColumns;
    case 2:
        return macroColumns;
    case 3:
        return stepColumns;
    case 4:
        return stageColumns;
    default:
        return {};
    }
}

} // namespace quorvi
