#include <cstdio>

#include "tools/Verbs.h"

int main(int argc, char** argv) {
    using namespace quorvi::tools;
    Outcome outcome = run(Arguments(argv + (argc > 0 ? 1 : 0), argv + argc));
    if (std::fflush(stdout) != 0 && outcome.exitCode == kDone)
        outcome = refused("the output cannot be written");
    if (!outcome.reason.empty())
        std::fprintf(stderr, "quorvictl: %s\n", outcome.reason.c_str());
    if (outcome.exitCode == kMisused)
        std::fputs(usage().c_str(), stderr);
    return outcome.exitCode;
}
