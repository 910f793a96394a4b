// Backing up and restoring all settings with a screen reader.

#include <QTest>

#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "walk/Controls.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

const QString kLight = QStringLiteral("check box 'Wheel light'");
const QString kFileName = QStringLiteral("text 'File name:'");
const QString kTold = QStringLiteral("push button 'Close message'"); // of the bar above the page

} // namespace

class SpokenBackupsTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display");
    }

    void settingsAreBackedUpLookedThroughAndTakenBack() {
        Walk walk;
        Controls controls(walk);
        const UserHome& home = walk.session().home;
        const QString file = QString::fromStdString(home.path()) + "/all.quorviSettings";
        const auto holdsFile = [&] { return controls.find(kFileName).text() == file.toStdString(); };
        const int before = home.savedLights();
        const auto lightsAre = [&](int lights) {
            return [&home, lights] { return home.savedLights() == lights; };
        };
        QVERIFY(walk.openTab("Device"));

        QVERIFY(controls.press("push button 'Back up'", controls.opens("Back Up Settings")));
        QVERIFY(controls.type(kFileName, file, holdsFile));
        QVERIFY(controls.press("push button 'Save'", [&] { return QFile::exists(file); }));
        QVERIFY(controls.press(kTold, [&] { return !controls.isThere(kTold); }));

        QVERIFY(controls.perform(kLight, "Toggle", lightsAre(before ^ 1)));
        QVERIFY(controls.press("push button 'Restore backup'", controls.opens("Open Backup")));
        QVERIFY(controls.type(kFileName, file, holdsFile));
        QVERIFY(controls.press("push button 'Open'", controls.opens("Restore Backup")));
        QCOMPARE(controls.meet(), QString());
        QVERIFY(controls.isThere("list 'Differences'"));
        QCOMPARE(
            defaultButtonOf(walk.thing("dialog 'Restore Backup'")), QStringLiteral("push button 'Cancel'"));
        QVERIFY(controls.press("push button 'Restore'", lightsAre(before)));

        // The newest copy is what stood before that.
        QVERIFY(controls.press("push button 'Earlier settings'", controls.opens("Earlier Settings")));
        QCOMPARE(controls.meet(), QString());
        QVERIFY(controls.isThere("list 'Earlier settings'"));
        QVERIFY(controls.press("push button 'Cancel'", controls.closes("Earlier Settings")));
        QVERIFY(controls.press("push button 'Earlier settings'", controls.opens("Earlier Settings")));
        QVERIFY(controls.press("push button 'Restore'", lightsAre(before ^ 1)));
    }
};

QUORVI_SESSION_TEST_MAIN(SpokenBackupsTest)
#include "SpokenBackupsTest.moc"
