// The macros tab with its menus, questions and recordings, operated by a screen reader.

#include <QFile>
#include <QTest>

#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "walk/Controls.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

const QString kOK = QStringLiteral("push button 'OK'");
const QString kCancel = QStringLiteral("push button 'Cancel'");
const QString kFileName = QStringLiteral("text 'File name:'");
constexpr char kQuestion[] = "Please Confirm";
constexpr char kMacros[] = "Macro commands";

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
        const QString first = itemOf({menu, macros ? "New Macro" : "Record"});
        const QString gear =
            macros ? "push button 'More macro commands'" : "push button 'More step commands'";
        return controls.press(gear, controls.shows(first)) && controls.choose({menu, title}, effect) &&
               controls.goes(first);
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
};

} // namespace

class SpokenMacrosTest : public QObject {
    Q_OBJECT

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
        QVERIFY(controls.press(kOK, tab.named({"Bye", "Greet"})));

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
        QVERIFY(tab.choose(kMacros, "Import Macro…", controls.opens("Import Macro")));
        QVERIFY(controls.type(kFileName, file, holdsFile));
        QVERIFY(controls.press("push button 'Open'", tab.named({"Bye", "Greet", "Untitled Macro", "Bye 2"})));

        QStringList leftOut = Controls::around(); // of the steps
        for (const char* control : {"table 'Steps of the macro'", "cell 'Steps of the macro › Action'",
                 "cell 'Steps of the macro › Delay Afterwards'", "push button 'Add steps'",
                 "push button 'Remove step'", "push button 'More step commands'", "check box 'Record'"})
            leftOut << control;
        QCOMPARE(controls.forgotten(leftOut), QStringList());
    }

    void stepsAreSelectedAndTheirDelaysChosen() {
        MacrosTab tab;
        Controls& controls = tab.controls;
        QVERIFY(tab.selectMacro(0));
        QCOMPARE(controls.meet(), QString());
        const Accessible table = controls.find("table 'Steps of the macro'");
        const auto selected = [&](int row) {
            return [&, row] { return table.selectedRows() == std::vector{row}; };
        };
        QVERIFY(controls.selectRow("Steps of the macro", 1, selected(1)));
        QVERIFY(controls.performCell("Steps of the macro", 0, "Action", "Toggle", selected(0)));

        // Every delay of the pop-up in the list.
        const QStringList titles{"10 ms", "20 ms", "30 ms", "40 ms", "50 ms", "100 ms", "150 ms", "200 ms",
            "300 ms", "400 ms", "½ second", "1 second", "2 seconds", "3 seconds", "4 seconds", "5 seconds",
            "None"};
        for (const QString& title : titles) {
            const QStringList way{"Delay Afterwards", title};
            QVERIFY(controls.performCell(
                "Steps of the macro", 1, "Delay Afterwards", "ShowMenu", controls.shows(itemOf(way))));
            QVERIFY(controls.choose(way, [&] { return table.cell(1, 1).name() == title.toStdString(); }));
            QVERIFY2(controls.goes(itemOf(way)), qPrintable(title));
        }
        QCOMPARE(controls.meet(), QString());
    }

    void recordingIsStartedAndStopped() {
        MacrosTab tab;
        QVERIFY(tab.selectMacro(0));
        QVERIFY(tab.controls.perform("check box 'Record'", "Toggle", tab.controls.shows("check box 'Stop'")));
        QVERIFY(xdotool({"key", "b"}));
        QVERIFY(!tab.walk.thing("cell 'Release b'").isNull());
        QVERIFY(tab.controls.perform("check box 'Stop'", "Toggle", tab.controls.shows("check box 'Record'")));
    }
};

QUORVI_SESSION_TEST_MAIN(SpokenMacrosTest)
#include "SpokenMacrosTest.moc"
