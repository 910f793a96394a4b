#include "tools/HelperNews.h"

#include "model/Keys.h"
#include "model/Numbering.h"
#include "model/SettingsDocument.h"
#include "tools/HelperLink.h"

namespace quorvi::tools {

bool isFileOfThisUser(const std::filesystem::path& file) {
    std::error_code error;
    return std::filesystem::equivalent(file, userSettingsPath(homeFolder()), error);
}

void tellHelperOfSave(const plist::Dictionary& tree, const std::filesystem::path& file) {
    if (!isFileOfThisUser(file))
        return;
    const HelperLink link = connectToHelper();
    if (!link.fault.empty())
        return;
    const auto profile = indexOfNumber(tree.dictionary(keys::settings).integer(keys::profileId));
    (void)link.bus->send(link.helper, makeCommand(kMessageSettingsSaved, profile));
    link.bus->process();
}

} // namespace quorvi::tools
