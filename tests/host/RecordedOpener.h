// Records what the desktop would open.
#pragma once

#include <filesystem>
#include <string>

namespace quorvi::test {

/// Makes the folder with an "xdg-open" that adds what it is given to a file in the home folder of who calls
/// it. It takes the place of the real one where the folder comes first in $PATH.
void makeRecordedOpener(const std::filesystem::path& folder);

/// The addresses of documents and pages that were opened with that home folder, one a line.
[[nodiscard]] std::string openedWith(const std::filesystem::path& home);

} // namespace quorvi::test
