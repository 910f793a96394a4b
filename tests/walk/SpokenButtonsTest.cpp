// The buttons tab and the sheet for a key, operated by a screen reader: every item of every pop-up.

#include <QTest>

#include "model/Commands.h"
#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "walk/Controls.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

/// How the menus of the inputs are heard, in their order.
constexpr std::array kMenus{"Function of the left button", "Function of the right button",
    "Function of the wheel button", "Function of the rear side button", "Function of the front side button",
    "Function of the front top button", "Function of the rear top button", "Function of turning the wheel up",
    "Function of turning the wheel down"};
constexpr int kWheelUp = 8;

int codeOf(const QString& title) {
    for (const Command& command : commandTable())
        if (title == QLatin1String(command.title))
            return command.code;
    return -1;
}

/// Where the record holds the command of an input of the first profile, and behind it two parameters.
int placeInRecord(int input) {
    constexpr int kFirstCommand = 233;
    constexpr int kBytesOfAnInput = 4;
    return kFirstCommand + (input - 1) * kBytesOfAnInput;
}

/// The buttons tab of the program.
struct ButtonsTab {
    Walk walk{settingsToWalkIn()};
    Controls controls{walk};

    static QString popUp(int input) { return inputPopUps().at(input - 1); }
    static QStringList way(int input, const QStringList& titles) {
        return QStringList(QString(kMenus.at(std::size_t(input - 1)))) + titles;
    }
    [[nodiscard]] bool open(int input) {
        return controls.perform(
            popUp(input), "ShowMenu", controls.shows(itemOf(way(input, {"No Function"}))));
    }
    [[nodiscard]] bool choose(int input, const QStringList& titles, const Controls::Effect& effect) {
        return open(input) && controls.choose(way(input, titles), effect) &&
               controls.goes(itemOf(way(input, {"No Function"})));
    }
    /// The input has that function and first parameter, in the file and in the mouse.
    [[nodiscard]] Controls::Effect assigned(int input, int code, int parameter = 0) const {
        return [=, this] {
            const auto saved =
                walk.savedItem("profiles", 0).dictionary("buttons").dictionary("0" + std::to_string(input));
            if (saved.integer("command") != code || saved.integer("param1") != parameter)
                return false;
            const auto record = walk.session().record();
            const auto place = std::size_t(placeInRecord(input));
            return record.size() > place + 1 && record[place] == code && record[place + 1] == parameter;
        };
    }
    /// Chooses that, after another function when it is what the input does already.
    [[nodiscard]] bool assign(int input, const QStringList& titles) {
        const auto effect = assigned(input, codeOf(titles.last()));
        const int other = codeOf("Zoom In");
        return (!effect() || choose(input, {"Navigation", "Zoom In"}, assigned(input, other))) &&
               choose(input, titles, effect);
    }
};

/// The titles of all items below, shown or not, with the way to each.
QStringList titlesBelow(const Accessible& thing, const QString& way = {}) {
    QStringList titles;
    for (const Accessible& child : thing.children()) {
        const bool item = child.role() == "menu item";
        const QString title = item ? way + "/" + QString::fromStdString(child.name()) : way;
        if (item)
            titles << title;
        titles << titlesBelow(child, title);
    }
    return titles;
}

} // namespace

class SpokenButtonsTest : public QObject {
    Q_OBJECT

    /// Opens every group of the menu, and gives the ways to all functions that are met.
    static QList<QStringList> functionsOf(ButtonsTab& tab, int input, const QStringList& groups) {
        QList<QStringList> functions;
        if (!tab.open(input))
            return {};
        for (const QString& group : groups)
            if (!tab.controls.perform(itemOf(tab.way(input, {group})), "ShowMenu", [&] {
                    const QString wrong = tab.controls.meetMenu();
                    return wrong.isEmpty() &&
                           !tab.controls.met().filter(tab.way(input, {group, ""}).join(" › ")).isEmpty();
                }))
                return {};
        tab.walk.press({"Escape", "Escape"});
        if (!tab.controls.goes(itemOf(tab.way(input, {"No Function"}))))
            return {};
        const QString menu = itemOf(tab.way(input, {QString()})).chopped(1);
        for (const QString& control : tab.controls.met()) {
            if (!control.startsWith(menu))
                continue;
            const QStringList titles = control.mid(menu.size()).chopped(1).split(" › ");
            if (!groups.contains(titles.last()))
                functions << titles;
        }
        return functions;
    }

    static void chooseKey(ButtonsTab& tab, int input) {
        constexpr int kUsageOfK = 0x0E;
        Controls& controls = tab.controls;
        for (const char* answer : {"push button 'Cancel'", "push button 'OK'"}) {
            QVERIFY(tab.choose(input, {"Press Key"}, controls.opens("Press Key")));
            QCOMPARE(controls.meet(), QString());
            QCOMPARE(tab.walk.focusBecomes("push button 'OK'"), QStringLiteral("push button 'OK'"));
            // Every key goes into the field, Escape and Return too.
            const Accessible field = tab.controls.find("text 'Key'");
            for (const char* key : {"Escape", "Return", "k"}) {
                const std::string before = field.text();
                tab.walk.press({key});
                QTRY_VERIFY(field.text() != before);
            }
            const auto assigned = tab.assigned(input, codeOf("Press Key"), kUsageOfK);
            QVERIFY(controls.press(answer, [&] {
                return controls.closes("Press Key")() &&
                       assigned() == (QString(answer) == "push button 'OK'");
            }));
        }
    }

    static void chooseFromTheLists(ButtonsTab& tab, int input) {
        for (const auto& [macro, number] : {std::pair{"Hello", 1}, {"Greet", 2}})
            QVERIFY(
                tab.choose(input, {"Run Macro", macro}, tab.assigned(input, codeOf("Run Macro"), number)));
        for (const auto& [profile, number] : {std::pair{"Default Profile", 1}, {"Game", 2}, {"Work", 3}})
            QVERIFY(tab.choose(input, {"Switch to Profile", profile},
                tab.assigned(input, codeOf("Switch to Profile"), number)));
        // The heads of the lists lead to the tabs where those are edited.
        const Accessible tabs = tab.controls.find("page tab list");
        for (const auto& [list, title, front] : {std::tuple{"Run Macro", "Edit Macros…", "Macros"},
                 {"Switch to Profile", "Edit Profiles…", "Profiles"}}) {
            QVERIFY(tab.choose(
                input, {list, title}, [&, name = std::string(front)] { return tabs.name() == name; }));
            QVERIFY(tab.walk.openTab("Buttons"));
        }
    }

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display");
    }

    void everyFunctionIsChosen_data() {
        QTest::addColumn<int>("input");
        QTest::newRow("a button") << 4;
        QTest::newRow("the wheel") << kWheelUp;
    }

    void everyFunctionIsChosen() {
        QFETCH(int, input);
        const QStringList lists{"Run Macro", "Switch to Profile"};
        QStringList groups{"Sensitivity", "Media", "Navigation", "Editing", "Desktop"};
        if (input != kWheelUp)
            groups.prepend("Scrolling");
        ButtonsTab tab;
        QCOMPARE(tab.controls.meet(), QString());
        const auto functions = functionsOf(tab, input, groups + lists);
        QVERIFY(functions.size() > 30);
        for (const QStringList& titles : functions)
            if (titles.last() != "Press Key" && !lists.contains(titles.first()))
                QVERIFY2(tab.assign(input, titles), qPrintable(titles.join("/")));
        chooseKey(tab, input);
        chooseFromTheLists(tab, input);
        QStringList leftOut = Controls::around();
        leftOut << "text 'Key'"; // shows the key that was pressed
        for (int other = 1; other <= int(kMenus.size()); ++other)
            if (other != input)
                leftOut << ButtonsTab::popUp(other); // everyOtherPopUpOpensTheSameMenu
        QCOMPARE(tab.controls.forgotten(leftOut), QStringList());
    }

    void everyOtherPopUpOpensTheSameMenu() {
        ButtonsTab tab;
        // The left button can be changed while another one clicks.
        QVERIFY(tab.choose(4, {"Primary Click"}, tab.assigned(4, codeOf("Primary Click"))));
        for (const auto& [walked, others] :
            {std::pair{4, QList<int>{1, 2, 3, 5, 6, 7}}, {kWheelUp, QList<int>{9}}}) {
            QVERIFY(tab.open(walked));
            const auto menuOf = [&](int input) {
                return tab.controls.find(itemOf(tab.way(input, {"No Function"}))).parent();
            };
            const QStringList titles = titlesBelow(menuOf(walked));
            QVERIFY(titles.size() > 40);
            tab.walk.press({"Escape"});
            QVERIFY(tab.controls.goes(itemOf(tab.way(walked, {"No Function"}))));
            for (const int input : others) {
                QVERIFY(tab.open(input));
                QCOMPARE(titlesBelow(menuOf(input)), titles);
                QVERIFY(tab.controls.choose(
                    tab.way(input, {"Media", "Mute"}), tab.assigned(input, codeOf("Mute"))));
                QVERIFY(tab.controls.goes(itemOf(tab.way(input, {"No Function"}))));
                // The pop-up says what it is set to.
                QTRY_COMPARE(tab.controls.find(tab.popUp(input)).name(), std::string("Mute"));
            }
        }
    }
};

QUORVI_SESSION_TEST_MAIN(SpokenButtonsTest)
#include "SpokenButtonsTest.moc"
