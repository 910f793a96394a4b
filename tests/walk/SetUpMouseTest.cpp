// A mouse is chosen and set up in the real panel, with the real helper and a stand-in for the system's
// service: by the keyboard alone, and by a screen reader.

#include <QTest>

#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "walk/MiceWalk.h"

using namespace quorvi;
using namespace quorvi::test;

class SetUpMouseTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display");
    }

    void aMouseIsSetUpByTheKeyboardAlone() {
        MiceWalk mice;
        Walk& walk = mice.walk;
        QVERIFY(mice.openSheet());
        walk.press({"space"});
        QVERIFY(mice.isThere(asksFor(2)));
        walk.press({"Return"});
        QVERIFY(mice.isThere(asksFor(3)));
        mice.press(BTN_TASK);
        QVERIFY(mice.isThere(asksFor(4)));
        mice.press(BTN_TASK);
        QVERIFY(mice.isThere("label 'That button is already number 3.'"));
        QVERIFY(walk.moveTo("push button 'Go Back'"));
        walk.press({"space"});
        QVERIFY(mice.isThere(asksFor(3)));
        mice.press(BTN_SIDE);
        QVERIFY(mice.isThere(asksFor(4)));
        mice.press(BTN_MIDDLE + 100); // a button of whatever number
        QVERIFY(mice.isThere(asksFor(5)));
        QVERIFY(walk.moveTo(kField));
        walk.type("3200");
        QVERIFY(walk.moveTo(kDone));
        walk.press({"Return"});
        QCOMPARE(walk.focusBecomes(kSetUp), kSetUp);
        const engine::ButtonCodes codes{
            BTN_LEFT, BTN_RIGHT, BTN_SIDE, BTN_MIDDLE + 100, BTN_EXTRA, BTN_FORWARD, BTN_BACK};
        QVERIFY(mice.isDriven(codes));
        QTRY_COMPARE(int(mice.service->optionsOf(kSetUpMouse).sensorDpi), 3200);
        QCOMPARE(mice.kept().integer("dpi"), 3200);

        // Plugged in again, at another place, and with another service, it is as it was.
        mice.service->setMice({});
        QVERIFY(!walk.thing("label 'Not plugged in'").isNull());
        mice.service->setMice({{.id = "1e7d:2dcb:two"}});
        QVERIFY(waitUntil([&] { return mice.service->optionsOf("1e7d:2dcb:two").buttonCodes == codes; }));
        QCOMPARE(int(mice.service->optionsOf("1e7d:2dcb:two").sensorDpi), 3200);
        mice.service.reset();
        mice.service = std::make_unique<StandInService>(std::vector<StandInMouse>{{kSetUpMouse}});
        QVERIFY(mice.isDriven(codes));
        QTRY_COMPARE(int(mice.service->optionsOf(kSetUpMouse).sensorDpi), 3200);
    }

    void aKeyOfTheMouseIsToldFromOneOfTheKeyboard() {
        MiceWalk mice;
        Walk& walk = mice.walk;
        QVERIFY(mice.openSheet());
        const QString question =
            "label 'A key was pressed. If the mouse did that, press the same mouse button again.'";
        walk.press({kF13});
        QVERIFY(mice.isThere(question));
        QVERIFY(mice.isDriven({0, 0, 0, 0, 0, 0, KEY_F13}));
        walk.press({kF13}); // it comes from the keyboard still
        walk.press({kF14});
        QVERIFY(mice.isDriven({0, 0, 0, 0, 0, 0, KEY_F14}));
        QVERIFY(mice.isThere(asksFor(1)));
        mice.service->tellInput(kSetUpMouse, 7, true); // and this one does not
        mice.service->tellInput(kSetUpMouse, 7, false);
        QVERIFY(mice.isThere(asksFor(2)));
        QVERIFY(walk.moveTo(kDone));
        walk.press({"space"});
        QCOMPARE(walk.focusBecomes(kSetUp), kSetUp);
        QVERIFY(mice.isDriven({KEY_F14, BTN_RIGHT, BTN_MIDDLE, BTN_SIDE, BTN_EXTRA, BTN_FORWARD, BTN_BACK}));
    }

    void escapeLeavesTheMouseAsItWas() {
        MiceWalk mice;
        Walk& walk = mice.walk;
        QVERIFY(mice.openSheet());
        mice.press(BTN_TASK);
        QVERIFY(mice.isThere(asksFor(2)));
        const auto before = mice.kept();
        QCOMPARE(walk.focusAfter("Escape", kSetUp), kSetUp);
        QVERIFY(mice.isDriven(engine::usualButtonCodes));
        QVERIFY(mice.kept() == before);
    }

    void everyControlIsOperatedByAScreenReader() {
        MiceWalk mice;
        Walk& walk = mice.walk;
        Controls controls(walk);
        QVERIFY(walk.openTab("Device"));
        QVERIFY(controls.perform(
            kBox, "Toggle", [&] { return mice.service->countOf(std::string("Use ") + kSetUpMouse) > 0; }));
        QVERIFY(mice.isUsed());
        QCOMPARE(controls.meet(), QString());
        QVERIFY(controls.press(kSetUp, controls.opens("Set Up Mouse")));
        QCOMPARE(controls.meet(), QString());
        QVERIFY(controls.press(kSkip, mice.says(2)));
        QVERIFY(controls.press("push button 'Go Back'", mice.says(1)));
        mice.press(BTN_TASK);
        QVERIFY(waitUntil(mice.says(2)));
        QVERIFY(controls.press("push button 'Cancel'", controls.closes("Set Up Mouse")));
        QVERIFY(mice.isDriven(engine::usualButtonCodes));
        QVERIFY(controls.press(kSetUp, controls.opens("Set Up Mouse")));
        QVERIFY(controls.type(
            kField, "2400", [&] { return controls.find(kField).text() == std::string("2400"); }));
        QVERIFY(controls.press(kDone, [&] { return mice.kept().integer("dpi") == 2400; }));
        QCOMPARE(
            controls.forgotten(Controls::around() +
                               QStringList({"combo box 'Polling rate:'", "check box 'Wheel light'",
                                   "check box 'Battery indicator light'", "push button 'Back up'",
                                   "push button 'Restore backup'", "push button 'Earlier settings'",
                                   "push button 'Restore defaults'", "push button 'Check for updates'"})),
            QStringList());
    }
};

QUORVI_SESSION_TEST_MAIN(SetUpMouseTest)
#include "SetUpMouseTest.moc"
