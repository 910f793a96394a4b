#include "editors/files/ImportExport.h"

#include <utility>

#include "document/Document.h"
#include "history/Backup.h"
#include "model/Dependants.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "widgets/NoticeBar.h"
#include "widgets/ShownText.h"
#include "window/ActionNames.h"
#include "window/BackupTexts.h"
#include "window/FilePanels.h"
#include "window/Notices.h"
#include "window/ShownPath.h"

namespace quorvi {

namespace {

/// The properties of one kind of item for imports and exports.
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

/// The file holds a profile together with the macros that it runs.
constexpr FileKind kProfilesWithMacros{"quorviSettings", "Profiles with Macros"};

bool isBackup(const QString& path) {
    return path.endsWith(QLatin1String(kBackupExtension), Qt::CaseInsensitive);
}

/// The files accepted for an import.
FileKind importedKind(ItemKind kind) {
    FileKind imported = typeOf(kind).file;
    if (kind == ItemKind::profile)
        imported.also = kProfilesWithMacros.extension;
    return imported;
}

/// The file kinds of an export, the usual one first.
std::vector<FileKind> exportedKinds(ItemKind kind) {
    std::vector<FileKind> kinds{typeOf(kind).file};
    if (kind == ItemKind::profile)
        kinds.push_back(kProfilesWithMacros);
    return kinds;
}

/// The item fault for a backup that cannot be used.
ItemFault faultOf(BackupFault fault) {
    switch (fault) {
    case BackupFault::none:
        return ItemFault::none;
    case BackupFault::noSuchFile:
    case BackupFault::notReadable:
        return ItemFault::notReadable;
    case BackupFault::tooLarge:
        return ItemFault::tooLarge;
    case BackupFault::damaged:
        return ItemFault::damaged;
    case BackupFault::newerFormat:
    case BackupFault::noSettings:
        break;
    }
    return ItemFault::otherItem;
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
    QFileDialog* panel = showOpenPanel(filePanel(m_surroundings.mainView, title, {importedKind(kind)}, text));
    connect(
        panel, &QDialog::finished, this, [this, kind, panel](int code) { importChosen(kind, *panel, code); });
}

void ImportExport::showExportPanel(ItemKind kind) {
    const PanelText& text = m_context.text;
    if (kind == ItemKind::macro && !m_context.document.macro())
        return;
    const QString title = kind == ItemKind::profile ? text("Export Profile") : text("Export Macro");
    QFileDialog* panel = showSavePanel(
        filePanel(m_surroundings.mainView, title, exportedKinds(kind), text), proposedName(kind));
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
    if (returnCode != QDialog::Accepted)
        return;
    const bool withMacros =
        kind == ItemKind::profile && panel.defaultSuffix() == QLatin1String(kProfilesWithMacros.extension);
    exportItem(kind, chosenFile(panel), withMacros);
}

void ImportExport::exportItem(ItemKind kind, const QString& chosen, bool withMacros) {
    const Document& document = m_context.document;
    const plist::Dictionary& item = (document.*typeOf(kind).current)();
    const FileKind& file = withMacros ? kProfilesWithMacros : typeOf(kind).file;
    const auto written =
        writeChosen(chosen, QLatin1String(file.extension), [&](const std::filesystem::path& path) {
            if (!withMacros)
                return writeItemFile(item, path);
            const auto index = static_cast<std::size_t>(document.profileIndex());
            return writeBackup(backupOfProfile(document.tree(), index), path);
        });
    const QString shown = shownPath(written.path, m_surroundings.homeFolder);
    if (written.error)
        m_context.notices.tell(Notice::outcome,
            notExportedText(nameOfItem(item), shown, written.error, m_context.text), NoticeSign::warning);
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
    if (kind == ItemKind::profile && isBackup(path)) {
        importProfileWithMacros(path);
        return;
    }
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

void ImportExport::importProfileWithMacros(const QString& path) {
    const ReadBackup read = readBackup(nativePath(path));
    if (read.fault == BackupFault::newerFormat) {
        m_context.notices.tell(Notice::outcome,
            notImportedNewerText(shownPath(nativePath(path), m_surroundings.homeFolder), m_context.text),
            NoticeSign::warning);
        return;
    }
    if (!mayImport(ItemKind::profile, faultOf(read.fault), path))
        return;
    Document& document = m_context.document;
    const AddedProfile added = addProfile(document.tree(), read.backup,
        {.profile = m_context.text("Untitled Profile").toStdU16String(),
            .macro = m_context.text("Untitled Macro").toStdU16String()});
    if (!added.index)
        return;
    document.editProfileIndex(static_cast<std::int32_t>(*added.index));
    document.startInDefaultStage();
    m_surroundings.showLists();
    const QString name = nameOfItem(document.profile());
    document.commit({.action = actionName(m_context.text("Import Profile “^1”"), name)});
    const QString imported = importedText(ItemKind::profile, name, {}, m_context.text);
    m_context.notices.tellUndoable(
        withLeftOut(imported, leftOutTexts(added.leftOut, m_context.text), m_context.text),
        added.leftOut.empty() ? NoticeSign::information : NoticeSign::warning);
}

bool ImportExport::mayImport(ItemKind kind, ItemFault fault, const QString& path) {
    const plist::Array& items = (m_context.document.*typeOf(kind).items)();
    if (!items)
        return false; // there are no settings at all
    // Another program may have added items since the panel was opened.
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
