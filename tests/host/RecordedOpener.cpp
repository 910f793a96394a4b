#include "host/RecordedOpener.h"

#include "support/Files.h"

namespace quorvi::test {

namespace fs = std::filesystem;

void makeRecordedOpener(const fs::path& folder) {
    fs::create_directory(folder);
    writeFile(folder / "xdg-open", "#!/bin/sh\necho \"$1\" >>\"$HOME/opened\"\n");
    fs::permissions(folder / "xdg-open", fs::perms::owner_all);
}

std::string openedWith(const fs::path& home) {
    const fs::path list = home / "opened";
    return fs::exists(list) ? readFile(list) : "";
}

} // namespace quorvi::test
