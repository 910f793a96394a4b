#include "tools/EarlierSettings.h"

#include <cstdio>
#include <system_error>

#include "model/ConfigFileStore.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "model/SettingsDocument.h"
#include "tools/HelperNews.h"
#include "tools/Input.h"

namespace quorvi::tools {

History userHistory() {
    return History(historyFolder(homeFolder()));
}

void keepCopyBefore(const std::filesystem::path& settings, CopyReason reason) {
    if (!isFileOfThisUser(settings))
        return;
    History history = userHistory();
    const auto now = std::chrono::system_clock::now();
    if (reason == CopyReason::firstChangeOfDay && !history.isDue(now))
        return;
    const auto tree = storedTree(keys::storage, settings);
    if (!KyvarValidateConfig(tree, limits::minimumVersion))
        return;
    const int error = history.keep(tree, reason, now);
    if (error == 0)
        return;
    const std::string why = "no copy of the earlier settings was kept: ";
    const std::string fault =
        faultOf(historyFolder(homeFolder()), why + std::generic_category().message(error));
    std::fprintf(stderr, "quorvictl: %s\n", fault.c_str());
}

} // namespace quorvi::tools
