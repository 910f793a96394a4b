#include "proof/SaveWitness.h"

#include <cerrno>

namespace quorvi::test {

int SaveWitness::renameat(int folder, const char* from, const char* to) {
    if (failing > 0) {
        --failing;
        errno = ENOSPC;
        return -1;
    }
    const int result = FileCalls::renameat(folder, from, to);
    if (result == 0)
        saved();
    return result;
}

int SaveWitness::fsync(int /*file*/) {
    return 0;
}

} // namespace quorvi::test
