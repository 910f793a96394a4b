// Requirements of fuzz targets.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace quorvi::fuzz {

/// Ends the run and keeps the input if the requirement fails.
inline void require(bool holds, const char* what) {
    if (holds)
        return;
    std::fprintf(stderr, "broken: %s\n", what);
    std::abort();
}

} // namespace quorvi::fuzz
