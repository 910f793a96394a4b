#include "editors/backups/BackupsEditor.h"

#include <QDate>
#include <QFileDialog>
#include <QLocale>
#include <QPointer>

#include <algorithm>
#include <array>
#include <utility>

#include "document/Document.h"
#include "editors/backups/BackupPanel.h"
#include "editors/backups/EarlierPanel.h"
#include "platform/InterfaceText.h"
#include "plist/DeepCopy.h"
#include "widgets/NoticeBar.h"
#include "widgets/ShownText.h"
#include "window/ActionNames.h"
#include "window/BackupTexts.h"
#include "window/FilePanels.h"
#include "window/Notices.h"
#include "window/Sheets.h"
#include "window/ShownPath.h"

namespace quorvi {

namespace {

constexpr FileKind kBackups{"quorviSettings", "Backups"};
constexpr const char* kProfileExtension = ".quorviProfile";
constexpr const char* kMacroExtension = ".quorviMacro";

bool hasExtension(const QString& path, const char* extension) {
    return path.endsWith(QLatin1String(extension), Qt::CaseInsensitive);
}

const char* patternOf(BackupFault fault) {
    switch (fault) {
    case BackupFault::noSuchFile:
        return "^1 was not restored: there is no such file.";
    case BackupFault::tooLarge:
        return "^1 was not restored: it is too large.";
    case BackupFault::damaged:
        return "^1 was not restored: it is damaged or of another kind.";
    case BackupFault::newerFormat:
        return "^1 was not restored: it was written by a newer version.";
    case BackupFault::noSettings:
        return "^1 was not restored: it contains no settings.";
    case BackupFault::notReadable:
    case BackupFault::none:
        break;
    }
    return "^1 was not restored: it cannot be read.";
}

} // namespace

BackupsEditor::BackupsEditor(const EditorContext& context, Others others)
    : m_context(context), m_others(std::move(others)) {}

QString BackupsEditor::shown(const QString& path) const {
    return shownPath(nativePath(path), m_others.homeFolder);
}

QString BackupsEditor::withPath(const char* pattern, const QString& path) const {
    const QString text = m_context.text(pattern);
    return filledText(text, {nameWithin(text, shown(path))});
}

void BackupsEditor::tell(const QString& text, bool isGood) {
    m_context.notices.tell(Notice::outcome, text, isGood ? NoticeSign::information : NoticeSign::warning);
}

// Runs `use` once the panel has closed, because a sheet may follow.
void BackupsEditor::whenChosen(QFileDialog* panel, std::function<void(const QString& path)> use) {
    connect(panel, &QDialog::finished, this, [this, panel, use = std::move(use)](int code) {
        if (code == QDialog::Accepted)
            QMetaObject::invokeMethod(
                this, [use, path = panel->selectedFiles().value(0)] { use(path); }, Qt::QueuedConnection);
    });
}

void BackupsEditor::showBackUpPanel() {
    if (!m_context.document.tree())
        return;
    QFileDialog* panel =
        filePanel(m_others.mainView, m_context.text("Back Up Settings"), {kBackups}, m_context.text);
    const QString today = QDate::currentDate().toString(Qt::ISODate);
    whenChosen(showSavePanel(panel, QStringLiteral("Kyvar Quorvi ") + today),
        [this](const QString& path) { backUpTo(path); });
}

void BackupsEditor::backUpTo(const QString& chosen) {
    const auto written = writeChosen(chosen, QLatin1String(kBackups.extension),
        [this](const auto& path) { return writeBackup(backupOf(m_context.document.tree()), path); });
    const QString path = shownPath(written.path, m_others.homeFolder);
    const QString text = m_context.text(!written.error ? "All settings were written to ^1."
                                        : written.error == std::errc::file_exists
                                            ? "Nothing was backed up: there is already a file ^1."
                                            : "Nothing was backed up to ^1: ^2");
    const QString why = QString::fromLocal8Bit(written.error.message().c_str());
    tell(filledText(text, {nameWithin(text, path), nameWithin(text, why)}), !written.error);
}

void BackupsEditor::showRestorePanel() {
    if (!m_context.document.tree())
        return;
    QFileDialog* panel =
        filePanel(m_others.mainView, m_context.text("Open Backup"), {kBackups}, m_context.text);
    whenChosen(showOpenPanel(panel), [this](const QString& path) { openBackup(path); });
}

bool BackupsEditor::takes(const QString& path) {
    static constexpr std::array extensions{kBackupExtension, kProfileExtension, kMacroExtension};
    return std::any_of(extensions.begin(), extensions.end(),
        [&](const char* extension) { return hasExtension(path, extension); });
}

void BackupsEditor::openFile(const QString& path) {
    if (hasExtension(path, kBackupExtension)) {
        openBackup(path);
    } else if (hasExtension(path, kProfileExtension)) {
        if (agreesToImport("Import the profile in this file?\r\r^1", path))
            m_others.importProfile(path);
    } else if (hasExtension(path, kMacroExtension)) {
        if (agreesToImport("Import the macro in this file?\r\r^1", path))
            m_others.importMacro(path);
    } else {
        tell(withPath("^1 was not opened: it is neither a backup nor a profile or macro.", path), false);
    }
}

bool BackupsEditor::agreesToImport(const char* question, const QString& path) {
    return m_context.sheets.confirm({.message = question, .item = shown(path), .confirming = "Import"});
}

void BackupsEditor::openBackup(const QString& path) {
    const ReadBackup read = readBackup(nativePath(path));
    if (!read) {
        tell(withPath(patternOf(read.fault), path), false);
    } else if (read.backup.contents == BackupContents::oneProfile) {
        if (agreesToImport("Import the profile in this file with its macros?\r\r^1", path))
            m_others.importProfile(path);
    } else if (agreesToRestore(read.backup, path)) {
        take(read.backup, m_context.text("Restore Backup"), withPath("The backup ^1 was restored.", path));
    }
}

bool BackupsEditor::agreesToRestore(const Backup& backup, const QString& path) {
    const plist::Dictionary& now = m_context.document.tree();
    const plist::Dictionary restored = plist::mutableDeepCopy(now);
    const QStringList leftOut = leftOutTexts(restoreEverything(restored, backup), m_context.text);
    QStringList differences = differenceTexts(restored, now, m_context.text);
    if (differences.isEmpty())
        differences << m_context.text("Nothing is different.");
    setInterfaceTextLookup(
        [this](const QString& english) { return m_context.text(english.toUtf8().constData()); });
    auto* sheet = new BackupPanel(
        &m_others.mainView, {.question = withPath("Restore the settings in this backup?\r\r^1", path)
                                             .replace(QLatin1Char('\r'), QLatin1Char('\n')),
                                .differences = differences,
                                .leftOut = withLeftOut({}, leftOut, m_context.text).trimmed()});
    setInterfaceTextLookup(nullptr);
    return runSheet(sheet) == QDialog::Accepted;
}

int BackupsEditor::runSheet(QDialog* sheet) {
    const QPointer<QDialog> guard(sheet);
    const int code = m_context.sheets.run(sheet);
    delete guard; // unless the window was destroyed
    return code;
}

void BackupsEditor::showEarlier() {
    if (!m_context.document.tree())
        return;
    setInterfaceTextLookup(
        [this](const QString& english) { return m_context.text(english.toUtf8().constData()); });
    const QPointer<EarlierPanel> sheet = new EarlierPanel(&m_others.mainView,
        {.history = m_others.history, .now = m_context.document.tree(), .text = m_context.text});
    setInterfaceTextLookup(nullptr);
    const int code = m_context.sheets.run(sheet);
    const auto chosen = sheet && code == QDialog::Accepted ? sheet->chosen() : std::nullopt;
    delete sheet;
    if (!chosen)
        return;
    const QString when = whenText(chosen->time, QDateTime::currentDateTime(), QLocale(), m_context.text);
    const auto filled = [&](const char* pattern) {
        const QString text = m_context.text(pattern);
        return filledText(text, {nameWithin(text, when)});
    };
    if (const ReadBackup read = m_others.history.read(*chosen))
        take(read.backup, filled("Restore Settings from ^1"), filled("The settings from ^1 were restored."));
    else
        tell(filled("The settings from ^1 can no longer be read."), false);
}

void BackupsEditor::take(const Backup& backup, const QString& action, const QString& sentence) {
    Document& document = m_context.document;
    if (!document.tree())
        return; // the settings were released during the sheet
    m_others.keepCopy();
    const std::vector<LeftOut> leftOut = restoreEverything(document.tree(), backup);
    document.editSameItems();
    m_others.showLists();
    document.alignIndependentAxes();
    document.alignStageWithSettings();
    document.commit({.action = actionName(action)});
    m_context.notices.tellUndoable(
        withLeftOut(sentence, leftOutTexts(leftOut, m_context.text), m_context.text),
        leftOut.empty() ? NoticeSign::information : NoticeSign::warning);
}

} // namespace quorvi
