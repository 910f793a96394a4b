// A set-up whose mouse, helper or panel goes away in the middle.

#include <QTest>

#include <csignal>

#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "walk/MiceWalk.h"

using namespace quorvi;
using namespace quorvi::test;

class SetUpBrokenOffTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display");
    }

    void whoLosesTheMouseInTheMiddleCanGoOnOrClose() {
        MiceWalk mice;
        Walk& walk = mice.walk;
        QVERIFY(mice.openSheet());
        mice.press(BTN_TASK);
        QVERIFY(mice.isThere(asksFor(2)));
        mice.service->setMice({});
        QVERIFY(mice.isThere(kWaits));
        QCOMPARE(walk.focusBecomes("push button 'Cancel'"), QStringLiteral("push button 'Cancel'"));
        mice.service->setMice({{kSetUpMouse}});
        QVERIFY(mice.isThere(asksFor(2)));
        QVERIFY(mice.isPlain());
        mice.press(BTN_EXTRA);
        QVERIFY(mice.isThere(asksFor(3)));
        // Somebody else comes to the machine.
        mice.service->deniesLists = true;
        mice.service->setMice({{kSetUpMouse}});
        QVERIFY(
            mice.isThere("label 'Someone else is using the computer, or the service for mice has stopped.'"));
        // The list of mice has gone with the service.
        const QString next = QStringLiteral("push button 'Help'");
        QCOMPARE(walk.focusAfter("Escape", next), next);
    }

    void aHelperThatIsKilledInTheMiddleLeavesAMouseThatDoesWhatItShould() {
        MiceWalk mice;
        Walk& walk = mice.walk;
        QVERIFY(mice.openSheet());
        const_cast<Session&>(walk.session()).killHelper();
        QVERIFY(mice.isThere(kWaits));
        QVERIFY(mice.isThere("label 'The background program is not running.'"));
        const_cast<Session&>(walk.session()).startHelper();
        QVERIFY(mice.isThere(asksFor(1)));
        QVERIFY(mice.isPlain());
        QVERIFY(!walk.focusAfter("Escape", kSetUp).isEmpty());
        QVERIFY(mice.isDriven(engine::usualButtonCodes));
    }

    void aPanelThatIsKilledInTheMiddleLeavesTheMouseToTheProfiles() {
        MiceWalk mice;
        QVERIFY(mice.openSheet());
        static_cast<void>(mice.walk.endBy(SIGKILL));
        QVERIFY(mice.isDriven(engine::usualButtonCodes));
        QTRY_COMPARE(mice.service->countOf(std::string("WatchCodes ") + kSetUpMouse + " 0"), 1);
    }
};

QUORVI_SESSION_TEST_MAIN(SetUpBrokenOffTest)
#include "SetUpBrokenOffTest.moc"
