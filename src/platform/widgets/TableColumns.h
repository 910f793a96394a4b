// The columns of the panel's four tables, in order from the left.
#pragma once

#include <array>
#include <span>

namespace quorvi {

struct TableColumn {
    int identifier;     ///< tells the columns of all tables apart: 11 to 42
    const char* title;  ///< English, a key of the string table; empty for a table without a header
    int widthInLetters; ///< at least, in average letters; 0 takes the room that is left
};

inline constexpr std::array profileColumns{
    TableColumn{11, "No.", 4},
    TableColumn{12, "Profile", 0},
    TableColumn{13, "Application", 0},
    TableColumn{14, "Switch Automatically", 12},
};
inline constexpr std::array macroColumns{TableColumn{21, "Macro", 0}};
inline constexpr std::array stepColumns{
    TableColumn{31, "Action", 0},
    TableColumn{32, "Delay Afterwards", 14},
};
inline constexpr std::array stageColumns{
    TableColumn{41, "No.", 4},
    TableColumn{42, "Sensitivity", 0},
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
