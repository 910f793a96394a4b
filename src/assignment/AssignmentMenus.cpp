// The nine assignment pop-ups: their menus, and what each shows of the current profile.

#include <QMenu>

#include <algorithm>
#include <array>

#include "keyboard/KeyCodeConversion.h"
#include "keyboard/KeyNames.h"
#include "model/CommandCodes.h"
#include "model/Keys.h"
#include "model/Lookups.h"
#include "model/Numbering.h"
#include "pane/KyvarQuorviPane.h"
#include "resources/Interface.h"
#include "widgets/MenuItems.h"
#include "widgets/PopUpButton.h"
#include "widgets/ShownText.h"
#include "window/Unread.h"

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

/// What the title says of an assigned profile or macro; without a name when it is not there.
QString titleWithName(const QString& title, const plist::Dictionary& item) {
    return title + QLatin1Char(' ') + nameWithin(title, shownName(nameOf(item)));
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

/// Makes the items behind the fixed ones list the entries; each sends what the first fixed item sends.
void listInSubmenu(QMenu& submenu, PopUpButton& popUp, const std::vector<SubmenuEntry>& entries) {
    const QList<QAction*> existing = submenu.actions();
    if (std::max(entries.size(), static_cast<std::size_t>(existing.size())) > kLongestListChangedWhileOpen)
        submenu.hide();
    for (std::size_t index = 0; index < entries.size(); ++index) {
        QAction& item = entryAt(submenu, existing, static_cast<qsizetype>(index) + kFixedSubmenuItems);
        setTitleOfItem(item, entries[index].title);
        setTagOfItem(item, entries[index].tag);
        item.setProperty(kActionProperty, existing.front()->property(kActionProperty));
        item.setProperty(kRepresentedObject, QVariant::fromValue<QObject*>(&popUp));
    }
    for (auto index = existing.size() - 1;
         index >= static_cast<qsizetype>(entries.size()) + kFixedSubmenuItems; --index)
        delete existing[index];
}

/// Rebuilds the list of the pop-up's submenu of the command. A menu that is not made yet gets its lists when
/// it is.
void rebuildSubmenu(PopUpButton& popUp, int command, const std::vector<SubmenuEntry>& entries) {
    if (popUp.awaitsMenu())
        return;
    const QAction* item = popUp.itemWithTag(command);
    if (item && item->menu())
        listInSubmenu(*item->menu(), popUp, entries);
}

/// The entries of a list of profiles or of macros.
template <typename Tag>
std::vector<SubmenuEntry> entriesOf(const plist::Array& list, const Tag& tagOf) {
    std::vector<SubmenuEntry> entries;
    for (std::size_t index = 0; index < list.size(); ++index) {
        const QString name = nameOf(list.dictionary(index));
        entries.push_back({name.isEmpty() ? QStringLiteral("?") : name, tagOf(index)});
    }
    return entries;
}

/// The commands whose title says with what, while they are selected.
constexpr std::array kDecorated{commands::switchToProfile, commands::runMacro, commands::singleKey};

bool isDecorated(int command) {
    return std::find(kDecorated.begin(), kDecorated.end(), command) != kDecorated.end();
}

QString plainTitleOf(const QAction& item) {
    return item.property(kRepresentedObject).toString();
}

} // namespace

void KyvarQuorviPane::fillAssignmentMenus() {
    fAssignmentMenus = {fViews->main.quorviMenuTop1, fViews->main.quorviMenuTop2, fViews->main.quorviMenuTop3,
        fViews->main.quorviMenuTop4, fViews->main.quorviMenuTop5, fViews->main.quorviMenuTop6,
        fViews->main.quorviMenuTop7, fViews->main.quorviMenuTop8, fViews->main.quorviMenuTop9};
    for (const QMenu* commands : {fViews->menus.quorviMenuCommands, fViews->menus.quorviMenuWheelCommands})
        rememberItemTitles(*commands);
    fViews->main.viewMouse->setExplanation([this](int input) { return explanationOfInput(input); });
    for (int n = 1; n <= kAssignmentCount; ++n) {
        PopUpButton* popUp = fAssignmentMenus[static_cast<std::size_t>(n - 1)];
        popUp->setMenuLike(commandsOf(n));
        popUp->setProperty("tag", n);
        connect(popUp, &PopUpButton::menuMade, this, [this, popUp] {
            rebuildSubmenu(*popUp, commands::runMacro, fListedMacros);
            rebuildSubmenu(*popUp, commands::switchToProfile, fListedProfiles);
        });
    }
}

const QMenu& KyvarQuorviPane::commandsOf(int assignment) const {
    return assignment <= kLastButton ? *fViews->menus.quorviMenuCommands
                                     : *fViews->menus.quorviMenuWheelCommands;
}

QString KyvarQuorviPane::assignmentTitle(
    const plist::Dictionary& assignment, const QString& plainTitle) const {
    const std::int32_t param = assignment.integer(keys::param1);
    switch (assignment.integer(keys::command)) {
    case commands::switchToProfile:
        return titleWithName(locString(QStringLiteral("Profile:")),
            fDocument.profiles().dictionary(static_cast<std::size_t>(indexOfNumber(param))));
    case commands::runMacro: {
        const QString title = locString(QStringLiteral("Macro:"));
        const int index = KyvarFindMacroInArray(param, nullptr, fDocument.macros());
        return index >= 0
                   ? titleWithName(title, fDocument.macros().dictionary(static_cast<std::size_t>(index)))
                   : title + QLatin1Char(' ') + locString(QStringLiteral("(missing)"));
    }
    case commands::singleKey:
        return plainTitle + QLatin1Char(' ') +
               QString::fromStdU16String(shownKeyCombination(UsbToAdbKeycode(param & 0xFF),
                   UsbToAdbModifiers(assignment.integer(keys::param2) & 0xFF)));
    default:
        return plainTitle;
    }
}

void KyvarQuorviPane::updateMenu(PopUpButton* popUp, int assignment) {
    const plist::Dictionary record = fDocument.buttons().dictionary(keys::button(assignment));
    std::int32_t command = record.integer(keys::command);
    // A mouse without a primary click could not undo that: button 1 takes it when no other button has it.
    if (assignment == 1 && command != commands::click &&
        KyvarFindClickInProfile(fDocument.profile(), kOtherButtons) < 0) {
        record.set(keys::command, commands::click);
        command = commands::click;
    }
    if (assignment <= kLastButton) {
        const std::uint32_t others = kAllButtons & ~(1U << (assignment - 1));
        popUp->setEnabled(hasDevice() && (command != commands::click ||
                                             KyvarFindClickInProfile(fDocument.profile(), others) >= 0));
    }
    if (!fDocument.tree()) {
        popUp->selectNone(unreadText());
        return;
    }
    std::optional<QString> title;
    if (const QAction* item =
            isDecorated(command) ? selectableItemWithTag(commandsOf(assignment), command) : nullptr)
        title = assignmentTitle(record, plainTitleOf(*item));
    // The titles of a menu that nobody has asked for are the plain ones, and asking for an item would make
    // it.
    if (!popUp->awaitsMenu())
        for (const int other : kDecorated)
            if (QAction* item = popUp->itemWithTag(other); item && other != command)
                setTitleOfItem(*item, plainTitleOf(*item));
    if (!popUp->selectItemWithTag(command, title))
        popUp->selectItemWithTag(commands::noFunction);
}

void KyvarQuorviPane::updateMacrosSubmenu() {
    const plist::Array macros = fDocument.tree().array(keys::macros);
    fListedMacros =
        entriesOf(macros, [&](std::size_t index) { return macros.dictionary(index).integer(keys::macroId); });
    for (PopUpButton* popUp : fAssignmentMenus)
        rebuildSubmenu(*popUp, commands::runMacro, fListedMacros);
}

void KyvarQuorviPane::updateProfilesSubmenu() {
    fListedProfiles = entriesOf(fDocument.tree().array(keys::profiles),
        [](std::size_t index) { return static_cast<std::int32_t>(index); });
    for (PopUpButton* popUp : fAssignmentMenus)
        rebuildSubmenu(*popUp, commands::switchToProfile, fListedProfiles);
}

} // namespace quorvi
