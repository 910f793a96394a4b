#include "proof/SaveWitness.h"

#include <cerrno>
#include <string_view>

namespace quorvi::test {

int SaveWitness::renameat(int folder, const char* from, const char* to) {
    if (failing > 0) {
        --failing;
        errno = ENOSPC;
        return -1;
    }
    const int result = FileCalls::renameat(folder, from, to);
    // Copies of what others have set are kept beside the settings file.
    if (result == 0 && std::string_view(to).find(".kept-") == std::string_view::npos)
        saved();
    return result;
}

int SaveWitness::fsync(int /*file*/) {
    return 0;
}

} // namespace quorvi::test
