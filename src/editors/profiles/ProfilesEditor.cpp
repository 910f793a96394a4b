#include "editors/profiles/ProfilesEditor.h"

#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>

#include <algorithm>
#include <memory>
#include <utility>

#include "editors/profiles/ProfilesModel.h"
#include "model/ItemFile.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "model/SettingsDocument.h"
#include "plist/DeepCopy.h"
#include "resources/MenuTags.h"
#include "resources/TableTags.h"
#include "widgets/CheckBox.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/MarkedCells.h"
#include "window/ActionNames.h"
#include "window/ListButtons.h"
#include "window/Notices.h"
#include "window/RemovalTexts.h"
#include "window/Sheets.h"

namespace quorvi {

namespace {

constexpr int kLeastRowsShown = 3; // in a low window; then the list scrolls

} // namespace

ProfilesEditor::ProfilesEditor(const EditorContext& context, const Views& views, Others others)
    : m_context(context), m_views(views), m_others(std::move(others)), m_usualHint(views.hint.text()),
      m_list(views.table,
          std::make_unique<ProfilesModel>(context.document, context.text, m_others.listHasChanged)),
      m_application(
          context, {.mainView = views.mainView, .homeFolder = m_others.homeFolder, .showChange = [this] {
                        m_list.reload();
                        m_others.listHasChanged();
                    }}) {
    m_list.onSelectionChange([this] { switchToSelected(); });
    m_views.table.setItemDelegate(std::make_unique<MarkedCells>(&m_views.table).release());
    m_views.table.setTallRows();
    m_views.table.setRowsShown(limits::profiles, kLeastRowsShown);
    QObject::connect(&m_views.table, &KyvarQuorviTableView::doubleClickEnded, &m_list.model(),
        [this](const QModelIndex& cell) { chooseApplicationOf(cell); });
}

void ProfilesEditor::show() {
    const Document& document = m_context.document;
    enableButtonOf(m_views.table, m_views.addButton, document.hasDevice() && hasRoom());
    enableButtonOf(
        m_views.table, m_views.removeButton, document.hasDevice() && m_views.table.selectedRow() > 0);
    m_views.applicationButton.setEnabled(document.hasDevice() && isCurrent());
    m_views.count.setText(document.hasDevice() ? filledText(m_context.text("^1 of ^2"),
                                                     {QString::number(document.profiles().size()),
                                                         QString::number(limits::profiles)})
                                               : QString());
    m_views.displayBox.setChecked(document.driverData().boolean(keys::profileDisplay));
    m_views.hint.setText(
        document.profiles().size() == 1
            ? m_context.text("Add a profile for each way you use the mouse. The “Application…” button "
                             "assigns it an application.")
            : m_usualHint);
}

void ProfilesEditor::showRunningRow() {
    const RunningRow running = m_others.running();
    m_list.model().setMarks(
        kProfileNameColumn, running.row < 0 ? RowMarks() : RowMarks{{running.row, running.why}});
}

void ProfilesEditor::selectCurrentQuietly() {
    m_list.reloadQuietly();
    m_list.selectQuietly(m_context.document.profileIndex());
}

void ProfilesEditor::switchToSelected() {
    const int row = m_views.table.selectedRow();
    if (row < 0 || !m_context.document.hasDevice())
        return;
    m_context.document.editProfileIndex(row);
    m_context.document.startInDefaultStage();
    const std::u16string name = m_context.document.profile().string(keys::name);
    m_context.document.commit(
        {.action = m_action.empty() ? actionName(m_context.text("Switch to Profile “^1”"), name) : m_action});
}

void ProfilesEditor::selectWithin(const std::u16string& action, int row) {
    const QScopedValueRollback within(m_action, action);
    m_views.table.selectRowAlone(row);
}

void ProfilesEditor::chooseApplicationOf(const QModelIndex& cell) {
    const bool isApplication = cell.column() == m_list.model().columnOf(kProfileApplicationColumn);
    if (isApplication && isCurrent() && cell.row() == m_context.document.profileIndex())
        m_application.showPanel();
}

void ProfilesEditor::append(const plist::Dictionary& profile, const std::u16string& action) {
    Document& document = m_context.document;
    appendItem(document.profiles(), profile, m_context.text("Untitled Profile").toStdU16String());
    document.editProfileIndex(static_cast<std::int32_t>(document.profiles().size()) - 1);
    m_list.reloadQuietly();
    selectWithin(action, document.profileIndex());
    m_others.listHasChanged();
    document.commit({.action = action});
}

void ProfilesEditor::create(bool duplicate) {
    if (!hasRoom())
        return;
    const plist::Dictionary profile = duplicate
                                          ? plist::mutableDeepCopy(m_context.document.profile())
                                          : m_others.defaultSettings().array(keys::profiles).dictionary(0);
    if (!profile)
        return;
    const std::u16string action =
        duplicate ? actionName(m_context.text("Duplicate Profile “^1”"), profile.string(keys::name))
                  : actionName(m_context.text("New Profile"));
    if (!duplicate)
        profile.set(keys::name, m_context.text("Untitled Profile").toStdU16String());
    append(profile, action);
    m_views.table.editCell(m_list.model().columnOf(kProfileNameColumn), m_context.document.profileIndex());
}

bool ProfilesEditor::hasRoom() const {
    return int(m_context.document.profiles().size()) < limits::profiles;
}

bool ProfilesEditor::isCurrent() const {
    return m_context.document.profileIndex() >= 0;
}

bool ProfilesEditor::canRemove() const {
    const auto count = static_cast<std::int32_t>(m_context.document.profiles().size());
    const std::int32_t index = m_context.document.profileIndex();
    return count >= 2 && index >= 1 && index < count;
}

void ProfilesEditor::remove() {
    if (!canRemove())
        return;
    Document& document = m_context.document;
    const std::u16string name = document.profile().string(keys::name);
    const bool confirmed = m_context.sheets.confirm(
        Question{"Delete profile: ^1\r\rAre you sure you want to delete this profile?",
            QString::fromStdU16String(name),
            effectOfRemovingProfile(
                document.tree(), static_cast<std::size_t>(document.profileIndex()), m_context.text),
            "Delete"});
    // The mouse may have been plugged in during the question, and the settings re-read.
    if (!confirmed || !canRemove() || document.profile().string(keys::name) != name)
        return;
    m_others.keepCopyBeforeRemoval();
    document.profiles().remove(static_cast<std::size_t>(document.profileIndex()));
    const auto last = static_cast<std::int32_t>(document.profiles().size()) - 1;
    const std::int32_t next = std::min(document.profileIndex(), last);
    m_list.reloadQuietly();
    document.editProfileIndex(next);
    cleanUpSettings(document.tree());
    const std::u16string action = actionName(m_context.text("Delete Profile “^1”"), name);
    selectWithin(action, next);
    m_others.listHasChanged();
    document.commit({.action = action});
    m_context.notices.tellUndoable(textWithName(m_context.text("The profile “^1” was deleted."), name));
}

void ProfilesEditor::storeDisplay() {
    m_context.document.driverData().set(keys::profileDisplay, m_views.displayBox.isChecked());
    const QString action = m_views.displayBox.isChecked()
                               ? m_context.text("Show Profile Name on Screen")
                               : m_context.text("Do Not Show Profile Name on Screen");
    m_context.document.commit(
        {.shown = Shown::nothing, .action = actionName(action), .touched = Touched::currentProfile});
}

std::vector<MenuCommand> ProfilesEditor::commands() {
    const auto hasCurrent = [this] { return isCurrent(); };
    const auto hasPlace = [this] { return hasRoom(); };
    return {
        {kNewProfileItem, [this] { create(false); }, hasPlace},
        {kImportProfileItem, m_others.importProfile, hasPlace},
        {kExportProfileItem, m_others.exportProfile, hasCurrent},
        // The first one cannot be removed.
        {kRemoveProfileItem, [this] { remove(); }, [this] { return m_context.document.profileIndex() > 0; }},
        {kDuplicateProfileItem, [this] { create(true); }, [this] { return isCurrent() && hasRoom(); }},
        {kAssignApplicationItem, [this] { m_application.showPanel(); }, hasCurrent},
        {kRemoveApplicationItem, [this] { m_application.remove(); },
            [this] { return m_application.isBound(); }},
        {kRestoreDefaultsItem, m_others.restoreDefaults, hasCurrent},
    };
}

} // namespace quorvi
