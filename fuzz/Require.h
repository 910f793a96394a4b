// What a fuzz target asks of the code that it calls.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace quorvi::fuzz {

/// Ends the run, with the input kept, when what must hold does not.
inline void require(bool holds, const char* what) {
    if (holds)
        return;
    std::fprintf(stderr, "broken: %s\n", what);
    std::abort();
}

} // namespace quorvi::fuzz
