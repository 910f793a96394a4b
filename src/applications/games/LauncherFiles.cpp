#include "applications/games/LauncherFiles.h"

#include <algorithm>

#include "plist/RegularFile.h"

namespace quorvi::games {

namespace fs = std::filesystem;

std::string textOfFile(const fs::path& file) {
    constexpr std::size_t largest = 16U << 20U;
    plist::Data bytes;
    if (plist::readRegularFile(file, largest, bytes) != plist::FileStatus::Ok)
        return {};
    return {bytes.begin(), bytes.end()};
}

fs::path firstThatExists(const std::vector<fs::path>& files) {
    const auto found = std::ranges::find_if(files, [](const fs::path& file) {
        std::error_code error;
        return fs::is_regular_file(file, error);
    });
    return found == files.end() ? fs::path() : *found;
}

std::vector<fs::path> filesNamed(const fs::path& folder, std::string_view start, std::string_view end) {
    std::vector<fs::path> files;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), last; !error && entry != last; entry.increment(error)) {
        const std::string name = entry->path().filename();
        if (name.starts_with(start) && name.ends_with(end))
            files.push_back(entry->path());
    }
    std::ranges::sort(files);
    return files;
}

std::string programOr(std::string_view path, std::string_view other) {
    const auto name = path.substr(path.find_last_of("/\\") + 1); // npos + 1 is 0
    return std::string(name.empty() ? other : name);
}

} // namespace quorvi::games
