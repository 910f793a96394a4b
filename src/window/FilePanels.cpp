#include "window/FilePanels.h"

#include <QApplication>
#include <QStandardPaths>
#include <QWindow>

#include "widgets/ShownText.h"
#include "window/ItemPanel.h"
#include "window/ShownPath.h"

namespace quorvi {

namespace {

/// The folder of the user's own files.
QString documentsFolder() {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

QString filterOf(const FileKind& kind, const PanelText& text) {
    QString patterns = QStringLiteral("*.") + QLatin1String(kind.extension);
    if (kind.also)
        patterns += QStringLiteral(" *.") + QLatin1String(kind.also);
    return QStringLiteral("%1 (%2)").arg(text(kind.plural), patterns);
}

void setActive(QWidget* window) {
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    QApplication::setActiveWindow(window);
    QT_WARNING_POP
}

/// Restores the focus. Qt ignores a window's activation while a completion list is open, and a panel may
/// close under its list: then Qt would have no active window. Requesting the focus from the display does not
/// help, because there the window already has it; only this discouraged function corrects Qt's state.
void returnFocusAfter(const QFileDialog* panel, QWidget* window) {
    QObject::connect(panel, &QObject::destroyed, window, [window] {
        if (!QApplication::activeWindow() && QGuiApplication::focusWindow() == window->windowHandle())
            setActive(window);
        if (QWidget* earlier = window->focusWidget())
            earlier->setFocus();
    });
}

} // namespace

QFileDialog* filePanel(
    const QWidget& view, const QString& title, const std::vector<FileKind>& kinds, const PanelText& text) {
    auto* panel = new ItemPanel(view.window(), title);
    panel->setAttribute(Qt::WA_DeleteOnClose);
    returnFocusAfter(panel, view.window());
    QStringList filters;
    for (const FileKind& kind : kinds)
        filters << filterOf(kind, text);
    panel->setNameFilters(filters);
    panel->setDefaultSuffix(QLatin1String(kinds.front().extension));
    QObject::connect(
        panel, &QFileDialog::filterSelected, panel, [panel, filters, kinds](const QString& filter) {
            if (const auto index = filters.indexOf(filter); index >= 0)
                panel->setDefaultSuffix(QLatin1String(kinds[static_cast<std::size_t>(index)].extension));
        });
    // The last used folder of this session, which Qt remembers, else the documents.
    if (panel->directory() == QDir::current())
        panel->setDirectory(documentsFolder());
    return panel;
}

QFileDialog* showOpenPanel(QFileDialog* panel) {
    panel->setAcceptMode(QFileDialog::AcceptOpen);
    panel->setFileMode(QFileDialog::ExistingFile);
    panel->open();
    return panel;
}

QFileDialog* showSavePanel(QFileDialog* panel, const QString& name) {
    panel->setAcceptMode(QFileDialog::AcceptSave);
    panel->setFileMode(QFileDialog::AnyFile);
    panel->selectFile(fileNameFor(shownText(name), panel->defaultSuffix()));
    panel->open();
    return panel;
}

WrittenFile writeChosen(const QString& chosen, const QString& extension,
    const std::function<std::error_code(const std::filesystem::path& path)>& write) {
    const QString path = withExtension(chosen, extension);
    const bool mayGo = path == chosen || !QFileInfo::exists(path);
    return {nativePath(path), mayGo ? write(nativePath(path)) : make_error_code(std::errc::file_exists)};
}

} // namespace quorvi
