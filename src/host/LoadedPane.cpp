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

/// A process has one major version of Qt, and a plug-in fits only that. A bundle for several hosts has
/// further plug-ins next to the named one: NAME-qt5.so for hosts with Qt 5.
QString pluginOf(const Bundle& bundle) {
    const QFileInfo named(QString::fromStdString(bundle.executablePath()));
    const QString ours = QStringLiteral("%1/%2-qt%3.%4")
                             .arg(named.path(), named.completeBaseName())
                             .arg(QT_VERSION_MAJOR)
                             .arg(named.suffix());
    return QFileInfo(ours).isFile() ? ours : named.filePath();
}

} // namespace

std::unique_ptr<LoadedPane> LoadedPane::load(const QString& bundlePath, QString& error) {
    const QString path = QDir(bundlePath).absolutePath();
    const Bundle bundle(path.toStdString());
    const QString plugin = pluginOf(bundle);
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
    loaded->m_iconFile = QString::fromStdString(bundle.resourcePath()) + QLatin1Char('/') + icon;
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

FileOpeningPane* LoadedPane::opener() const {
    auto* object = dynamic_cast<QObject*>(m_pane.get());
    return object ? qobject_cast<FileOpeningPane*>(object) : nullptr;
}

bool LoadedPane::opens(const QString& path) const {
    const FileOpeningPane* pane = opener();
    return pane && pane->opens(path);
}

void LoadedPane::openFile(const QString& path) {
    if (FileOpeningPane* pane = opener())
        pane->openFile(path);
}

void LoadedPane::unselect() {
    if (std::exchange(m_selected, false))
        m_pane->willUnselect();
}

} // namespace quorvi
