// The root object of the plug-in.
#pragma once

#include <QObject>

#include "platform/PreferencePane.h"

namespace quorvi {

class PluginFactory : public QObject, public PreferencePaneFactory {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.kyvar.PreferencePaneFactory/1")
    Q_INTERFACES(quorvi::PreferencePaneFactory)

  public:
    std::unique_ptr<PreferencePane> createPane(const QString& bundlePath) override;
};

} // namespace quorvi
