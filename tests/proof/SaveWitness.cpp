#include "proof/SaveWitness.h"

#include <cerrno>
#include <cstdio>
#include <string_view>

#include <sys/stat.h>

namespace quorvi::test {

bool SaveWitness::isFull() {
    if (failing <= 0)
        return false;
    --failing;
    errno = ENOSPC;
    return true;
}

int SaveWitness::renameat(int folder, const char* from, const char* to) {
    return isFull() ? -1 : FileCalls::renameat(folder, from, to);
}

int SaveWitness::renameat2(int folder, const char* from, const char* to, unsigned flags) {
    if (isFull())
        return -1;
    // Copies of what others have set are kept beside the settings file.
    const bool places = std::string_view(to).find(".kept-") == std::string_view::npos;
    const bool disturbed = places && (flags & RENAME_EXCHANGE) != 0 && beforeExchange();
    const int result = FileCalls::renameat2(folder, from, to, flags);
    if (result == 0 && places && !disturbed)
        saved();
    return result;
}

int SaveWitness::fsync(int file) {
    struct stat status {};
    if (::fstat(file, &status) == 0 && S_ISREG(status.st_mode))
        amidSave();
    return 0;
}

} // namespace quorvi::test
