#include "resources/Menus.h"

#include <array>
#include <span>

#include "model/CommandCodes.h"
#include "model/Commands.h"
#include "platform/InterfaceText.h"
#include "resources/MenuTags.h"
#include "widgets/MenuItems.h"

namespace quorvi {

namespace {

struct Entry {
    const char* title; // nullptr for a kSeparator
    int tag;
    int key = 0;                         // of the table whose menu it is, with its modifiers; 0 for none
    std::span<const Entry> submenu = {}; // for an entry without a tag
};

constexpr int withKey(Qt::Modifier modifier, Qt::Key key) {
    return int(modifier) | int(key);
}

constexpr Entry kSeparator{.title = nullptr, .tag = 0};

constexpr std::array kProfileEntries{
    Entry{"New Profile", kNewProfileItem},
    Entry{"Duplicate Profile", kDuplicateProfileItem},
    Entry{"Delete Profile…", kRemoveProfileItem},
    kSeparator,
    Entry{"Assign Application…", kAssignApplicationItem},
    Entry{"Remove Application", kRemoveApplicationItem},
    kSeparator,
    Entry{"Import Profile…", kImportProfileItem},
    Entry{"Export Profile…", kExportProfileItem},
    kSeparator,
    Entry{"Restore Defaults…", kRestoreDefaultsItem},
};

constexpr std::array kMacroEntries{
    Entry{"New Macro", kNewMacroItem},
    Entry{"Delete Macro…", kRemoveMacroItem},
    kSeparator,
    Entry{"Import Macro…", kImportMacroItem},
    Entry{"Export Macro…", kExportMacroItem},
};

constexpr std::array<Entry, 9> insertEntries(int firstTag) {
    const int shift = firstTag - kInsertBeforeItems;
    return {Entry{"Record Here", kRecordBeforeItem + shift}, Entry{"Key…", kKeyBeforeItem + shift},
        Entry{"Pause…", kPauseBeforeItem + shift}, kSeparator,
        Entry{"Button 1 (Left)", kButton1BeforeItem + shift},
        Entry{"Button 2 (Right)", kButton1BeforeItem + shift + 1},
        Entry{"Button 3 (Middle)", kButton1BeforeItem + shift + 2},
        Entry{"Button 4 (Back)", kButton1BeforeItem + shift + 3},
        Entry{"Button 5 (Forward)", kButton1BeforeItem + shift + 4}};
}

constexpr auto kInsertBeforeEntries = insertEntries(kInsertBeforeItems);
constexpr auto kInsertAfterEntries = insertEntries(kInsertAfterItems);

constexpr std::array kStepEntries{
    Entry{"Record", kRecordItem},
    Entry{"Record Step Again", kRecordStepItem},
    kSeparator,
    Entry{.title = "Insert Before", .tag = 0, .submenu = kInsertBeforeEntries},
    Entry{.title = "Insert After", .tag = 0, .submenu = kInsertAfterEntries},
    Entry{"Insert Text…", kInsertTextItem},
    kSeparator,
    Entry{"Remove Step", kRemoveStepItem},
    Entry{"Remove All Steps", kRemoveAllStepsItem},
    kSeparator,
    Entry{"Use This Delay for All Steps", kUseDelayForAllItem},
    Entry{"Multiply Delays…", kMultiplyDelaysItem},
    Entry{"Remove All Delays", kRemoveAllDelaysItem},
    kSeparator,
    Entry{"Move Step Up", kMoveStepUpItem, withKey(Qt::ALT, Qt::Key_Up)},
    Entry{"Move Step Down", kMoveStepDownItem, withKey(Qt::ALT, Qt::Key_Down)},
    kSeparator,
    Entry{"Cut Step", kCutStepItem, withKey(Qt::CTRL, Qt::Key_X)},
    Entry{"Copy Step", kCopyStepItem, withKey(Qt::CTRL, Qt::Key_C)},
    Entry{"Paste Steps", kPasteStepsItem, withKey(Qt::CTRL, Qt::Key_V)},
    Entry{"Duplicate Step", kDuplicateStepItem, withKey(Qt::CTRL, Qt::Key_D)},
};

constexpr std::array kDelayEntries{
    Entry{"None", 0},
    Entry{"10 ms", 10},
    Entry{"20 ms", 20},
    Entry{"30 ms", 30},
    Entry{"40 ms", 40},
    Entry{"50 ms", 50},
    Entry{"100 ms", 100},
    Entry{"150 ms", 150},
    Entry{"200 ms", 200},
    Entry{"300 ms", 300},
    Entry{"400 ms", 400},
    Entry{"½ second", 500},
    Entry{"1 second", 1000},
    Entry{"2 seconds", 2000},
    Entry{"3 seconds", 3000},
    Entry{"4 seconds", 4000},
    Entry{"5 seconds", 5000},
};

constexpr std::array kPollingRateEntries{
    Entry{"125 Hz", 125},
    Entry{"500 Hz", 500},
    Entry{"1000 Hz", 1000},
};

QAction& addItem(QMenu& menu, const char* title) {
    QAction& item = *menu.addAction(QString());
    setTitleOfItem(item, interfaceText(title));
    return item;
}

QMenu& addSubmenu(QMenu& menu, const char* title) {
    QMenu& submenu = *menu.addMenu(QString());
    setTitleOfItem(*submenu.menuAction(), interfaceText(title));
    return submenu;
}

void setAction(QObject& object, const char* action) {
    object.setProperty(kActionProperty, QByteArray(action));
}

/// Shows the key next to the item's title. Only the table uses the key, and performs it itself.
void showKey(QAction& item, int key) {
    item.setShortcut(QKeySequence(key));
    item.setShortcutContext(Qt::WidgetShortcut);
    item.setShortcutVisibleInContextMenu(true);
}

void addEntries(QMenu& menu, std::span<const Entry> entries, const char* action) {
    for (const Entry& entry : entries) {
        if (!entry.title) {
            menu.addSeparator();
            continue;
        }
        if (!entry.submenu.empty()) {
            addEntries(addSubmenu(menu, entry.title), entry.submenu, action);
            continue;
        }
        QAction& item = addItem(menu, entry.title);
        setTagOfItem(item, entry.tag);
        if (entry.key != 0)
            showKey(item, entry.key);
        if (action)
            setAction(item, action);
    }
}

// The fixed head of a list under an item.
void addListHead(QMenu& list, const char* title, const char* action) {
    QAction& item = addItem(list, title);
    setTagOfItem(item, -1);
    setAction(item, action);
    list.addSeparator();
}

void addCommand(QMenu& menu, const Command& command) {
    QAction* item = nullptr;
    if (command.code == commands::switchToProfile) {
        QMenu& list = addSubmenu(menu, command.title);
        addListHead(list, "Edit Profiles…", "actionSubmenuButtonProfile:");
        item = list.menuAction();
    } else if (command.code == commands::runMacro) {
        QMenu& list = addSubmenu(menu, command.title);
        addListHead(list, "Edit Macros…", "actionSubmenuButtonMacro:");
        item = list.menuAction();
    } else {
        item = &addItem(menu, command.title);
    }
    setTagOfItem(*item, command.code);
}

void addGroups(QMenu& menu, std::span<const CommandGroupPlace> places, bool wheel) {
    for (const CommandGroupPlace& place : places) {
        if (place.separatorBefore)
            menu.addSeparator();
        QMenu& target = place.inSubmenu ? addSubmenu(menu, titleOfGroup(place.group)) : menu;
        for (const Command& command : commandTable()) {
            if (command.group == place.group && (!wheel || command.inputs == CommandInputs::ButtonsAndWheel))
                addCommand(target, command);
        }
    }
}

QMenu* addMenu(QWidget& owner, const char* name, const char* spokenName) {
    auto menu = std::make_unique<QMenu>(&owner);
    menu->setObjectName(QLatin1String(name));
    menu->setAccessibleName(interfaceText(spokenName));
    return menu.release();
}

} // namespace

Menus createMenus(QWidget& owner) {
    constexpr const char* tableAction = "actionMenuTableContext:";
    Menus menus;
    menus.quorviMenuCommands = addMenu(owner, "quorviMenuCommands", "Functions");
    addGroups(*menus.quorviMenuCommands, buttonMenuGroups(), false);
    menus.quorviMenuWheelCommands = addMenu(owner, "quorviMenuWheelCommands", "Functions");
    addGroups(*menus.quorviMenuWheelCommands, wheelMenuGroups(), true);
    menus.quorviMenuProfiles = addMenu(owner, "quorviMenuProfiles", "Profiles");
    menus.quorviMenuProfileGear = addMenu(owner, "quorviMenuProfileGear", "Profile commands");
    addEntries(*menus.quorviMenuProfileGear, kProfileEntries, tableAction);
    menus.quorviMenuMacroGear = addMenu(owner, "quorviMenuMacroGear", "Macro commands");
    addEntries(*menus.quorviMenuMacroGear, kMacroEntries, tableAction);
    menus.quorviMenuStepGear = addMenu(owner, "quorviMenuStepGear", "Step commands");
    addEntries(*menus.quorviMenuStepGear, kStepEntries, tableAction);
    menus.quorviMenuStepDelay = addMenu(owner, "quorviMenuStepDelay", "Delay After");
    addEntries(*menus.quorviMenuStepDelay, kDelayEntries, nullptr);
    return menus;
}

std::unique_ptr<QMenu> createPollingRateMenu() {
    auto menu = std::make_unique<QMenu>();
    addEntries(*menu, kPollingRateEntries, nullptr);
    return menu;
}

} // namespace quorvi
