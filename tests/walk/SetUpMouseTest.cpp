// A mouse is chosen and set up in the real panel, with the real helper and a stand-in for the system's
// service: by the keyboard alone, and by a screen reader.

#include <QTest>

#include <csignal>

#include <linux/input-event-codes.h>

#include "helper/support/StandInService.h"
#include "plist/Reader.h"
#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "support/WaitUntil.h"
#include "walk/Controls.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr char kMouse[] = "1e7d:2dcb:one";
const QString kBox = QStringLiteral("check box 'Test mouse'");
const QString kSetUp = QStringLiteral("push button 'Set up Test mouse'");
const QString kSkip = QStringLiteral("push button 'Skip'");
const QString kField = QStringLiteral("text 'Dots per inch of the sensor'");
const QString kDone = QStringLiteral("push button 'Done'");
// By their places: keymaps have other signs there.
const QString kF13 = QString::number(KEY_F13 + 8);
const QString kF14 = QString::number(KEY_F14 + 8);
const QString kWaits = QStringLiteral("label 'Waiting for the mouse…'");

QString asksFor(int input) {
    return QStringLiteral("label 'Press the button that should be number %1, or skip.'").arg(input);
}

/// The panel on its device tab, with one mouse plugged in that nobody uses yet.
class MiceWalk {
  public:
    [[nodiscard]] bool isThere(const QString& wanted) const { return !walk.thing(wanted).isNull(); }
    [[nodiscard]] bool isDriven(const engine::ButtonCodes& codes) const {
        return waitUntil([&] { return service->optionsOf(kMouse).buttonCodes == codes; });
    }
    /// What has the focus asks for that number.
    [[nodiscard]] Controls::Effect says(int input) const {
        return [this, input] {
            return walk.thing(kSkip).description().find("should be number " + std::to_string(input)) !=
                   std::string::npos;
        };
    }
    void press(int code) const {
        service->tellCode(kMouse, code, true);
        service->tellCode(kMouse, code, false);
    }
    /// The helper's file has the mouse so.
    [[nodiscard]] plist::Dictionary kept() const {
        const auto file = walk.session().home.path() + "/.config/kyvar-quorvi/mice.plist";
        return plist::readPropertyListFile(file).value.dictionary().dictionary("mice").dictionary(
            "1e7d:2dcb");
    }
    /// Opens the sheet from the list of mice by keys.
    [[nodiscard]] bool openSheet() {
        if (!walk.enterTab(kDeviceTab) || !walk.moveTo(kBox))
            return false;
        walk.press({"space"});
        if (!isUsed() || !walk.moveTo(kSetUp))
            return false;
        walk.press({"space"});
        return walk.focusBecomes(kSkip) == kSkip && isThere(asksFor(1)) && isPlain();
    }
    /// The mouse has come into use, and can be set up.
    [[nodiscard]] bool isUsed() const {
        return waitUntil([&] {
            return service->countOf(std::string("Use ") + kMouse) > 0 &&
                   walk.thing(kSetUp).is(AccessibleState::enabled);
        });
    }
    [[nodiscard]] bool isPlain() const { return isDriven(engine::ButtonCodes{}); }

    PrivateBus systemBus;
    EnvironmentVariable system{"DBUS_SYSTEM_BUS_ADDRESS", systemBus.address()};
    std::unique_ptr<StandInService> service =
        std::make_unique<StandInService>(std::vector<StandInMouse>{{kMouse}});
    Walk walk{
        UserHome::defaults(), {.heardThen = "label 'Demonstration mouse – choose yours on the Device tab'"}};
};

} // namespace

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
        QVERIFY(mice.isThere("label 'That button is number 3 already.'"));
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
        QTRY_COMPARE(int(mice.service->optionsOf(kMouse).sensorDpi), 3200);
        QCOMPARE(mice.kept().integer("dpi"), 3200);

        // Plugged in again, at another place, and with another service, it is as it was.
        mice.service->setMice({});
        QVERIFY(!walk.thing("label 'Not plugged in'").isNull());
        mice.service->setMice({{.id = "1e7d:2dcb:two"}});
        QVERIFY(waitUntil([&] { return mice.service->optionsOf("1e7d:2dcb:two").buttonCodes == codes; }));
        QCOMPARE(int(mice.service->optionsOf("1e7d:2dcb:two").sensorDpi), 3200);
        mice.service.reset();
        mice.service = std::make_unique<StandInService>(std::vector<StandInMouse>{{kMouse}});
        QVERIFY(mice.isDriven(codes));
        QTRY_COMPARE(int(mice.service->optionsOf(kMouse).sensorDpi), 3200);
    }

    void aKeyOfTheMouseIsToldFromOneOfTheKeyboard() {
        MiceWalk mice;
        Walk& walk = mice.walk;
        QVERIFY(mice.openSheet());
        const QString question =
            "label 'A key was typed. If it was by the mouse, press the same button of it once more.'";
        walk.press({kF13});
        QVERIFY(mice.isThere(question));
        QVERIFY(mice.isDriven({0, 0, 0, 0, 0, 0, KEY_F13}));
        walk.press({kF13}); // it comes from the keyboard still
        walk.press({kF14});
        QVERIFY(mice.isDriven({0, 0, 0, 0, 0, 0, KEY_F14}));
        QVERIFY(mice.isThere(asksFor(1)));
        mice.service->tellInput(kMouse, 7, true); // and this one does not
        mice.service->tellInput(kMouse, 7, false);
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

    void whoLosesTheMouseInTheMiddleCanGoOnOrClose() {
        MiceWalk mice;
        Walk& walk = mice.walk;
        QVERIFY(mice.openSheet());
        mice.press(BTN_TASK);
        QVERIFY(mice.isThere(asksFor(2)));
        mice.service->setMice({});
        QVERIFY(mice.isThere(kWaits));
        QCOMPARE(walk.focusBecomes("push button 'Cancel'"), QStringLiteral("push button 'Cancel'"));
        mice.service->setMice({{kMouse}});
        QVERIFY(mice.isThere(asksFor(2)));
        QVERIFY(mice.isPlain());
        mice.press(BTN_EXTRA);
        QVERIFY(mice.isThere(asksFor(3)));
        // Somebody else comes to the machine.
        mice.service->deniesLists = true;
        mice.service->setMice({{kMouse}});
        QVERIFY(mice.isThere("label 'Somebody else is at the computer, or the service for mice has ended.'"));
        // The list of mice has gone with the service.
        const QString next = QStringLiteral("push button 'Check for updates'");
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
        QTRY_COMPARE(mice.service->countOf(std::string("WatchCodes ") + kMouse + " 0"), 1);
    }

    void everyControlIsOperatedByAScreenReader() {
        MiceWalk mice;
        Walk& walk = mice.walk;
        Controls controls(walk);
        QVERIFY(walk.openTab("Device"));
        QVERIFY(controls.perform(
            kBox, "Toggle", [&] { return mice.service->countOf(std::string("Use ") + kMouse) > 0; }));
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
        QCOMPARE(controls.forgotten(
                     Controls::around() +
                     QStringList({"combo box 'Polling rate:'", "check box 'Light on the wheel'",
                         "check box 'Light on the battery indicator'", "push button 'Restore defaults'"})),
            QStringList());
    }
};

QUORVI_SESSION_TEST_MAIN(SetUpMouseTest)
#include "SetUpMouseTest.moc"
