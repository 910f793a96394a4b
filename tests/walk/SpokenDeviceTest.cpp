// The device tab, operated by a screen reader.

#include <QTest>

#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "walk/Controls.h"

using namespace quorvi;
using namespace quorvi::test;

class SpokenDeviceTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display");
    }

    void everyControlOfTheDeviceTabIsOperated() {
        Walk walk;
        Controls controls(walk);
        const UserHome& home = walk.session().home;
        QVERIFY(walk.openTab("Device"));
        QCOMPARE(controls.meet(), QString());

        struct Rate {
            const char* title;
            int hertz, code;
        };
        for (const Rate& rate : {Rate{"125 Hz", 125, 8}, {"500 Hz", 500, 2}, {"1000 Hz", 1000, 1}}) {
            const QString pollingRate = QStringLiteral("combo box 'Polling rate:'");
            const QStringList way{"Polling rate", rate.title};
            QVERIFY(controls.perform(pollingRate, "ShowMenu", controls.shows(itemOf(way))));
            QVERIFY(controls.choose(way, [&] {
                return home.savedPollingRate() == rate.hertz &&
                       walk.session().recordByte(kPollingCodeOffset) == rate.code;
            }));
            QVERIFY(controls.goes(itemOf(way)));
        }
        for (const int bit : {1, 2}) {
            const int lights = home.savedLights() ^ bit;
            QVERIFY(controls.perform(
                bit == 1 ? "check box 'Wheel light'" : "check box 'Battery indicator light'", "Toggle", [&] {
                    return home.savedLights() == lights &&
                           walk.session().recordByte(kFirstProfileLights) == lights;
                }));
        }
        const QString restore = QStringLiteral("push button 'Restore defaults'");
        QVERIFY(controls.press(restore, controls.opens("Please Confirm")));
        QCOMPARE(controls.meet(), QString());
        QVERIFY(controls.press("push button 'Cancel'", controls.closes("Please Confirm")));
        QVERIFY(home.savedPollingRate() == 1000);
        QVERIFY(controls.press(restore, controls.opens("Please Confirm")));
        QVERIFY(controls.press("push button 'OK'", [&] {
            return home.savedSettings().dictionary("settings").integer("pollingrate") ==
                   UserHome::defaults().dictionary("settings").integer("pollingrate");
        }));
        // These have a test of their own.
        const QStringList backups{
            "push button 'Back up'", "push button 'Restore backup'", "push button 'Earlier settings'"};
        const QStringList updates{"push button 'Check for updates'"}; // SpokenHeaderTest
        QCOMPARE(controls.forgotten(Controls::around() + backups + updates), QStringList());
    }
};

QUORVI_SESSION_TEST_MAIN(SpokenDeviceTest)
#include "SpokenDeviceTest.moc"
