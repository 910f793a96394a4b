#include "pane/HelpPages.h"

#include <array>
#include <filesystem>

namespace quorvi {

namespace fs = std::filesystem;

namespace {

constexpr std::array pages{"buttons.html", "sensitivity.html", "profiles.html", "macros.html", "device.html"};

} // namespace

std::string helpPageOfTab(const std::string& index, int tab) {
    if (tab < 0 || tab >= static_cast<int>(pages.size()))
        return index;
    fs::path page = fs::path(index).replace_filename(pages[static_cast<std::size_t>(tab)]);
    std::error_code error;
    return fs::is_regular_file(page, error) ? page.native() : index;
}

} // namespace quorvi
