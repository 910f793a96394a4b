// The sensitivity tab and the sheet of stages, operated by a screen reader.

#include <QTest>

#include <algorithm>

#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "walk/Controls.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

// Where the record holds the sensitivity in force, as (DPI - 100) / 25.
constexpr int kCodeX = 5;
constexpr int kCodeY = 6;

int codeOf(int dpi) {
    return (dpi - 100) / 25;
}

constexpr char kSheet[] = "Sensitivity Stages";
const QString kStages = QStringLiteral("list 'Stages of this profile'");
const QString kEditStages = QStringLiteral("push button 'Edit stages'");

/// The cells of the bar are named for their sensitivities, which the test changes.
QStringList withoutStages(QStringList controls) {
    controls.removeOne(kStages);
    controls.erase(std::remove_if(controls.begin(), controls.end(),
                       [](const QString& control) { return control.startsWith("push button 'Stage "); }),
        controls.end());
    return controls;
}

struct SensitivityTab {
    SensitivityTab() {
        if (!walk.openTab("Sensitivity"))
            qFatal("the tab does not come");
    }

    Walk walk;
    Controls controls{walk};

    [[nodiscard]] plist::Dictionary driver() const {
        return walk.savedItem("profiles", 0).dictionary("driver");
    }
    [[nodiscard]] Controls::Effect inForce(int x, int y) const {
        return [=, this] {
            const auto settings = walk.session().home.savedSettings().dictionary("settings");
            return settings.integer("dpix") == x && settings.integer("dpiy") == y &&
                   walk.session().recordByte(kCodeX) == codeOf(x) &&
                   walk.session().recordByte(kCodeY) == codeOf(y);
        };
    }
    [[nodiscard]] QStringList savedStages() const {
        QStringList result;
        const auto stages = walk.savedItem("profiles", 0).array("stages");
        for (std::size_t index = 0; index < stages.size(); ++index)
            result << QStringLiteral("%1/%2")
                          .arg(stages.dictionary(index).integer("dpix"))
                          .arg(stages.dictionary(index).integer("dpiy"));
        return result;
    }
    /// The rows of the list in the sheet.
    [[nodiscard]] Controls::Effect rows(int count) {
        return [this, count] { return controls.find("table 'Stages'").rows() == count; };
    }
    /// A slider of the sheet has come to that.
    [[nodiscard]] Controls::Effect stands(const char* slider, double value) {
        return [=, this] { return controls.find(slider).value() == value; };
    }
};

} // namespace

class SpokenSensitivityTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display");
    }

    void everyControlOfTheTabIsOperated() {
        SensitivityTab tab;
        Controls& controls = tab.controls;
        QCOMPARE(controls.meet(), QString());
        const Accessible x = controls.find("slider 'Sensitivity X'");
        QCOMPARE(x.lowestValue(), 100.0);
        QCOMPARE(x.highestValue(), 6475.0);
        const Accessible y = controls.find("slider 'Sensitivity Y'");
        QVERIFY(!y.is(AccessibleState::enabled));
        // The mouse counts in steps of 25: what is between two of them goes to the nearer one.
        QVERIFY(controls.set("spin box 'Sensitivity X'", 2412, tab.inForce(2400, 2400)));
        QVERIFY(controls.set("slider 'Sensitivity X'", 1607, tab.inForce(1600, 1600)));
        QCOMPARE(x.value(), 1600.0);
        y.setValue(3000);
        QCOMPARE(y.value(), 1600.0); // it is disabled
        const QString separate = QStringLiteral("check box 'Separate X and Y'");
        QVERIFY(controls.perform(separate, "Toggle", [&] { return y.is(AccessibleState::enabled); }));
        QVERIFY(controls.set("slider 'Sensitivity Y'", 100, tab.inForce(1600, 100)));
        QVERIFY(controls.set("spin box 'Sensitivity Y'", 200, tab.inForce(1600, 200)));
        QVERIFY(controls.perform(separate, "Toggle", tab.inForce(1600, 1600)));

        const bool accelerated = tab.driver().boolean("enableaccel");
        QVERIFY(controls.perform("check box 'Use acceleration'", "Toggle",
            [&] { return tab.driver().boolean("enableaccel") != accelerated; }));
        if (accelerated)
            QVERIFY(controls.perform("check box 'Use acceleration'", "Toggle",
                [&] { return tab.driver().boolean("enableaccel"); }));
        const Accessible acceleration = controls.find("slider 'Acceleration'");
        QVERIFY(controls.set("slider 'Acceleration'", acceleration.highestValue(),
            [&] { return tab.driver().real("acceleration") == 2.0; }));
        // A percent that the slider does not have goes to the nearer one that it has.
        QVERIFY(controls.set(
            "spin box 'Acceleration'", 98, [&] { return tab.driver().real("acceleration") == 1.0; }));

        const bool shown = tab.driver().boolean("sensitivityosd");
        QVERIFY(controls.perform("check box 'Show the sensitivity on screen when it changes'", "Toggle",
            [&] { return tab.driver().boolean("sensitivityosd") != shown; }));
        QVERIFY(controls.press(kEditStages, controls.opens(kSheet)));
        QVERIFY(tab.walk.focusBecomes("cell '2'") == "cell '2'"); // before that, keys go to the window
        tab.walk.press({"Escape"});
        QTRY_VERIFY(controls.closes(kSheet)());
        const Accessible third = controls.find(kStages).children().at(2);
        QVERIFY(controls.press(heard(third), controls.opens(kSheet)));
        QCOMPARE(tab.walk.focusBecomes("cell '3'"), QStringLiteral("cell '3'"));
        tab.walk.press({"Escape"});
        QTRY_VERIFY(controls.closes(kSheet)());
        QCOMPARE(withoutStages(controls.forgotten(Controls::around())), QStringList());
    }

    void everyControlOfTheStagesIsOperated() {
        SensitivityTab tab;
        Controls& controls = tab.controls;
        const QStringList before = tab.savedStages();
        const QString cancel = QStringLiteral("push button 'Cancel'");
        const QString ok = QStringLiteral("push button 'OK'");
        const QString separate = QStringLiteral("check box 'Separate X and Y of the stage'");

        QVERIFY(controls.press(kEditStages, controls.opens(kSheet)));
        const Accessible sheet = tab.walk.reader().window(kSheet);
        QCOMPARE(controls.meet(), QString());
        QCOMPARE(defaultButtonOf(sheet), ok);
        const QString first = tab.walk.focusBecomes("cell '2'"); // the current stage
        QCOMPARE(first, QStringLiteral("cell '2'"));
        QVERIFY(controls.press("push button 'Remove stage'", tab.rows(int(before.size()) - 1)));
        QVERIFY(controls.press(cancel, controls.closes(kSheet)));
        QCOMPARE(tab.savedStages(), before);

        QVERIFY(controls.press(kEditStages, controls.opens(kSheet)));
        QVERIFY(controls.press("push button 'Remove stage'", tab.rows(int(before.size()) - 1)));
        const Accessible table = controls.find("table 'Stages'");
        QVERIFY(controls.selectRow("Stages", 0, [&] { return table.selectedRows() == std::vector{0}; }));
        QVERIFY(controls.performCell(
            "Stages", 1, "No.", "Toggle", [&] { return table.selectedRows() == std::vector{1}; }));
        QVERIFY(controls.performCell(
            "Stages", 0, "Sensitivity", "Toggle", [&] { return table.selectedRows() == std::vector{0}; }));
        QVERIFY(controls.press("push button 'Add stage'", tab.rows(int(before.size()))));
        QVERIFY(controls.set("slider 'Sensitivity X of the stage'", 300,
            tab.stands("slider 'Sensitivity Y of the stage'", 300)));
        QVERIFY(controls.set("spin box 'Sensitivity X of the stage'", 1200,
            tab.stands("slider 'Sensitivity X of the stage'", 1200)));
        QVERIFY(controls.set("slider 'Sensitivity X of the stage'", 300,
            tab.stands("spin box 'Sensitivity X of the stage'", 300)));
        QVERIFY(controls.perform(separate, "Toggle", [&] {
            return controls.find("slider 'Sensitivity Y of the stage'").is(AccessibleState::enabled);
        }));
        QVERIFY(controls.set("spin box 'Sensitivity Y of the stage'", 800,
            tab.stands("slider 'Sensitivity Y of the stage'", 800)));
        QVERIFY(controls.set("slider 'Sensitivity Y of the stage'", 6475,
            [&] { return QString::fromStdString(table.cell(1, 1).name()).contains("6475"); }));
        QVERIFY(controls.press(ok, tab.inForce(300, 6475)));
        QVERIFY(controls.closes(kSheet)());
        QCOMPARE(tab.savedStages().value(1), QStringLiteral("300/6475"));

        // And the controls of the tab, which have a test of their own.
        QStringList leftOut = Controls::around();
        for (const char* control : {"check box 'Separate X and Y'", "slider 'Sensitivity X'",
                 "slider 'Sensitivity Y'", "check box 'Use acceleration'", "slider 'Acceleration'",
                 "spin box 'Sensitivity X'", "spin box 'Sensitivity Y'", "spin box 'Acceleration'",
                 "check box 'Show the sensitivity on screen when it changes'"})
            leftOut << control;
        QCOMPARE(withoutStages(controls.forgotten(leftOut)), QStringList());
    }
};

QUORVI_SESSION_TEST_MAIN(SpokenSensitivityTest)
#include "SpokenSensitivityTest.moc"
