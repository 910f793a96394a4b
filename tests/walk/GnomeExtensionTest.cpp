// The Profiles tab on GNOME without the extension: by keys and by screen reader.

#include <QTest>

#include "pane/TellingHelper.h"
#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "walk/Controls.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

const QString kButton = QStringLiteral("push button 'Turn on the GNOME extension'");
const QString kItIsOff = QStringLiteral(
    "label 'GNOME needs an extension to report which application is in front, and it is turned off.'");

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
            QStringLiteral("check box 'Show this profile's name on screen when the mouse switches to it'"));
    }

    void isSwitchedOnByAScreenReader() {
        const OnDesktop gnome("off");
        Controls controls(*gnome.walk);
        QVERIFY(gnome.walk->openTab("Profiles"));
        QVERIFY(!gnome.walk->thing(kItIsOff).isNull());
        QCOMPARE(controls.meet(), QString());
        QCOMPARE(controls.find(kButton).description(),
            std::string("Lets GNOME report which application is in front. If all extensions are turned off, "
                        "they are turned on too."));
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
                     ->thing("label 'GNOME needs this panel's extension to report which application is in "
                             "front. If you have just installed it, log out and in again.'")
                     .isNull());
        QCOMPARE(controls.meet(), QString());
        QVERIFY(!controls.isThere(kButton));
    }

    void isNotSpokenOfOnAnotherDesktop() {
        const OnDesktop other("", "weston");
        Controls controls(*other.walk);
        QVERIFY(other.walk->openTab("Profiles"));
        QVERIFY(!other.walk
                     ->thing("label 'weston does not report which application is in front, so profiles do "
                             "not switch automatically.'")
                     .isNull());
        QCOMPARE(controls.meet(), QString());
        QVERIFY(!controls.isThere(kButton));
    }
};

QUORVI_SESSION_TEST_MAIN(GnomeExtensionTest)
#include "GnomeExtensionTest.moc"
