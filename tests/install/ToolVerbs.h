// quorvictl's verbs, according to itself.
#pragma once

#include <sstream>

#include "install/Installed.h"

namespace quorvi::test {

[[nodiscard]] inline std::set<std::string> toolVerbs() {
    std::istringstream lines(runProgram({QUORVI_QUORVICTL, "--help"}).output);
    std::set<std::string> verbs;
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line.substr(line.find("quorvictl")));
        std::string program;
        std::string verb;
        words >> program >> verb;
        verbs.insert(verb);
    }
    return verbs;
}

} // namespace quorvi::test
