#include "host/WindowState.h"

#include <cstdlib>
#include <fstream>
#include <system_error>

namespace quorvi {

namespace {

/// No screen is larger; a window of such a size would not be seen whole on any.
constexpr int kLargest = 32767;

bool isSize(int length) {
    return length > 0 && length <= kLargest;
}

} // namespace

std::filesystem::path windowStateFile() {
    const std::filesystem::path inKyvarFolder = std::filesystem::path("kyvar-quorvi") / "window";
    const char* state = std::getenv("XDG_STATE_HOME");
    if (state && std::filesystem::path(state).is_absolute())
        return state / inKyvarFolder;
    const char* home = std::getenv("HOME");
    if (home && std::filesystem::path(home).is_absolute())
        return std::filesystem::path(home) / ".local" / "state" / inKyvarFolder;
    return {};
}

std::optional<WindowState> keptWindowState(const std::filesystem::path& file) {
    std::error_code error;
    if (file.empty() || !std::filesystem::is_regular_file(file, error)) // a pipe would have us wait
        return std::nullopt;
    std::ifstream text(file);
    int width = 0;
    int height = 0;
    int tab = 0;
    if (!(text >> width >> height >> tab) || !isSize(width) || !isSize(height) || tab < 0)
        return std::nullopt;
    return WindowState{.size = {width, height}, .tab = tab};
}

void keepWindowState(const std::filesystem::path& file, const WindowState& state) {
    if (file.empty())
        return;
    std::error_code error;
    std::filesystem::create_directories(file.parent_path(), error);
    std::ofstream(file, std::ios::trunc)
        << state.size.width() << ' ' << state.size.height() << ' ' << state.tab << '\n';
}

} // namespace quorvi
