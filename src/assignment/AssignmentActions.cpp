// What a choice in an assignment pop-up stores. Every choice is saved, and shown as it was stored.

#include <QAction>
#include <QTabWidget>

#include "assignment/EventPatch.h"
#include "keyboard/KeyCodeConversion.h"
#include "model/CommandCodes.h"
#include "model/Keys.h"
#include "pane/KyvarQuorviPane.h"
#include "resources/Interface.h"
#include "widgets/MenuItems.h"
#include "widgets/PopUpButton.h"

namespace quorvi {

namespace {

constexpr int kProfilesTab = 2;
constexpr int kMacrosTab = 3;

/// The number of the input that a list's item is for; nothing for the fixed item, which is for none.
std::optional<int> inputOf(const QAction& listItem) {
    const auto* popUp = listItem.property(kRepresentedObject).value<QObject*>();
    return popUp ? std::optional(popUp->property("tag").toInt()) : std::nullopt;
}

/// Nothing of an earlier choice stays behind: what a function does not use reads as 0.
void assign(const plist::Dictionary& assignment, AssignmentValues values) {
    assignment.removeAll();
    for (const auto& [key, value] : values)
        assignment.set(key, value);
}

} // namespace

plist::Dictionary KyvarQuorviPane::assignmentOf(std::int32_t profileIndex, int input) const {
    return fDocument.profiles()
        .dictionary(static_cast<std::size_t>(profileIndex))
        .dictionary(keys::buttons)
        .dictionary(keys::button(input));
}

void KyvarQuorviPane::actionMenuButtonAssignment(PopUpButton* popUp) {
    const int input = popUp->property("tag").toInt();
    const int command = popUp->selectedTag();
    if (command == commands::singleKey) {
        // The menu has to be done with the choice before the sheet's event loop runs, because the sheet may
        // outlive the pop-up with its menu.
        QMetaObject::invokeMethod(
            this, [this, input] { askForSingleKey(input); }, Qt::QueuedConnection);
        return;
    }
    assign(fDocument.buttons().dictionary(keys::button(input)), {{keys::command, command}});
    fDocument.commit();
}

void KyvarQuorviPane::askForSingleKey(int input) {
    if (gPatchedPane != this)
        return; // hidden meanwhile: no key would reach the sheet
    const std::int32_t profileIndex = fDocument.profileIndex();
    const plist::Dictionary before = fDocument.buttons().dictionary(keys::button(input));
    const bool hasKey = before.integer(keys::command) == commands::singleKey;
    fSingleKeyCode = hasKey ? UsbToAdbKeycode(before.integer(keys::param1) & 0xFF) : noKey;
    fSingleKeyModifiers = hasKey ? UsbToAdbModifiers(before.integer(keys::param2) & 0xFF) : 0;
    showSingleKey();
    const QPointer<KyvarQuorviPane> guard(this);
    const bool confirmed = fSheets.run(fViews->quorviPanelSingleKey) == 1;
    if (!guard)
        return;
    if (confirmed && fSingleKeyCode != noKey) {
        // A device list may have replaced the whole tree while the sheet was up: the key goes into the
        // same place of the tree that is there now.
        assign(assignmentOf(profileIndex, input),
            {{keys::command, commands::singleKey}, {keys::param1, AdbToUsbKeycode(fSingleKeyCode)},
                {keys::param2, AdbToUsbModifiers(fSingleKeyModifiers)}});
    }
    fDocument.commit();
}

void KyvarQuorviPane::actionSubmenuButtonMacro(QAction* item) {
    const int macroId = tagOfItem(*item).value_or(0);
    assignFromList(
        *item, kMacrosTab, {{keys::command, commands::runMacro}, {keys::param1, macroId}, {keys::param2, 1}});
}

void KyvarQuorviPane::actionSubmenuButtonProfile(QAction* item) {
    const int number = tagOfItem(*item).value_or(0) + 1;
    assignFromList(*item, kProfilesTab, {{keys::command, commands::switchToProfile}, {keys::param1, number}});
}

void KyvarQuorviPane::assignFromList(const QAction& item, int tabOfList, AssignmentValues values) {
    const auto input = inputOf(item);
    if (!input) {
        fViews->main.quorviTabsMain->setCurrentIndex(tabOfList);
        return;
    }
    const plist::Dictionary assignment = fDocument.buttons().dictionary(keys::button(*input));
    assign(assignment, values);
    assignment.set(keys::string, titleOfItem(item).toStdU16String());
    fDocument.commit();
}

} // namespace quorvi
