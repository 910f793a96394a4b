// The panel in KDE's System Settings.
#pragma once

#include <KCModule>
#include <kcoreaddons_version.h>

#if KCOREADDONS_VERSION_MAJOR >= 6
#include <KPluginMetaData>
#endif

namespace quorvi {

// A module is a widget up to Frameworks 5, and owns one since Frameworks 6.
#if KCOREADDONS_VERSION_MAJOR >= 6
using ModuleParent = QObject;
using ModuleArguments = KPluginMetaData;
#else
using ModuleParent = QWidget;
using ModuleArguments = QVariantList;
#endif

/// Shows the bundle installed with it. It has no Apply, Reset or Help button: the panel saves every change at
/// once, and has its own help.
class SettingsModule : public KCModule {
    Q_OBJECT

  public:
    SettingsModule(ModuleParent* parent, const ModuleArguments& arguments);
};

} // namespace quorvi
