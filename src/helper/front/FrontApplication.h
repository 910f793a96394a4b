// The application in front, by everything that a profile may be bound to.
#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

namespace quorvi::front {

/// What is not known is empty.
struct FrontApplication {
    std::string shownName;   ///< in the user's language; the window's class where no entry is known
    std::string identifier;  ///< of its desktop entry, or of a game as the list of games gives it
    std::string name;        ///< of its desktop entry, without regard to the user's language
    std::string executable;  ///< the program that its desktop entry starts
    std::string windowClass; ///< as the window says it
    std::string windowName;
    /// Identifiers of the game that it is, as the list of games gives them.
    std::vector<std::string> games;
    /// File names of the program that runs, the most telling first: a script before its interpreter, a
    /// Windows program before what runs it.
    std::vector<std::string> programs;
    pid_t pid = 0;

    bool operator==(const FrontApplication&) const = default;
};

} // namespace quorvi::front
