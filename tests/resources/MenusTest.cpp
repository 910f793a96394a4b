#include "resources/Menus.h"

#include <set>
#include <type_traits>

#include "model/CommandCodes.h"
#include "model/Commands.h"
#include "model/ConfigRecord.h"
#include "widgets/MenuItems.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;

static_assert(std::is_same_v<decltype(Command::code), decltype(ButtonAssignment::command)>,
    "every code fits the byte that the record has for it");

namespace {

QList<int> tagsOf(const QMenu& menu) {
    QList<int> tags;
    for (const QAction* item : selectableItems(menu))
        tags << tagOfItem(*item).value_or(-99);
    return tags;
}

std::set<int> asSet(const QList<int>& list) {
    return {list.begin(), list.end()};
}

bool everyItemSends(const QMenu& menu, const QString& action) {
    for (const QAction* item : selectableItems(menu)) {
        if (item->property("action").toString() != action)
            return false;
    }
    return true;
}

} // namespace

class MenusTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { m_menus = createMenus(m_owner); }

    void menusAreNamedAndOwned() {
        for (const char* name : {"quorviMenuCommands", "quorviMenuWheelCommands", "quorviMenuProfileGear",
                 "quorviMenuMacroGear", "quorviMenuStepGear", "quorviMenuStepDelay"})
            QCOMPARE(m_owner.findChildren<QMenu*>(name).size(), 1);
    }

    void gearMenusHoldTheItemsOfTheirTable() {
        QCOMPARE(tagsOf(*m_menus.quorviMenuProfileGear), QList<int>({11, 15, 14, 16, 17, 12, 13, 18}));
        QCOMPARE(tagsOf(*m_menus.quorviMenuMacroGear), QList<int>({21, 24, 22, 23}));
        QCOMPARE(tagsOf(*m_menus.quorviMenuStepGear),
            QList<int>({31, 32, 320, 321, 322, 323, 324, 325, 326, 327, 330, 331, 332, 333, 334, 335, 336,
                337, 308, 33, 34, 35, 307, 36, 301, 302, 303, 304, 305, 306}));
        const QString action = "actionMenuTableContext:";
        QVERIFY(everyItemSends(*m_menus.quorviMenuProfileGear, action));
        QVERIFY(everyItemSends(*m_menus.quorviMenuMacroGear, action));
        QVERIFY(everyItemSends(*m_menus.quorviMenuStepGear, action));
    }

    void delaysRunFromShortToLong() {
        const QMenu& menu = *m_menus.quorviMenuStepDelay;
        QCOMPARE(tagsOf(menu),
            QList<int>({0, 10, 20, 30, 40, 50, 100, 150, 200, 300, 400, 500, 1000, 2000, 3000, 4000, 5000}));
        QCOMPARE(menu.actions().size(), 17); // no separator: an item's index is the value of a cell
        QCOMPARE(indexOfItemWithTag(menu, 150), 7);
        QCOMPARE(titleOfItem(*menu.actions().at(11)), QString("½ second"));
    }

    void pollingRatesAreTheThreeOfTheMouse() {
        QCOMPARE(tagsOf(*createPollingRateMenu()), QList<int>({125, 500, 1000}));
    }

    void buttonsOfferEveryCommand() {
        std::set<int> codes;
        for (const Command& command : commandTable())
            codes.insert(command.code);
        QCOMPARE(asSet(tagsOf(*m_menus.quorviMenuCommands)), codes);
        QCOMPARE(tagsOf(*m_menus.quorviMenuCommands).size(), int(codes.size()));
    }

    void wheelOffersWhatNeedsNoRelease() {
        std::set<int> codes;
        for (const Command& command : commandTable()) {
            if (command.inputs == CommandInputs::ButtonsAndWheel)
                codes.insert(command.code);
        }
        QCOMPARE(asSet(tagsOf(*m_menus.quorviMenuWheelCommands)), codes);
        for (int clickOrHold : {1, 2, 3, 4, 19})
            QVERIFY(!codes.count(clickOrHold));
        for (int needed : {0, 8, 9, 34, 49, 65})
            QVERIFY(codes.count(needed));
    }

    void commandMenusStayShort() {
        QVERIFY(m_menus.quorviMenuCommands->actions().size() <= 22);
        QVERIFY(m_menus.quorviMenuWheelCommands->actions().size() <= 22);
    }

    void whatTheControllerLooksForIsInTheMenuItself() {
        for (const QMenu* menu : {m_menus.quorviMenuCommands, m_menus.quorviMenuWheelCommands}) {
            for (int code :
                {commands::noFunction, commands::switchToProfile, commands::singleKey, commands::runMacro})
                QVERIFY(itemWithTag(*menu, code));
        }
    }

    void listsBeginWithAFixedEntryAndASeparator_data() {
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("action");
        QTest::newRow("profiles") << commands::switchToProfile << "Edit Profiles…"
                                  << "actionSubmenuButtonProfile:";
        QTest::newRow("macros") << commands::runMacro << "Edit Macros…"
                                << "actionSubmenuButtonMacro:";
    }

    void listsBeginWithAFixedEntryAndASeparator() {
        QFETCH(int, code);
        QFETCH(QString, title);
        QFETCH(QString, action);
        for (const QMenu* menu : {m_menus.quorviMenuCommands, m_menus.quorviMenuWheelCommands}) {
            const QList<QAction*> items = itemWithTag(*menu, code)->menu()->actions();
            QCOMPARE(items.size(), 2);
            QCOMPARE(titleOfItem(*items.at(0)), title);
            QCOMPARE(tagOfItem(*items.at(0)), std::optional(-1));
            QCOMPARE(items.at(0)->property("action").toString(), action);
            QVERIFY(items.at(1)->isSeparator());
        }
    }

    void codesAndTitlesAreDifferent() {
        std::set<int> codes;
        std::set<QString> titles;
        for (const Command& command : commandTable()) {
            QVERIFY2(codes.insert(command.code).second, command.title);
            QVERIFY2(titles.insert(command.title).second, command.title);
        }
    }

    void codesNeverChange_data() {
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("title");
        const std::pair<int, const char*> known[] = {{0, "No Function"}, {1, "Primary Click"},
            {2, "Secondary Click"}, {3, "Middle Click"}, {4, "Double Click"}, {5, "Back"}, {6, "Forward"},
            {8, "Scroll Up"}, {9, "Scroll Down"}, {10, "Scroll Left"}, {11, "Scroll Right"},
            {16, "Sensitivity Up"}, {17, "Sensitivity Down"}, {18, "Next Stage"},
            {19, "Lowest Stage While Held"}, {32, "Next Profile"}, {33, "Previous Profile"},
            {34, "Switch to Profile"}, {49, "Press Key"}, {65, "Run Macro"}, {80, "Play or Pause"},
            {81, "Next Track"}, {82, "Previous Track"}, {83, "Stop Playing"}, {84, "Volume Up"},
            {85, "Volume Down"}, {86, "Mute"}, {96, "Page Up"}, {97, "Page Down"}, {98, "Home"}, {99, "End"},
            {100, "Next Tab"}, {101, "Previous Tab"}, {102, "Zoom In"}, {103, "Zoom Out"}, {112, "Copy"},
            {113, "Cut"}, {114, "Paste"}, {115, "Undo"}, {116, "Redo"}, {117, "Select All"},
            {128, "Show Desktop"}, {129, "Switch Window"}, {130, "Close Window"}, {131, "Take Screenshot"},
            {132, "Lock Screen"}};
        for (const auto& [code, title] : known)
            QTest::newRow(title) << code << title;
        QCOMPARE(std::size(known), commandTable().size());
    }

    void codesNeverChange() {
        QFETCH(int, code);
        QFETCH(QString, title);
        QVERIFY(findCommand(code));
        QCOMPARE(QString(findCommand(code)->title), title);
    }

    void codesThatThePanelKnowsMeanWhatItTakesThemFor() {
        QCOMPARE(commands::noFunction, 0);
        QCOMPARE(commands::click, 1);
        QCOMPARE(commands::switchToProfile, 34);
        QCOMPARE(commands::singleKey, 49);
        QCOMPARE(commands::runMacro, 65);
    }

    void menusGoThroughTheTableInItsOrder() {
        QList<int> codes;
        for (const Command& command : commandTable())
            codes << command.code;
        QCOMPARE(tagsOf(*m_menus.quorviMenuCommands), codes);
    }

    void groupsOfTheTableAreWhole() {
        std::set<CommandGroup> finished;
        CommandGroup current = commandTable().front().group;
        for (const Command& command : commandTable()) {
            if (command.group == current)
                continue;
            finished.insert(current);
            current = command.group;
            QVERIFY2(!finished.count(current), command.title);
        }
    }

    void unknownCodeHasNoCommand() {
        QVERIFY(!findCommand(7));
        QVERIFY(!findCommand(-1));
        QVERIFY(!findCommand(256));
    }

  private:
    QWidget m_owner;
    Menus m_menus;
};

QUORVI_WIDGET_TEST_MAIN(MenusTest)
#include "MenusTest.moc"
