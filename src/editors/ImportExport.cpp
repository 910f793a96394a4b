// Single profiles and macros as files of their own. A file that is no good changes nothing, and nobody is
// told: the user chose it and sees that nothing came of it.

#include <QApplication>
#include <QFileDialog>
#include <QStandardPaths>
#include <QWindow>

#include "model/ItemFile.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "pane/KyvarQuorviPane.h"
#include "platform/widgets/ShownText.h"

namespace quorvi {

namespace {

/// A kind of file that one item goes into.
struct ItemFile {
    const char* type; ///< the extension of its name
    const char* kind; ///< English, a key of the string table
};

constexpr ItemFile kProfileFile{"quorviProfile", "Profiles"};
constexpr ItemFile kMacroFile{"quorviMacro", "Macros"};

/// The path in the file system's own bytes.
std::filesystem::path nativePath(const QString& path) {
    return QFile::encodeName(path).toStdString();
}

QString chosenFile(const QFileDialog& panel) {
    return panel.selectedFiles().value(0);
}

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

QFileDialog* filePanel(
    const KyvarQuorviPane& pane, QWidget* window, const char* title, const ItemFile& file) {
    const auto text = [&](const char* key) { return pane.locString(QString::fromUtf8(key)); };
    auto* panel = new QFileDialog(window, text(title));
    panel->setAttribute(Qt::WA_DeleteOnClose);
    returnFocusAfter(panel, window);
    panel->setNameFilter(QStringLiteral("%1 (*.%2)").arg(text(file.kind), QLatin1String(file.type)));
    panel->setDefaultSuffix(QLatin1String(file.type));
    // The folder that was used last in this session, which Qt remembers, else the documents.
    if (panel->directory() == QDir::current())
        panel->setDirectory(documentsFolder());
    return panel;
}

/// Shows the panel in which one file is chosen to be read.
QFileDialog* showOpenPanel(QFileDialog* panel) {
    panel->setAcceptMode(QFileDialog::AcceptOpen);
    panel->setFileMode(QFileDialog::ExistingFile);
    panel->open();
    return panel;
}

/// Shows the panel in which a file of the item's name is proposed to be written.
QFileDialog* showSavePanel(QFileDialog* panel, const plist::Dictionary& item) {
    panel->setAcceptMode(QFileDialog::AcceptSave);
    panel->setFileMode(QFileDialog::AnyFile);
    // A slash would make the name a path.
    panel->selectFile(shownText(QString::fromStdU16String(item.string(keys::name)))
                          .replace(QLatin1Char('/'), QLatin1Char('-')));
    panel->open();
    return panel;
}

} // namespace

void KyvarQuorviPane::showImportProfilePanel() {
    if (int(fProfiles.size()) >= limits::profiles)
        return;
    QFileDialog* panel = showOpenPanel(filePanel(*this, fMainView->window(), "Import Profile", kProfileFile));
    connect(panel, &QDialog::finished, this, [this, panel](int code) { importProfile(panel, code); });
}

void KyvarQuorviPane::showExportProfilePanel() {
    QFileDialog* panel =
        showSavePanel(filePanel(*this, fMainView->window(), "Export Profile", kProfileFile), fProfile);
    connect(panel, &QDialog::finished, this, [this, panel](int code) { exportProfile(panel, code); });
}

void KyvarQuorviPane::showImportMacroPanel() {
    QFileDialog* panel = showOpenPanel(filePanel(*this, fMainView->window(), "Import Macro", kMacroFile));
    connect(panel, &QDialog::finished, this, [this, panel](int code) { importMacro(panel, code); });
}

void KyvarQuorviPane::showExportMacroPanel() {
    if (!fMacro)
        return;
    QFileDialog* panel =
        showSavePanel(filePanel(*this, fMainView->window(), "Export Macro", kMacroFile), fMacro);
    connect(panel, &QDialog::finished, this, [this, panel](int code) { exportMacro(panel, code); });
}

void KyvarQuorviPane::exportProfile(const QFileDialog* panel, int returnCode) const {
    if (returnCode == QDialog::Accepted)
        static_cast<void>(writeItemFile(fProfile, nativePath(chosenFile(*panel))));
}

void KyvarQuorviPane::exportMacro(const QFileDialog* panel, int returnCode) const {
    if (returnCode == QDialog::Accepted)
        static_cast<void>(writeItemFile(fMacro, nativePath(chosenFile(*panel))));
}

// An import waits until its panel has gone.

void KyvarQuorviPane::importProfile(const QFileDialog* panel, int returnCode) {
    if (returnCode == QDialog::Accepted)
        QMetaObject::invokeMethod(
            this, [this, path = chosenFile(*panel)] { importProfileCompletion(path); }, Qt::QueuedConnection);
}

void KyvarQuorviPane::importMacro(const QFileDialog* panel, int returnCode) {
    if (returnCode == QDialog::Accepted)
        QMetaObject::invokeMethod(
            this, [this, path = chosenFile(*panel)] { importMacroCompletion(path); }, Qt::QueuedConnection);
}

void KyvarQuorviPane::importProfileCompletion(const QString& path) {
    const plist::Dictionary profile = readProfileFile(nativePath(path));
    if (profile && int(fProfiles.size()) < limits::profiles)
        appendProfile(profile);
}

void KyvarQuorviPane::importMacroCompletion(const QString& path) {
    if (const plist::Dictionary macro = readMacroFile(nativePath(path)))
        appendMacro(macro);
}

} // namespace quorvi
