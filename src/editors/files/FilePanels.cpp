#include "editors/files/FilePanels.h"

#include <QApplication>
#include <QStandardPaths>
#include <QWindow>

#include "editors/files/ItemPanel.h"
#include "widgets/ShownText.h"

namespace quorvi {

namespace {

/// Where the user's own files are.
QString documentsFolder() {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

void setActive(QWidget* window) {
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    QApplication::setActiveWindow(window);
    QT_WARNING_POP
}

/// Gives the keyboard back to what had it before. Qt ignores that a window becomes active while a list of
/// completions is open, and a panel may close under its list: then no window at all would be active. To ask
/// the display for the focus does not help, since there the window has it; only the function that Qt advises
/// against tells Qt so.
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
    const QWidget& view, const QString& title, const FileKind& kind, const PanelText& text) {
    auto* panel = new ItemPanel(view.window(), title);
    panel->setAttribute(Qt::WA_DeleteOnClose);
    returnFocusAfter(panel, view.window());
    panel->setNameFilter(QStringLiteral("%1 (*.%2)").arg(text(kind.plural), QLatin1String(kind.extension)));
    panel->setDefaultSuffix(QLatin1String(kind.extension));
    // The folder that was used last in this session, which Qt remembers, else the documents.
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

} // namespace quorvi
