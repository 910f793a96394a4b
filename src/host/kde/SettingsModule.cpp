#include "host/kde/SettingsModule.h"

#include <KPluginFactory>
#include <QFileInfo>
#include <QLabel>
#include <QVBoxLayout>

#include <dlfcn.h>

#include "host/PanePage.h"

K_PLUGIN_CLASS_WITH_JSON(quorvi::SettingsModule, "kcm_kyvar_quorvi.json")

namespace quorvi {

namespace {

QWidget* widgetOf(KCModule& module) {
#if KCOREADDONS_VERSION_MAJOR >= 6
    return module.widget();
#else
    return &module;
#endif
}

/// The bundle installed with this module, in any place.
QString installedBundle() {
    static const char ours = 0;
    Dl_info module;
    if (dladdr(&ours, &module) == 0)
        return {};
    const QString folder =
        QFileInfo(QFileInfo(QString::fromLocal8Bit(module.dli_fname)).canonicalFilePath()).path();
    return QFileInfo(folder + QLatin1String("/" QUORVI_BUNDLE_FROM_MODULE)).absoluteFilePath();
}

QWidget* makePage() {
    QString error;
    if (auto pane = LoadedPane::load(installedBundle(), error))
        return new PanePage(std::move(pane));
    auto* message = new QLabel(error);
    message->setAlignment(Qt::AlignCenter);
    message->setWordWrap(true);
    message->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return message;
}

/// Up to Frameworks 5 the host adds a margin around its pages. Later, pages add it themselves; wider margins
/// would make the page scroll in System Settings' default window.
QMargins pageMargins() {
#if KCOREADDONS_VERSION_MAJOR >= 6
    constexpr int margin = 8;
#else
    constexpr int margin = 0;
#endif
    return {margin, margin, margin, margin};
}

} // namespace

SettingsModule::SettingsModule(ModuleParent* parent, const ModuleArguments& arguments)
    : KCModule(parent, arguments) {
    setButtons(NoAdditionalButton);
    auto* layout = new QVBoxLayout(widgetOf(*this));
    layout->setContentsMargins(pageMargins());
    layout->addWidget(makePage());
}

} // namespace quorvi

#include "SettingsModule.moc"
