#include "editors/files/ImportExport.h"

#include <utility>

#include "document/Document.h"
#include "editors/files/FilePanels.h"
#include "editors/files/ItemPanel.h"
#include "model/Dependants.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "widgets/NoticeBar.h"
#include "widgets/ShownText.h"
#include "window/ActionNames.h"
#include "window/Notices.h"

namespace quorvi {

namespace {

/// What an import and an export do with one kind of item.
struct ItemType {
    FileKind file;
    int limit;
    const plist::Array& (Document::*items)() const;
    const plist::Dictionary& (Document::*current)() const;
    ReadItem (*read)(const std::filesystem::path& path);
};

constexpr ItemType kProfiles{{"quorviProfile", "Profiles"}, limits::profiles, &Document::profiles,
    &Document::profile, readProfileFile};
constexpr ItemType kMacros{
    {"quorviMacro", "Macros"}, limits::macros, &Document::macros, &Document::macro, readMacroFile};

const ItemType& typeOf(ItemKind kind) {
    return kind == ItemKind::profile ? kProfiles : kMacros;
}

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

} // namespace

ImportExport::ImportExport(const EditorContext& context, Surroundings surroundings)
    : m_context(context), m_surroundings(std::move(surroundings)) {}

void ImportExport::showImportPanel(ItemKind kind) {
    const PanelText& text = m_context.text;
    if (kind == ItemKind::profile && int(m_context.document.profiles().size()) >= limits::profiles)
        return;
    const QString title = kind == ItemKind::profile ? text("Import Profile") : text("Import Macro");
    QFileDialog* panel = showOpenPanel(filePanel(m_surroundings.mainView, title, typeOf(kind).file, text));
    connect(
        panel, &QDialog::finished, this, [this, kind, panel](int code) { importChosen(kind, *panel, code); });
}

void ImportExport::showExportPanel(ItemKind kind) {
    const PanelText& text = m_context.text;
    if (kind == ItemKind::macro && !m_context.document.macro())
        return;
    const QString title = kind == ItemKind::profile ? text("Export Profile") : text("Export Macro");
    QFileDialog* panel =
        showSavePanel(filePanel(m_surroundings.mainView, title, typeOf(kind).file, text), proposedName(kind));
    connect(
        panel, &QDialog::finished, this, [this, kind, panel](int code) { exportChosen(kind, *panel, code); });
}

QString ImportExport::proposedName(ItemKind kind) const {
    QString name = nameOfItem((m_context.document.*typeOf(kind).current)());
    if (!name.isEmpty())
        return name;
    return kind == ItemKind::profile ? m_context.text("Untitled Profile") : m_context.text("Untitled Macro");
}

void ImportExport::exportChosen(ItemKind kind, const QFileDialog& panel, int returnCode) {
    if (returnCode == QDialog::Accepted)
        exportItem(kind, chosenFile(panel));
}

void ImportExport::exportItem(ItemKind kind, const QString& chosen) {
    const plist::Dictionary& item = (m_context.document.*typeOf(kind).current)();
    const QString path = withExtension(chosen, QLatin1String(typeOf(kind).file.extension));
    // Whoever chose another name has not been asked whether this file may go.
    const bool mayGo = path == chosen || !QFileInfo::exists(path);
    const std::error_code error =
        mayGo ? writeItemFile(item, nativePath(path)) : make_error_code(std::errc::file_exists);
    const QString shown = shownPath(nativePath(path), m_surroundings.homeFolder);
    if (error)
        m_context.notices.tell(Notice::outcome,
            notExportedText(nameOfItem(item), shown, error, m_context.text), NoticeSign::warning);
    else
        m_context.notices.tell(Notice::outcome, exportedText(kind, nameOfItem(item), shown, m_context.text),
            NoticeSign::information);
}

void ImportExport::importChosen(ItemKind kind, const QFileDialog& panel, int returnCode) {
    if (returnCode == QDialog::Accepted)
        QMetaObject::invokeMethod(
            this, [this, kind, path = chosenFile(panel)] { importFile(kind, path); }, Qt::QueuedConnection);
}

void ImportExport::importFile(ItemKind kind, const QString& path) {
    const ReadItem read = typeOf(kind).read(nativePath(path));
    if (!mayImport(kind, read.fault, path))
        return;
    const AppendItem& append =
        kind == ItemKind::profile ? m_surroundings.appendProfile : m_surroundings.appendMacro;
    const QString action = kind == ItemKind::profile ? m_context.text("Import Profile “^1”")
                                                     : m_context.text("Import Macro “^1”");
    append(read.item, actionName(action, nameOfItem(read.item)));
    tellOfImport(kind, read.item);
}

bool ImportExport::mayImport(ItemKind kind, ItemFault fault, const QString& path) {
    const plist::Array& items = (m_context.document.*typeOf(kind).items)();
    if (!items)
        return false; // there are no settings at all
    // More may have come, from another program, since the panel was opened.
    const bool isFull = int(items.size()) >= typeOf(kind).limit;
    if (fault == ItemFault::none && !isFull)
        return true;
    const QString shown = shownPath(nativePath(path), m_surroundings.homeFolder);
    m_context.notices.tell(Notice::outcome,
        fault == ItemFault::none ? listFullText(kind, shown, m_context.text)
                                 : notImportedText(kind, shown, fault, m_context.text),
        NoticeSign::warning);
    return false;
}

void ImportExport::tellOfImport(ItemKind kind, const plist::Dictionary& item) {
    const std::vector<int> missing = kind == ItemKind::profile
                                         ? inputsWithoutMacro(item, m_context.document.macros())
                                         : std::vector<int>();
    m_context.notices.tellUndoable(importedText(kind, nameOfItem(item), missing, m_context.text),
        missing.empty() ? NoticeSign::information : NoticeSign::warning);
}

} // namespace quorvi
