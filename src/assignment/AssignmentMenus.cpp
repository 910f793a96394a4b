// The nine assignment pop-ups: their menus, and what each shows of the current profile.

#include <QMenu>

#include <algorithm>
#include <array>

#include "keyboard/KeyCodeConversion.h"
#include "keyboard/KeyNames.h"
#include "model/CommandCodes.h"
#include "model/Keys.h"
#include "model/Lookups.h"
#include "pane/KyvarQuorviPane.h"
#include "platform/widgets/MenuItems.h"
#include "platform/widgets/PopUpButton.h"
#include "resources/Interface.h"

namespace quorvi {

namespace {

/// Inputs 1 to 7 are buttons; 8 and 9 are the wheel's two directions.
constexpr int kLastButton = 7;
/// Buttons 2 to 7, as bits.
constexpr std::uint32_t kOtherButtons = 126;
constexpr std::uint32_t kAllButtons = 127;
/// A submenu's fixed entry and its separator; the profiles or macros follow.
constexpr int kFixedSubmenuItems = 2;
/// A menu that is open is laid out anew with every change of an item, which takes seconds beyond this length.
constexpr std::size_t kLongestListChangedWhileOpen = 100;

QString nameOf(const plist::Dictionary& item) {
    return QString::fromStdU16String(item.string(keys::name));
}

/// Some items show a decorated title while they are the selected assignment, and get this one back
/// afterwards.
void rememberItemTitles(const QMenu& menu) {
    for (QAction* item : menu.actions()) {
        item->setProperty(kRepresentedObject, titleOfItem(*item));
        if (isItemGroup(*item))
            rememberItemTitles(*item->menu());
    }
}

/// The menu's item at the index, a new one at its end when it has no such item yet. An entry that stays keeps
/// its item: the menu may be open, with that item under the pointer.
QAction& entryAt(QMenu& menu, const QList<QAction*>& existing, qsizetype index) {
    return index < existing.size() ? *existing[index] : *menu.addAction(QString());
}

/// Makes the items behind the fixed ones list the names; an entry sends what the first fixed item sends.
template <typename Tag>
void listInSubmenu(QMenu& submenu, PopUpButton& popUp, const plist::Array& list, const Tag& tagOf) {
    const QList<QAction*> existing = submenu.actions();
    if (std::max(list.size(), static_cast<std::size_t>(existing.size())) > kLongestListChangedWhileOpen)
        submenu.hide();
    for (std::size_t index = 0; index < list.size(); ++index) {
        const QString name = nameOf(list.dictionary(index));
        QAction& entry = entryAt(submenu, existing, static_cast<qsizetype>(index) + kFixedSubmenuItems);
        setTitleOfItem(entry, name.isEmpty() ? QStringLiteral("?") : name);
        setTagOfItem(entry, tagOf(index));
        entry.setProperty(kActionProperty, existing.front()->property(kActionProperty));
        entry.setProperty(kRepresentedObject, QVariant::fromValue<QObject*>(&popUp));
    }
    for (auto index = existing.size() - 1; index >= static_cast<qsizetype>(list.size()) + kFixedSubmenuItems;
         --index)
        delete existing[index];
}

/// Rebuilds the list behind the fixed items of every pop-up's submenu of the command.
template <typename Tag>
void rebuildSubmenus(const std::array<PopUpButton*, kAssignmentCount>& popUps, int command,
    const plist::Array& list, const Tag& tagOf) {
    for (PopUpButton* popUp : popUps) {
        const QAction* item = popUp->itemWithTag(command);
        if (item && item->menu())
            listInSubmenu(*item->menu(), *popUp, list, tagOf);
    }
}

} // namespace

void KyvarQuorviPane::fillAssignmentMenus() {
    fAssignmentMenus = {fViews->main.quorviMenuTop1, fViews->main.quorviMenuTop2, fViews->main.quorviMenuTop3,
        fViews->main.quorviMenuTop4, fViews->main.quorviMenuTop5, fViews->main.quorviMenuTop6,
        fViews->main.quorviMenuTop7, fViews->main.quorviMenuTop8, fViews->main.quorviMenuTop9};
    for (const QMenu* commands : {fViews->menus.quorviMenuCommands, fViews->menus.quorviMenuWheelCommands})
        rememberItemTitles(*commands);
    for (int n = 1; n <= kAssignmentCount; ++n) {
        PopUpButton* popUp = fAssignmentMenus[static_cast<std::size_t>(n - 1)];
        const QMenu* commands =
            n <= kLastButton ? fViews->menus.quorviMenuCommands : fViews->menus.quorviMenuWheelCommands;
        popUp->setMenuLike(*commands);
        popUp->setProperty("tag", n);
    }
}

QString KyvarQuorviPane::assignmentTitle(
    const plist::Dictionary& assignment, const QString& plainTitle) const {
    const std::int32_t param = assignment.integer(keys::param1);
    switch (assignment.integer(keys::command)) {
    case commands::switchToProfile:
        return locString(QStringLiteral("Profile:")) + QLatin1Char(' ') +
               (param >= 1 ? nameOf(fProfiles.dictionary(static_cast<std::size_t>(param - 1))) : QString());
    case commands::runMacro: {
        const int index = KyvarFindMacroInArray(param, nullptr, fMacros);
        return locString(QStringLiteral("Macro:")) + QLatin1Char(' ') +
               (index >= 0 ? nameOf(fMacros.dictionary(static_cast<std::size_t>(index))) : QString());
    }
    case commands::singleKey:
        return plainTitle + QLatin1Char(' ') +
               QString::fromStdU16String(GetKeyCombinationName(UsbToAdbKeycode(param & 0xFF),
                   UsbToAdbModifiers(assignment.integer(keys::param2) & 0xFF)));
    default:
        return plainTitle;
    }
}

void KyvarQuorviPane::updateMenu(PopUpButton* popUp, int assignment) {
    const plist::Dictionary record = fButtons.dictionary(keys::button(assignment));
    std::int32_t command = record.integer(keys::command);
    // A mouse without a primary click could not undo that: button 1 takes it when no other button has it.
    if (assignment == 1 && command != commands::click &&
        KyvarFindClickInProfile(fProfile, kOtherButtons) < 0) {
        record.set(keys::command, commands::click);
        command = commands::click;
    }
    if (assignment <= kLastButton) {
        const std::uint32_t others = kAllButtons & ~(1U << (assignment - 1));
        popUp->setEnabled(
            hasDevice() && (command != commands::click || KyvarFindClickInProfile(fProfile, others) >= 0));
    }
    constexpr std::array decorated{commands::switchToProfile, commands::runMacro, commands::singleKey};
    const bool isDecorated = std::find(decorated.begin(), decorated.end(), command) != decorated.end();
    // The titles of a menu that nobody has asked for are the plain ones, and asking for an item would make
    // it.
    if (isDecorated || !popUp->awaitsMenu())
        for (const int decoratedCommand : decorated)
            if (QAction* item = popUp->itemWithTag(decoratedCommand)) {
                const QString plain = item->property(kRepresentedObject).toString();
                setTitleOfItem(*item, decoratedCommand == command ? assignmentTitle(record, plain) : plain);
            }
    if (!popUp->selectItemWithTag(command))
        popUp->selectItemWithTag(commands::noFunction);
}

void KyvarQuorviPane::updateMacrosSubmenu() {
    const plist::Array macros = fDeviceConfig.array(keys::macros);
    rebuildSubmenus(fAssignmentMenus, commands::runMacro, macros,
        [&](std::size_t index) { return macros.dictionary(index).integer(keys::macroId); });
}

void KyvarQuorviPane::updateProfilesSubmenu() {
    rebuildSubmenus(fAssignmentMenus, commands::switchToProfile, fDeviceConfig.array(keys::profiles),
        [](std::size_t index) { return static_cast<std::int32_t>(index); });
}

} // namespace quorvi
