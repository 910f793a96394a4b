// Single profiles and macros as files of their own. What came of it is told at the window's foot.

#include <QApplication>
#include <QStandardPaths>
#include <QWindow>

#include "editors/ItemOutcomes.h"
#include "editors/ItemPanel.h"
#include "model/Dependants.h"
#include "model/ItemFile.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "pane/KyvarQuorviPane.h"
#include "widgets/NoticeBar.h"
#include "widgets/ShownText.h"

namespace quorvi {

namespace {

/// A kind of file that one item goes into.
struct ItemFile {
    const char* type; ///< the extension of its name
    const char* kind; ///< English, a key of the string table
};

constexpr ItemFile kProfileFile{"quorviProfile", "Profiles"};
constexpr ItemFile kMacroFile{"quorviMacro", "Macros"};

QString nameOfItem(const plist::Dictionary& item) {
    return QString::fromStdU16String(item.string(keys::name));
}

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
    auto* panel = new ItemPanel(window, text(title));
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
QFileDialog* showSavePanel(QFileDialog* panel, const QString& name) {
    panel->setAcceptMode(QFileDialog::AcceptSave);
    panel->setFileMode(QFileDialog::AnyFile);
    panel->selectFile(fileNameFor(shownText(name), panel->defaultSuffix()));
    panel->open();
    return panel;
}

} // namespace

void KyvarQuorviPane::showImportProfilePanel() {
    if (int(fDocument.profiles().size()) >= limits::profiles)
        return;
    QFileDialog* panel = showOpenPanel(filePanel(*this, fMainView->window(), "Import Profile", kProfileFile));
    connect(panel, &QDialog::finished, this, [this, panel](int code) { importProfile(panel, code); });
}

void KyvarQuorviPane::showExportProfilePanel() {
    QFileDialog* panel = showSavePanel(filePanel(*this, fMainView->window(), "Export Profile", kProfileFile),
        proposedName(ItemKind::profile));
    connect(panel, &QDialog::finished, this, [this, panel](int code) { exportProfile(panel, code); });
}

void KyvarQuorviPane::showImportMacroPanel() {
    QFileDialog* panel = showOpenPanel(filePanel(*this, fMainView->window(), "Import Macro", kMacroFile));
    connect(panel, &QDialog::finished, this, [this, panel](int code) { importMacro(panel, code); });
}

void KyvarQuorviPane::showExportMacroPanel() {
    if (!fDocument.macro())
        return;
    QFileDialog* panel = showSavePanel(
        filePanel(*this, fMainView->window(), "Export Macro", kMacroFile), proposedName(ItemKind::macro));
    connect(panel, &QDialog::finished, this, [this, panel](int code) { exportMacro(panel, code); });
}

QString KyvarQuorviPane::proposedName(ItemKind kind) const {
    const QString name = nameOfItem(kind == ItemKind::profile ? fDocument.profile() : fDocument.macro());
    const std::u16string untitled = kind == ItemKind::profile ? untitledProfile() : untitledMacro();
    return name.isEmpty() ? QString::fromStdU16String(untitled) : name;
}

void KyvarQuorviPane::exportProfile(const QFileDialog* panel, int returnCode) {
    if (returnCode == QDialog::Accepted)
        exportItem(ItemKind::profile, fDocument.profile(), chosenFile(*panel));
}

void KyvarQuorviPane::exportMacro(const QFileDialog* panel, int returnCode) {
    if (returnCode == QDialog::Accepted)
        exportItem(ItemKind::macro, fDocument.macro(), chosenFile(*panel));
}

void KyvarQuorviPane::exportItem(ItemKind kind, const plist::Dictionary& item, const QString& chosen) {
    const PanelText text = panelText();
    const ItemFile& file = kind == ItemKind::profile ? kProfileFile : kMacroFile;
    const QString path = withExtension(chosen, QLatin1String(file.type));
    // Whoever chose another name has not been asked whether this file may go.
    const bool mayGo = path == chosen || !QFileInfo::exists(path);
    const std::error_code error =
        mayGo ? writeItemFile(item, nativePath(path)) : make_error_code(std::errc::file_exists);
    const QString shown = shownPath(nativePath(path), fServices.homeFolder);
    if (error)
        fNotices.tell(
            Notice::outcome, notExportedText(nameOfItem(item), shown, error, text), NoticeSign::warning);
    else
        fNotices.tell(
            Notice::outcome, exportedText(kind, nameOfItem(item), shown, text), NoticeSign::information);
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
    const ReadItem read = readProfileFile(nativePath(path));
    if (!mayImport(ItemKind::profile, read.fault, path))
        return;
    appendProfile(read.item);
    tellOfImport(ItemKind::profile, read.item);
}

void KyvarQuorviPane::importMacroCompletion(const QString& path) {
    const ReadItem read = readMacroFile(nativePath(path));
    if (!mayImport(ItemKind::macro, read.fault, path))
        return;
    appendMacro(read.item);
    tellOfImport(ItemKind::macro, read.item);
}

bool KyvarQuorviPane::mayImport(ItemKind kind, ItemFault fault, const QString& path) {
    const PanelText text = panelText();
    const bool isProfile = kind == ItemKind::profile;
    const plist::Array& list = isProfile ? fDocument.profiles() : fDocument.macros();
    if (!list)
        return false; // there are no settings at all
    // More may have come, from another program, since the panel was opened.
    const bool isFull = int(list.size()) >= (isProfile ? limits::profiles : limits::macros);
    if (fault == ItemFault::none && !isFull)
        return true;
    const QString shown = shownPath(nativePath(path), fServices.homeFolder);
    fNotices.tell(Notice::outcome,
        fault == ItemFault::none ? listFullText(kind, shown, text)
                                 : notImportedText(kind, shown, fault, text),
        NoticeSign::warning);
    return false;
}

void KyvarQuorviPane::tellOfImport(ItemKind kind, const plist::Dictionary& item) {
    const PanelText text = panelText();
    const std::vector<int> missing =
        kind == ItemKind::profile ? inputsWithoutMacro(item, fDocument.macros()) : std::vector<int>();
    fNotices.tell(Notice::outcome, importedText(kind, nameOfItem(item), missing, text),
        missing.empty() ? NoticeSign::information : NoticeSign::warning);
}

} // namespace quorvi
