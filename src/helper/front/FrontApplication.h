// The application in front, with every property that a profile may be bound to.
#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

namespace quorvi::front {

/// Unknown parts are empty.
struct FrontApplication {
    std::string shownName;   ///< in the user's language; the window's class if there is no entry
    std::string identifier;  ///< of its desktop entry, or of a game in the list of games
    std::string name;        ///< of its desktop entry, not translated
    std::string executable;  ///< the program that its desktop entry starts
    std::string windowClass; ///< set by the window
    std::string windowName;
    /// The game's identifiers in the list of games.
    std::vector<std::string> games;
    /// File names of the running program, the most specific first: a script before its interpreter, a Windows
    /// program before its runner.
    std::vector<std::string> programs;
    pid_t pid = 0;

    bool operator==(const FrontApplication&) const = default;
};

} // namespace quorvi::front
