// The macros tab with its menus, questions and recordings, operated by a screen reader.

#include <QFile>
#include <QTest>

#include <array>

#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "walk/Controls.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

const QString kDelete = QStringLiteral("push button 'Delete'");
const QString kTold = QStringLiteral("push button 'Close message'"); // of the bar above the page
const QString kCancel = QStringLiteral("push button 'Cancel'");
const QString kFileName = QStringLiteral("text 'File name:'");
constexpr char kQuestion[] = "Please Confirm";
constexpr char kMacros[] = "Macro commands";
constexpr char kSteps[] = "Step commands";
constexpr char kStepTable[] = "Steps of the macro";
const QString kRecord = QStringLiteral("check box 'Record'");
const QString kTrial = QStringLiteral("text 'Try the macro'");
const QString kStop = QStringLiteral("check box 'Stop'");
const QString kTimeline = QStringLiteral("list 'Timeline of the macro'");
const QString kTimelineStep = QStringLiteral("list item 'Timeline of the macro'"); // the last one

struct MacrosTab {
    MacrosTab() {
        if (!walk.openTab("Macros"))
            qFatal("the tab does not come");
    }

    Walk walk{settingsToWalkIn()};
    Controls controls{walk};

    /// Opens the menu of a gear and chooses that.
    [[nodiscard]] bool choose(const char* menu, const char* title, const Controls::Effect& effect) {
        const bool macros = menu == kMacros;
        const QString first = itemOf({menu, macros ? "New Macro" : "Remove Step"});
        const QString gear =
            macros ? "push button 'More macro commands'" : "push button 'More step commands'";
        return controls.press(gear, controls.shows(first)) && controls.choose({menu, title}, effect) &&
               controls.goes(first);
    }
    /// The same in a submenu of the menu of steps.
    [[nodiscard]] bool insert(const char* submenu, const char* title, const Controls::Effect& effect) {
        const QString first = itemOf({kSteps, submenu});
        return controls.press("push button 'More step commands'", controls.shows(first)) &&
               controls.choose({kSteps, submenu, title}, effect) && controls.goes(first);
    }
    [[nodiscard]] Controls::Effect named(const QStringList& expected) const {
        return [this, expected] {
            QStringList names;
            const auto macros = walk.session().home.savedSettings().array("macros");
            for (std::size_t index = 0; index < macros.size(); ++index)
                names << QString::fromStdU16String(macros.dictionary(index).string("name"));
            return names == expected;
        };
    }
    /// Ends the edit of the name that follows.
    void finishName() {
        static_cast<void>(controls.find("text 'Macro'"));
        walk.press({"Return"});
        if (!controls.goes("text 'Macro'"))
            qFatal("the edit does not end");
    }
    [[nodiscard]] bool selectMacro(int row) {
        const Accessible table = controls.find("table 'Macros'");
        return table.selectRow(row) && !controls.find("table 'Steps of the macro'").isNull();
    }
    [[nodiscard]] Accessible stepTable() { return controls.find("table 'Steps of the macro'"); }
    [[nodiscard]] Controls::Effect stepSelected(int row) {
        return [this, row] { return stepTable().selectedRows() == std::vector{row}; };
    }
    /// What the list says of the steps.
    [[nodiscard]] QStringList shownSteps() {
        const Accessible table = stepTable();
        QStringList steps;
        for (int row = 0; row < table.rows(); ++row)
            steps << QString::fromStdString(table.cell(row, 0).name());
        return steps;
    }
    [[nodiscard]] Controls::Effect showsSteps(const QStringList& expected) {
        return [this, expected] { return shownSteps() == expected; };
    }
    /// The steps of the first macro in the file have these delays, in milliseconds.
    [[nodiscard]] Controls::Effect savedDelays(const QList<int>& expected) const {
        return [this, expected] {
            const auto steps = walk.savedItem("macros", 0).array("steps");
            QList<int> delays;
            for (std::size_t index = 0; index < steps.size(); ++index)
                delays << steps.dictionary(index).integer("delay");
            return delays == expected;
        };
    }
};

} // namespace

class SpokenMacrosTest : public QObject {
    Q_OBJECT

    static void selectSteps(MacrosTab& tab) {
        QVERIFY(tab.controls.selectRow(kStepTable, 1, tab.stepSelected(1)));
        QVERIFY(tab.controls.performCell(kStepTable, 0, "Action", "Toggle", tab.stepSelected(0)));
    }

    /// Every delay of the pop-up in the list, for the second step, which has 50 milliseconds then.
    static void chooseDelays(MacrosTab& tab) {
        const QStringList titles{"10 ms", "20 ms", "30 ms", "40 ms", "100 ms", "150 ms", "200 ms", "300 ms",
            "400 ms", "½ second", "1 second", "2 seconds", "3 seconds", "4 seconds", "5 seconds", "None",
            "50 ms"};
        const Accessible table = tab.stepTable();
        for (const QString& title : titles) {
            const QStringList way{"Delay After", title};
            QVERIFY(tab.controls.performCell(
                kStepTable, 1, "Delay After", "ShowMenu", tab.controls.shows(itemOf(way))));
            QVERIFY(tab.controls.choose(way, [&] { return table.cell(1, 1).name() == title.toStdString(); }));
            QVERIFY2(tab.controls.goes(itemOf(way)), qPrintable(title));
        }
    }

    static void setDelaysOfAllSteps(MacrosTab& tab) {
        QCOMPARE(tab.stepTable().selectedRows(), std::vector{1});
        // Nothing follows the last step.
        QVERIFY(tab.choose(kSteps, "Use This Delay for All Steps", tab.savedDelays({50, 50, 0})));
        QVERIFY(tab.choose(kSteps, "Remove All Delays", tab.savedDelays({0, 0, 0})));
    }

    /// Of three steps without delays.
    static void useTheTimeline(MacrosTab& tab) {
        Controls& controls = tab.controls;
        const auto focused = [&] { return controls.find(kTimeline).is(AccessibleState::focused); };
        QVERIFY(controls.perform(kTimeline, "SetFocus", focused));
        const Accessible last = controls.find(kTimelineStep);
        QCOMPARE(last.name(), std::string("Step 3 of 3: ") + tab.shownSteps().at(2).toStdString());
        QVERIFY(controls.press(kTimelineStep, tab.stepSelected(2)));
        QVERIFY(last.is(AccessibleState::selected));
        QVERIFY(controls.perform(kTimelineStep, "Increase", tab.savedDelays({0, 0, 10})));
        QVERIFY(QString::fromStdString(last.name()).endsWith(", then 10 ms"));
        QVERIFY(controls.perform(kTimelineStep, "Decrease", tab.savedDelays({0, 0, 0})));
    }

    static void recordByTheButtons(MacrosTab& tab) {
        Controls& controls = tab.controls;
        QStringList steps = tab.shownSteps();
        QVERIFY(controls.perform(kRecord, "Toggle", controls.shows(kStop)));
        QVERIFY(xdotool({"key", "x"}));
        steps << "Press x"
              << "Release x";
        QTRY_COMPARE(tab.shownSteps(), steps);
        QVERIFY(controls.perform(kStop, "Toggle", controls.shows(kRecord)));
        QVERIFY(controls.press("push button 'Add steps'", controls.shows(kStop)));
        QVERIFY(xdotool({"key", "y"}));
        steps << "Press y"
              << "Release y";
        QTRY_COMPARE(tab.shownSteps(), steps);
        QVERIFY(controls.perform(kStop, "Toggle", controls.shows(kRecord)));
    }

    static void recordByTheMenu(MacrosTab& tab) {
        Controls& controls = tab.controls;
        QStringList steps = tab.shownSteps();
        QVERIFY(tab.choose(kSteps, "Record", controls.shows(kStop)));
        QVERIFY(xdotool({"key", "z"}));
        steps << "Press z"
              << "Release z";
        QTRY_COMPARE(tab.shownSteps(), steps);
        QVERIFY(!controls.find("push button 'More step commands'").is(AccessibleState::enabled));
        QVERIFY(controls.perform(kStop, "Toggle", controls.shows(kRecord)));
        // A step that is recorded again takes its other half along, and the recording ends with it.
        QVERIFY(controls.selectRow(kStepTable, 3, tab.stepSelected(3)));
        QVERIFY(tab.choose(kSteps, "Record Step Again", controls.shows(kStop)));
        QVERIFY(xdotool({"key", "v"}));
        steps[3] = "Press v";
        steps[4] = "Release v";
        QTRY_COMPARE(tab.shownSteps(), steps);
        QVERIFY(!controls.find(kRecord).isNull());
    }

    /// The first step is a press alone.
    static void mendStep(MacrosTab& tab) {
        QStringList steps = tab.shownSteps();
        QVERIFY(tab.controls.selectRow(kStepTable, 0, tab.stepSelected(0)));
        const QString press = steps.first();
        QVERIFY(press.startsWith(QLatin1String("Press ")));
        steps << "Release " + press.mid(6);
        QVERIFY(tab.controls.press("push button 'Add the Missing Release'", tab.showsSteps(steps)));
        QCOMPARE(tab.stepTable().selectedRows(), std::vector{int(steps.size()) - 1});
    }

    static void removeSteps(MacrosTab& tab) {
        QStringList steps = tab.shownSteps();
        QVERIFY(tab.controls.selectRow(kStepTable, 0, tab.stepSelected(0)));
        steps.removeFirst();
        QVERIFY(tab.controls.press("push button 'Remove step'", tab.showsSteps(steps)));
        steps.removeFirst();
        QVERIFY(tab.choose(kSteps, "Remove Step", tab.showsSteps(steps)));
        QVERIFY(tab.choose(kSteps, "Remove All Steps", tab.savedDelays({})));
        QCOMPARE(tab.shownSteps(), QStringList());
    }

    /// The first two steps are presses alone; the fourth and the fifth are a key that goes down and up.
    static void editSteps(MacrosTab& tab) {
        const QStringList steps = tab.shownSteps();
        QStringList moved = steps;
        moved.move(0, 1);
        QVERIFY(tab.controls.selectRow(kStepTable, 0, tab.stepSelected(0)));
        QVERIFY(tab.choose(kSteps, "Move Step Down", tab.showsSteps(moved)));
        QCOMPARE(tab.stepTable().selectedRows(), std::vector{1});
        QVERIFY(tab.choose(kSteps, "Move Step Up", tab.showsSteps(steps)));
        QCOMPARE(tab.stepTable().selectedRows(), std::vector{0});
        QStringList doubled = steps;
        doubled.insert(5, steps.at(3));
        doubled.insert(6, steps.at(4));
        QVERIFY(tab.controls.selectRow(kStepTable, 3, tab.stepSelected(3)));
        QVERIFY(tab.choose(kSteps, "Duplicate Step", tab.showsSteps(doubled)));
        QCOMPARE(tab.stepTable().selectedRows(), std::vector{5});
        QVERIFY(tab.choose(kSteps, "Cut Step", tab.showsSteps(steps)));
        QVERIFY(tab.controls.selectRow(kStepTable, 4, tab.stepSelected(4)));
        QVERIFY(tab.choose(kSteps, "Paste Steps", tab.showsSteps(doubled)));
        QCOMPARE(tab.stepTable().selectedRows(), std::vector{6});
        QVERIFY(tab.choose(kSteps, "Cut Step", tab.showsSteps(steps)));
    }

    /// At the fourth step; each insertion is cut out again.
    static void insertSteps(MacrosTab& tab) {
        Controls& controls = tab.controls;
        const QStringList steps = tab.shownSteps();
        const std::array buttons{"Button 1 (Left)", "Button 2 (Right)", "Button 3 (Middle)",
            "Button 4 (Back)", "Button 5 (Forward)"};
        const auto holds = [&](const char* field, const char* text) {
            return [&controls, field, text] { return controls.find(field).text() == text; };
        };
        int place = 3;
        for (const char* submenu : {"Insert Before", "Insert After"}) {
            const auto with = [&](const QString& press, const QString& release) {
                QStringList inserted = steps;
                inserted.insert(place, press);
                inserted.insert(place + 1, release);
                return tab.showsSteps(inserted);
            };
            const auto select = [&] { return controls.selectRow(kStepTable, 3, tab.stepSelected(3)); };
            for (std::size_t number = 0; number < buttons.size(); ++number) {
                QVERIFY(select());
                const QString press = QStringLiteral("Press button %1").arg(number + 1);
                QVERIFY(tab.insert(submenu, buttons[number], with(press, "Release button")));
                QCOMPARE(tab.stepTable().selectedRows(), std::vector({place, place + 1}));
                QVERIFY(tab.choose(kSteps, "Cut Steps", tab.showsSteps(steps)));
            }
            QVERIFY(select());
            QVERIFY(tab.insert(submenu, "Record Here", controls.shows(kStop)));
            QVERIFY(xdotool({"key", "q"}));
            QTRY_VERIFY(with("Press q", "Release q")());
            QVERIFY(controls.perform(kStop, "Toggle", controls.shows(kRecord)));
            QVERIFY(tab.choose(kSteps, "Cut Step", tab.showsSteps(steps)));
            QVERIFY(select());
            QVERIFY(tab.insert(submenu, "Key…", controls.opens("Press Key")));
            QVERIFY(controls.press(kCancel, controls.closes("Press Key")));
            QVERIFY(tab.insert(submenu, "Pause…", controls.shows("text 'Delay After'")));
            QVERIFY(controls.type("text 'Delay After'", "75 ms", holds("text 'Delay After'", "75 ms")));
            tab.walk.press({"Escape"});
            QVERIFY(controls.goes("text 'Delay After'"));
            ++place;
        }
        QVERIFY(tab.choose(kSteps, "Multiply Delays…", controls.opens("Multiply Delays")));
        QVERIFY(controls.type("text 'Factor'", "2", holds("text 'Factor'", "2")));
        QVERIFY(controls.press("push button 'OK'", controls.closes("Multiply Delays")));
    }

    /// Of a macro without steps.
    static void insertAndTryText(MacrosTab& tab) {
        Controls& controls = tab.controls;
        const QString field = QStringLiteral("text 'Text for the macro to type'");
        QVERIFY(tab.choose(kSteps, "Insert Text…", controls.opens("Insert Text")));
        QVERIFY(controls.type(field, "hi", [&] { return controls.find(field).text() == "hi"; }));
        QVERIFY(controls.press(
            "push button 'Insert'", tab.showsSteps({"Press h", "Release h", "Press i", "Release i"})));
        QVERIFY(controls.perform(
            "check box 'Play'", "Toggle", [&] { return controls.find(kTrial).text() == "hi"; }));
        QVERIFY(controls.type(kTrial, "ho", [&] { return controls.find(kTrial).text() == "ho"; }));
    }

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display");
    }

    void everyControlOfTheListIsOperated() {
        MacrosTab tab;
        Controls& controls = tab.controls;
        QCOMPARE(controls.meet(), QString());
        const auto selected = [&](int row) {
            return [&, row] { return controls.find("table 'Macros'").selectedRows() == std::vector{row}; };
        };
        QVERIFY(controls.selectRow("Macros", 1, selected(1)));
        QVERIFY(controls.performCell("Macros", 0, "Macro", "Toggle", selected(0)));
        QVERIFY(controls.performCell("Macros", 0, "Macro", "Press", controls.shows("text 'Macro'")));
        QVERIFY(controls.type(
            "text 'Macro'", "Bye", [&] { return controls.find("text 'Macro'").text() == "Bye"; }));
        tab.finishName();
        QVERIFY(!tab.walk.thing("cell 'Bye'").isNull());

        QVERIFY(controls.press("push button 'Add macro'", tab.named({"Bye", "Greet", "Untitled Macro"})));
        tab.finishName();
        QVERIFY(controls.press("push button 'Delete macro'", controls.opens(kQuestion)));
        QCOMPARE(controls.meet(), QString());
        QCOMPARE(tab.walk.focusBecomes(kCancel), kCancel);
        QCOMPARE(defaultButtonOf(tab.walk.reader().window(kQuestion)), kCancel);
        tab.walk.press({"Escape"});
        QTRY_VERIFY(controls.closes(kQuestion)());
        QVERIFY(controls.press("push button 'Delete macro'", controls.opens(kQuestion)));
        QVERIFY(controls.press(kDelete, tab.named({"Bye", "Greet"})));

        QVERIFY(tab.selectMacro(0));
        QVERIFY(tab.choose(kMacros, "New Macro", tab.named({"Bye", "Greet", "Untitled Macro"})));
        tab.finishName();
        QVERIFY(tab.choose(kMacros, "Delete Macro…", controls.opens(kQuestion)));
        QVERIFY(controls.press(kCancel, controls.closes(kQuestion)));
        QVERIFY(tab.selectMacro(0));
        const QString file = QString::fromStdString(tab.walk.session().home.path()) + "/a.quorviMacro";
        const auto holdsFile = [&] { return controls.find(kFileName).text() == file.toStdString(); };
        QVERIFY(tab.choose(kMacros, "Export Macro…", controls.opens("Export Macro")));
        QVERIFY(controls.type(kFileName, file, holdsFile));
        QVERIFY(controls.press("push button 'Save'", [&] { return QFile::exists(file); }));
        QVERIFY(controls.press(kTold, [&] { return !controls.isThere(kTold); }));
        QVERIFY(tab.choose(kMacros, "Import Macro…", controls.opens("Import Macro")));
        QVERIFY(controls.type(kFileName, file, holdsFile));
        QVERIFY(controls.press("push button 'Open'", tab.named({"Bye", "Greet", "Untitled Macro", "Bye 2"})));

        QStringList leftOut = Controls::around(); // of the steps
        for (const char* control : {"table 'Steps of the macro'", "cell 'Steps of the macro › Action'",
                 "cell 'Steps of the macro › Delay After'", "push button 'Add the Missing Release'",
                 "push button 'Add steps'", "push button 'Remove step'", "push button 'More step commands'",
                 "check box 'Record'", "check box 'Play'"})
            leftOut << control;
        leftOut << kTrial << kTimeline << kTimelineStep;
        QCOMPARE(controls.forgotten(leftOut), QStringList());
    }

    void everyControlOfTheStepsIsOperated() {
        MacrosTab tab;
        QVERIFY(tab.selectMacro(0));
        QCOMPARE(tab.controls.meet(), QString());
        for (auto* part : {selectSteps, chooseDelays, setDelaysOfAllSteps, useTheTimeline, recordByTheButtons,
                 recordByTheMenu, editSteps, insertSteps, mendStep, removeSteps}) {
            part(tab);
            if (QTest::currentTestFailed())
                return;
        }
        QCOMPARE(tab.controls.meet(), QString());
        // That all steps were removed is told, and can be undone there.
        QVERIFY(tab.controls.press(kTold, [&] { return !tab.controls.isThere(kTold); }));
        insertAndTryText(tab);
        if (QTest::currentTestFailed())
            return;
        QStringList leftOut = Controls::around();
        leftOut << itemOf({"Step commands", "Copy Step"}); // changes nothing that can be heard; as "Cut Step"
        for (const char* title : {"Remove Steps", "Move Steps Up", "Move Steps Down", "Copy Steps",
                 "Duplicate Steps"}) // as for one step
            leftOut << itemOf({kSteps, title});
        leftOut << "text 'Key'"; // of the sheet for a key, which is operated with the buttons
        for (const char* control : {"table 'Macros'", "cell 'Macros › Macro'", "push button 'Add macro'",
                 "push button 'Delete macro'", "push button 'More macro commands'"})
            leftOut << control; // everyControlOfTheListIsOperated
        QCOMPARE(tab.controls.forgotten(leftOut), QStringList());
    }
};

QUORVI_SESSION_TEST_MAIN(SpokenMacrosTest)
#include "SpokenMacrosTest.moc"
