#include "tools/HelperNews.h"

#include "model/Keys.h"
#include "model/Numbering.h"
#include "model/SettingsDocument.h"
#include "platform/events/EventBus.h"

namespace quorvi::tools {

namespace {

constexpr std::chrono::milliseconds kConnectTimeout{250};

/// Also by another name, through a link for instance.
bool isFileOfThisUser(const std::filesystem::path& file) {
    std::error_code error;
    return std::filesystem::equivalent(file, userSettingsPath(homeFolder()), error);
}

} // namespace

void tellHelperOfSave(const plist::Dictionary& tree, const std::filesystem::path& file) {
    if (!isFileOfThisUser(file))
        return;
    const auto bus = EventBus::connect(kConnectTimeout);
    ProcessSerialNumber helper;
    if (!bus || bus->findProcessByName("KyvarQuorviHelper", &helper) != noErr)
        return;
    const auto profile = indexOfNumber(tree.dictionary(keys::settings).integer(keys::profileId));
    (void)bus->send(helper, makeCommand(kMessageSettingsSaved, profile));
    bus->process();
}

} // namespace quorvi::tools
