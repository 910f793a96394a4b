#include "editors/device/SupportPages.h"

#include <array>
#include <filesystem>

#include "platform/Bundle.h"
#include "platform/Workspace.h"

namespace quorvi {

namespace fs = std::filesystem;

namespace {

constexpr std::array kHelpPages{
    "buttons.html", "sensitivity.html", "profiles.html", "macros.html", "device.html"};
constexpr const char* kUpdatesPage = "https://www.kyvar.com/quorvi/support";

/// The file "<tab>.html" next to the index; the index if there is no such file. Each tab has its own file
/// because openers pass paths, not addresses with a "#".
std::string helpPageOfTab(const std::string& index, int tab) {
    if (tab < 0 || tab >= static_cast<int>(kHelpPages.size()))
        return index;
    fs::path page = fs::path(index).replace_filename(kHelpPages[static_cast<std::size_t>(tab)]);
    std::error_code error;
    return fs::is_regular_file(page, error) ? page.native() : index;
}

} // namespace

void openHelp(const Bundle& bundle, Workspace& workspace, int tab) {
    const auto index = bundle.pathForResource("index", "html", "Help");
    workspace.openFile(index ? QString::fromStdString(helpPageOfTab(*index, tab)) : QString());
}

void openUpdates(Workspace& workspace) {
    workspace.openUrl(QString::fromLatin1(kUpdatesPage));
}

} // namespace quorvi
