// The panel in KDE's System Settings.
#pragma once

#include <KCModule>
#include <kcoreaddons_version.h>

#if KCOREADDONS_VERSION_MAJOR >= 6
#include <KPluginMetaData>
#endif

namespace quorvi {

// A module is a widget up to Frameworks 5 and has one since Frameworks 6.
#if KCOREADDONS_VERSION_MAJOR >= 6
using ModuleParent = QObject;
using ModuleArguments = KPluginMetaData;
#else
using ModuleParent = QWidget;
using ModuleArguments = QVariantList;
#endif

/// Shows the bundle that is installed with it. It has nothing to apply or to reset: the panel saves what is
/// set at once, and brings its own help.
class SettingsModule : public KCModule {
    Q_OBJECT

  public:
    SettingsModule(ModuleParent* parent, const ModuleArguments& arguments);
};

} // namespace quorvi
