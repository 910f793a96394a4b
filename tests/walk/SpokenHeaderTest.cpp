// The controls around the tabs, operated by a screen reader; and the whole window without a mouse, and in a
// right-to-left language.

#include <QTest>

#include "host/RecordedOpener.h"
#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "walk/Controls.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr char kNoMouse[] = "No Mouse Connected";

/// The desktop's opener writes down what it is to open, for this process and what it starts.
struct OurOpener {
    OurOpener() { makeRecordedOpener(folder.filePath("bin").toStdString()); }
    QTemporaryDir folder;
    EnvironmentVariable path{
        "PATH", folder.filePath("bin").toStdString() + ":" + qEnvironmentVariable("PATH").toStdString()};
};

} // namespace

class SpokenHeaderTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display");
    }

    void theTabsAndTheButtonsAboveThemAreOperated() {
        const OurOpener opener;
        Walk walk;
        Controls controls(walk);
        QCOMPARE(controls.meet(), QString());
        const Accessible tabs = controls.find("page tab list");
        const auto opened = [&](const QString& what) {
            return [&walk, what] {
                return QString::fromStdString(openedWith(walk.session().home.path())).endsWith(what);
            };
        };
        for (const char* tab : {"Sensitivity", "Profiles", "Macros", "Device", "Buttons"}) {
            QVERIFY(
                controls.press(QStringLiteral("page tab '%1'").arg(tab), [&] { return tabs.name() == tab; }));
            QVERIFY(controls.press(
                "push button 'Help'", opened(QStringLiteral("/Help/%1.html\n").arg(QString(tab).toLower()))));
        }
        QStringList leftOut = inputPopUps(); // SpokenButtonsTest
        leftOut << "page tab list";          // its tabs were pressed
        leftOut << "combo box 'Polling rate:'"
                << "check box 'Wheel light'" // SpokenDeviceTest
                << "check box 'Battery indicator light'"
                << "push button 'Back up'"
                << "push button 'Restore backup'"
                << "push button 'Earlier settings'"
                << "push button 'Restore defaults'";
        const auto lit = [&walk](int lights) {
            return [&walk, lights] { return walk.savedItem("profiles", 0).integer("ledstate") == lights; };
        };
        QVERIFY(controls.press("page tab 'Device'", [&] { return tabs.name() == "Device"; }));
        QVERIFY(controls.press(
            "push button 'Check for updates'", opened("https://www.kyvar.com/quorvi/support\n")));
        QVERIFY(walk.perform("check box 'Wheel light'", "Toggle"));
        QTRY_VERIFY(lit(2)());
        QVERIFY(controls.press("push button 'Undo'", lit(3)));
        QVERIFY(controls.press("push button 'Redo'", lit(2)));
        QCOMPARE(controls.forgotten(leftOut), QStringList());
    }

    void theProfileIsChosenAboveTheTabs() {
        Walk walk(settingsToWalkIn());
        Controls controls(walk);
        QCOMPARE(controls.meet(), QString());
        QString button;
        for (const QString& control : controls.onScreen())
            if (isProfileMenu(control))
                button = control;
        QVERIFY(!button.isEmpty());
        const auto game = itemOf({"Profiles", "2 Game"});
        QVERIFY(controls.press(button, controls.shows(game)));
        QVERIFY(controls.choose({"Profiles", "2 Game"}, [&walk] {
            return walk.session().home.savedSettings().dictionary("settings").integer("profileid") == 2;
        }));
    }

    void withoutAMouseWhatIsDisabledSaysSo() {
        const OurOpener opener;
        Walk walk(settingsToWalkIn(), {"C.UTF-8", false, "label 'No device connected'"});
        Controls controls(walk);
        QTRY_VERIFY(controls.opens(kNoMouse)());
        const Accessible sheet = walk.reader().window(kNoMouse);
        QCOMPARE(controls.meet(), QString());
        const QString ok = QStringLiteral("push button 'OK'");
        QCOMPARE(walk.focusBecomes(ok), ok);
        QCOMPARE(defaultButtonOf(sheet), ok);
        QVERIFY(controls.press(ok, controls.closes(kNoMouse)));
        QStringList usable = Controls::around();
        usable << "push button 'Check for updates'"; // on the device tab
        for (const char* button : {"Undo", "Redo"})  // there is nothing to be undone
            usable.removeAll(QStringLiteral("push button '%1'").arg(button));
        const Accessible tabs = controls.find("page tab list");
        for (const char* tab : {"Buttons", "Sensitivity", "Profiles", "Macros", "Device"}) {
            if (tabs.name() != tab)
                QVERIFY(controls.press(
                    QStringLiteral("page tab '%1'").arg(tab), [&] { return tabs.name() == tab; }));
            QCOMPARE(controls.meet(), QString());
            for (const QString& control : controls.onScreen())
                QVERIFY2(controls.find(control).is(AccessibleState::enabled) == usable.contains(control),
                    qPrintable(control));
        }
        QVERIFY(controls.press("push button 'Check for updates'",
            [&] { return !openedWith(walk.session().home.path()).empty(); }));
        walk.session().attach();
        QTRY_VERIFY(walk.thing("push button 'Restore defaults'").is(AccessibleState::enabled));
    }

    void aMirroredLanguageIsOperatedInTheSameWay() {
        Walk walk(settingsToWalkIn(), {"ar_EG.UTF-8", true, "label 'متصل'"});
        Controls controls(walk);
        QCOMPARE(controls.meet(), QString());
        const auto only = [&](const char* role) {
            QList<Accessible> found;
            for (const Accessible& thing : everythingIn(walk.window()))
                if (thing.role() == role && thing.is(AccessibleState::showing))
                    found << thing;
            return found;
        };
        const auto tabs = only("page tab");
        QCOMPARE(tabs.size(), int(kTabCount));
        QVERIFY(tabs.first().extents().left > tabs.last().extents().left);
        const UserHome& home = walk.session().home;

        QVERIFY(tabs.at(kProfilesTab).perform("Press"));
        QTRY_VERIFY(only("table").size() == 1);
        QCOMPARE(controls.meet(), QString());
        const Accessible table = only("table").first();
        QVERIFY(table.cell(1, 0).extents().left > table.cell(1, 1).extents().left);
        QVERIFY(table.selectRow(1));
        QTRY_COMPARE(home.savedSettings().dictionary("settings").integer("profileid"), 2);
        QVERIFY(table.cell(2, 1).perform("Toggle"));
        QTRY_COMPARE(home.savedSettings().dictionary("settings").integer("profileid"), 3);
        QVERIFY(table.cell(2, 3).perform("Toggle"));
        QTRY_VERIFY(table.cell(2, 3).is(AccessibleState::checked));

        QVERIFY(tabs.at(kSensitivityTab).perform("Press"));
        QTRY_VERIFY(only("slider").size() == 3);
        QCOMPARE(controls.meet(), QString());
        QVERIFY(only("slider").first().setValue(1600));
        QTRY_COMPARE(home.savedSettings().dictionary("settings").integer("dpix"), 1600);

        QVERIFY(tabs.at(kDeviceTab).perform("Press"));
        QTRY_VERIFY(only("combo box").size() == 1);
        QCOMPARE(controls.meet(), QString());
        QVERIFY(only("combo box").first().perform("ShowMenu"));
        QTRY_COMPARE(walk.reader().focus().role(), std::string("menu item")); // the rate in use
        const auto rates = walk.reader().focus().parent().children();
        QVERIFY(rates.front().perform("Press"));
        QTRY_COMPARE(home.savedPollingRate(), 125);
        QVERIFY(only("check box").first().perform("Toggle"));
        QTRY_COMPARE(walk.savedItem("profiles", 2).integer("ledstate"), 2);
    }
};

QUORVI_SESSION_TEST_MAIN(SpokenHeaderTest)
#include "SpokenHeaderTest.moc"
