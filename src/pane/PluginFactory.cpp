#include "pane/PluginFactory.h"

#include "history/History.h"
#include "loginitems/AutostartLoginItemStore.h"
#include "loginitems/UserFolders.h"
#include "model/SettingsDocument.h"
#include "pane/KyvarQuorviPane.h"

namespace quorvi {

namespace {

/// The helper's program, for the autostart entry: the entry itself names the application by its bundle.
std::string executableOf(const std::string& applicationPath) {
    return Bundle(applicationPath).executablePath();
}

} // namespace

std::unique_ptr<PreferencePane> PluginFactory::createPane(const QString& bundlePath) {
    return std::make_unique<KyvarQuorviPane>(PaneServices{
        .bundle = Bundle(bundlePath.toStdString()),
        .homeFolder = homeFolder(),
        .historyFolder = historyFolder(homeFolder()),
        .bus = EventBus::connect(),
        .workspace = std::make_unique<DesktopWorkspace>(),
        .loginItems =
            std::make_unique<AutostartLoginItemStore>(userAutostartFolder().value_or(""), executableOf),
        .watchKeyboardLayout =
            [] { return std::make_unique<KeyboardLayoutWatcher>(keyboardLayoutOfQtPlatform()); },
    });
}

} // namespace quorvi
