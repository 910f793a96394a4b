// The Profiles tab where GNOME does not tell which application is in front: by keys and by screen reader.

#include <QTest>

#include "pane/TellingHelper.h"
#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "walk/Controls.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

const QString kButton = QStringLiteral("push button 'Switch the GNOME extension on'");
const QString kItIsOff = QStringLiteral(
    "label 'GNOME tells which application is in front by an extension, which is switched off.'");

/// The program with a helper that says what one says on that desktop.
struct OnDesktop {
    explicit OnDesktop(const std::string& extension, const std::string& desktop = "GNOME") {
        ToldByHelper told;
        told.service = false;
        told.front = {.application = {}, .source = {}, .desktop = desktop, .gnomeExtension = extension};
        WalkStart start;
        start.heardThen = "label 'Looking for the mouse…'";
        start.before = [this, told] { helper = std::make_unique<TellingHelper>(told); };
        walk = std::make_unique<Walk>(settingsToWalkIn(), start);
        helper->sendDeviceList(1);
        if (walk->thing("label 'Connected'").isNull())
            qFatal("the mouse is not shown");
    }
    void extensionComesOn() const {
        helper->change([](auto& told) {
            told.front.gnomeExtension = "enabled";
            told.front.source = "GNOME";
        });
    }

    std::unique_ptr<Walk> walk;
    std::unique_ptr<TellingHelper> helper; ///< goes first: its bus is the session's
};

} // namespace

class GnomeExtensionTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display with xdotool");
    }

    void isSwitchedOnByKeys() {
        const OnDesktop gnome("disabled");
        Walk& walk = *gnome.walk;
        QVERIFY(walk.enterTab(kProfilesTab));
        QVERIFY(walk.moveTo("push button 'More profile commands'"));
        QCOMPARE(walk.focusMovedBy("Tab"), kButton);
        walk.press({"space"});
        QTRY_COMPARE(gnome.helper->asked(), QStringList{"enable"});
        gnome.extensionComesOn();
        QCOMPARE(walk.focusBecomes("cell '1'"), QStringLiteral("cell '1'"));
        QVERIFY(walk.moveTo("push button 'More profile commands'"));
        QCOMPARE(walk.focusMovedBy("Tab"),
            QStringLiteral("check box 'Show the name of this profile on the screen when it comes into use'"));
    }

    void isSwitchedOnByAScreenReader() {
        const OnDesktop gnome("off");
        Controls controls(*gnome.walk);
        QVERIFY(gnome.walk->openTab("Profiles"));
        QVERIFY(!gnome.walk->thing(kItIsOff).isNull());
        QCOMPARE(controls.meet(), QString());
        QCOMPARE(controls.find(kButton).description(),
            std::string("Lets GNOME tell which application is in front. If all extensions are switched off, "
                        "they are switched on too."));
        QVERIFY(controls.press(kButton, [&] { return gnome.helper->asked() == QStringList{"enable"}; }));
        gnome.extensionComesOn();
        QVERIFY(controls.goes(kButton));
        QVERIFY(controls.goes(kItIsOff));
    }

    void isSpokenOfWhereItIsMissing() {
        const OnDesktop gnome("missing");
        Controls controls(*gnome.walk);
        QVERIFY(gnome.walk->openTab("Profiles"));
        QVERIFY(!gnome.walk
                     ->thing("label 'GNOME tells which application is in front by an extension of this "
                             "panel's. If you have just installed it, log out and in again.'")
                     .isNull());
        QCOMPARE(controls.meet(), QString());
        QVERIFY(!controls.isThere(kButton));
    }

    void isNotSpokenOfOnAnotherDesktop() {
        const OnDesktop other("", "weston");
        Controls controls(*other.walk);
        QVERIFY(other.walk->openTab("Profiles"));
        QVERIFY(!other.walk
                     ->thing("label 'weston does not tell which application is in front, so profiles do "
                             "not switch by themselves.'")
                     .isNull());
        QCOMPARE(controls.meet(), QString());
        QVERIFY(!controls.isThere(kButton));
    }
};

QUORVI_SESSION_TEST_MAIN(GnomeExtensionTest)
#include "GnomeExtensionTest.moc"
