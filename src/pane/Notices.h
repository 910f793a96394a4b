// What the bar at the window's foot tells, the most important first.
#pragma once

namespace quorvi {

/// Each kind is told in one text at a time; a new one takes the place of the old one. An earlier kind stands
/// before a later one.
enum class Notice {
    saveFailed, ///< changes that no file has; until a save succeeds
    helperGone, ///< the background program does not run; until it does
    keptCopy,   ///< where another program's settings, or ones that could not be read, were kept
    outcome,    ///< what came of an import, an export or the like; until the next one
};

} // namespace quorvi
