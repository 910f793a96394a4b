#include "host/LoadedPane.h"

#include <QDir>
#include <QFileInfo>

#include "platform/Bundle.h"

namespace quorvi {

namespace {

QString infoText(const Bundle& bundle, const char* key, const QString& otherwise) {
    const auto text = bundle.infoString(key);
    return text ? QString::fromStdU16String(*text) : otherwise;
}

} // namespace

std::unique_ptr<LoadedPane> LoadedPane::load(const QString& bundlePath, QString& error) {
    const QString path = QDir(bundlePath).absolutePath();
    const Bundle bundle(path.toStdString());
    const QString plugin = QString::fromStdString(bundle.executablePath());
    if (!QFileInfo(plugin).isFile()) {
        error = QStringLiteral("%1 is not a preference pane: it has no plug-in").arg(bundlePath);
        return nullptr;
    }
    QPluginLoader loader(plugin);
    loader.setLoadHints(QLibrary::PreventUnloadHint);
    auto* factory = qobject_cast<PreferencePaneFactory*>(loader.instance());
    auto pane = factory ? factory->createPane(path) : nullptr;
    if (!pane) {
        error = QStringLiteral("%1 cannot be loaded: %2").arg(bundlePath, loader.errorString());
        return nullptr;
    }
    std::unique_ptr<LoadedPane> loaded(new LoadedPane);
    loaded->m_name = infoText(bundle, "CFBundleName", QFileInfo(path).completeBaseName());
    const QString icon = infoText(bundle, "NSPrefPaneIconFile", QString());
    loaded->m_icon = QIcon(QString::fromStdString(bundle.resourcePath()) + QLatin1Char('/') + icon);
    loaded->m_pane = std::move(pane);
    return loaded;
}

void LoadedPane::select() {
    if (std::exchange(m_selected, true))
        return;
    if (!std::exchange(m_loaded, true))
        m_pane->mainViewDidLoad();
    m_pane->didSelect();
}

void LoadedPane::unselect() {
    if (std::exchange(m_selected, false))
        m_pane->willUnselect();
}

} // namespace quorvi
