// The helper starts and ends while the panel is shown: the window shows it at once, and restarts the helper
// when the user returns or makes a change.

#include <QLabel>

#include "pane/PaneFixture.h"
#include "pane/PaneTestMain.h"
#include "support/SliderTools.h"
#include "support/Storm.h"
#include "support/Tabs.h"
#include "widgets/KyvarQuorviSlider.h"
#include "widgets/PopUpButton.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

const QString kConnected = QStringLiteral("Connected");
const QString kLooking = QStringLiteral("Looking for the mouse…");
const QString kGone = QStringLiteral("The background program is not running.");
const QString kNotice = kGone + QStringLiteral(" Changes are saved and reach the mouse when it runs again.");

class Panel : public PaneFixture {
  public:
    using PaneFixture::PaneFixture;

    [[nodiscard]] QString state() const { return text("quorviTextConnection"); }
    /// The notice that is to be seen; empty while there is none.
    [[nodiscard]] QString notice() const {
        auto* label = window->findChild<QLabel*>(QStringLiteral("textNotice"));
        return label && label->isVisible() ? label->text() : QString();
    }
    [[nodiscard]] auto launches() const { return opened.filter(QStringLiteral("launch ")).size(); }
    void loseHelper() {
        helper.reset();
        QTRY_COMPARE(notice(), kNotice);
    }
};

} // namespace

class HelperPresenceTest : public QObject {
    Q_OBJECT

  private slots:
    void aHelperThatHasGoneIsToldOfAtOnceAndByItself() {
        Panel panel;
        panel.openWith(PaneFixture::sampleTree());
        QCOMPARE(panel.state(), kConnected);
        QCOMPARE(panel.notice(), QString());
        panel.loseHelper();
        QCOMPARE(panel.state(), kGone);
        QCOMPARE(panel.text("quorviTextProfile"), QStringLiteral("Desk"));
        QVERIFY(panel.isEnabled("quorviMenuPollingRate")); // changes are still possible, as the notice says
        QCOMPARE(int(panel.launches()), 0);
    }

    void aSaveOnABusThatIsTooBusyToAnswerReachesTheHelperInTheEnd() {
        PrivateBus bus;
        Panel panel;
        panel.openWith(PaneFixture::sampleTree());
        const auto other = EventBus::connect();
        ProcessSerialNumber itself;
        QCOMPARE(other->findProcessByName("KyvarQuorviPane", &itself), noErr);
        // What has come and has not been looked at might be the news of another helper, so the bus is asked.
        QCOMPARE(other->send(itself, makeCommand(kMessageRecording, 0)), noErr);
        QCOMPARE(other->findProcessByName("nobody", nullptr), procNotFound);
        bus.pause();
        QVERIFY(panel.pane->saveSettings(panel.pane->deviceConfig()));
        bus.goOn();
        QVERIFY(panel.commandsBecome({"KyPR 0"}));
        QCOMPARE(panel.notice(), QString());
        QCOMPARE(int(panel.launches()), 0);
    }

    void answersThatAnotherProgramMakesUpHideNeitherTheHelperNorASave() {
        Panel panel;
        panel.openWith(PaneFixture::sampleTree());
        ProcessSerialNumber itself;
        QCOMPARE(EventBus::connect()->findProcessByName("KyvarQuorviPane", &itself), noErr);
        Storm forger(itself);
        for (std::uint64_t number = 1; number <= 1000; ++number)
            forger.sendUnwantedReply(number, true);
        forger.awaitPassedOn();
        emit panel.pane->sysPrefWindowDidBecomeKey(); // looks for the helper
        QVERIFY(panel.pane->saveSettings(panel.pane->deviceConfig()));
        QVERIFY(panel.commandsBecome({"KyPR 0"}));
        QCOMPARE(panel.notice(), QString());
        QCOMPARE(panel.state(), kConnected);
        QCOMPARE(int(panel.launches()), 0);
    }

    void aHelperThatIsBackIsConnectedByItself() {
        Panel panel;
        panel.openWith(PaneFixture::sampleTree());
        panel.loseHelper();
        panel.helper = std::make_unique<RecordingHelper>();
        QTRY_COMPARE(panel.notice(), QString());
        QCOMPARE(panel.state(), kLooking); // it has yet to say what it knows
        panel.connectDevices(1);
        QTRY_COMPARE(panel.state(), kConnected);
    }

    void whatAnotherHelperKnowsOfTheMouseIsYetToBeHeard() {
        Panel panel;
        panel.openWith(PaneFixture::sampleTree());
        panel.helper.reset();
        panel.helper = std::make_unique<RecordingHelper>();
        QTRY_COMPARE(panel.state(), kLooking);
        QCOMPARE(panel.notice(), QString());
        panel.connectDevices(1);
        QTRY_COMPARE(panel.state(), kConnected);
    }

    void aHelperThatCannotBeStartedIsToldOf() {
        Panel panel({.helper = false, .canLaunch = false});
        panel.select();
        QCOMPARE(panel.notice(), kNotice);
        QCOMPARE(panel.state(), kGone);
    }

    void aHelperThatStartsIsWaitedForWithoutAWord() {
        Panel panel({.helper = false});
        panel.select();
        QCOMPARE(panel.notice(), QString());
        QCOMPARE(panel.state(), kLooking);
        panel.helper = std::make_unique<RecordingHelper>();
        panel.connectDevices(1);
        QTRY_COMPARE(panel.state(), kConnected);
        QCOMPARE(panel.notice(), QString());
        QCOMPARE(int(panel.launches()), 1);
    }

    void aHelperThatEndsBeforeItCanBeFoundIsToldOf() {
        Panel panel({.helper = false});
        panel.select();
        panel.workspace->endLaunched();
        QCOMPARE(panel.notice(), kNotice);
        QCOMPARE(panel.state(), kGone);
    }

    void withoutASessionBusThereIsNoHelper() {
        Panel panel({.helper = false, .bus = false});
        panel.select();
        panel.workspace->endLaunched(); // as it does at once
        QCOMPARE(panel.notice(), kNotice);
        emit panel.pane->sysPrefWindowDidBecomeKey();
        QCOMPARE(int(panel.launches()), 1); // the next one would end as well
    }

    void theNextEditStartsIt() {
        Panel panel;
        panel.openWith(PaneFixture::sampleTree());
        panel.selectTab(kDeviceTab);
        panel.loseHelper();
        panel.click("quorviBoxLightOnWheel");
        QCOMPARE(panel.savedSettings().array("profiles").dictionary(0).integer("ledstate"), 2);
        QCOMPARE(int(panel.launches()), 1);
        QCOMPARE(panel.notice(), kNotice); // not before it is there
        panel.click("quorviBoxLightOnWheel");
        QCOMPARE(int(panel.launches()), 1); // it is about to come
        panel.workspace->endLaunched();
        panel.click("quorviBoxLightOnWheel");
        QCOMPARE(int(panel.launches()), 2);
    }

    void theUsersReturnStartsIt() {
        Panel panel;
        panel.openWith(PaneFixture::sampleTree());
        panel.pane->sysPrefWindowDidBecomeKey();
        QCOMPARE(int(panel.launches()), 0);
        panel.loseHelper();
        panel.pane->sysPrefWindowDidBecomeKey();
        QCOMPARE(int(panel.launches()), 1);
    }

    void aDragStartsItWhenItEnds() {
        Panel panel;
        panel.openWith(PaneFixture::sampleTree());
        panel.loseHelper();
        panel.pane->dragDidBegin();
        QVERIFY(panel.pane->saveSettings(panel.pane->deviceConfig()));
        QCOMPARE(int(panel.launches()), 0);
        panel.pane->dragDidEnd();
        QCOMPARE(int(panel.launches()), 1);
    }

    void aHiddenPanelNeitherStartsItNorSpeaks() {
        Panel panel;
        panel.openWith(PaneFixture::sampleTree());
        panel.pane->willUnselect();
        panel.helper.reset();
        QTRY_COMPARE(panel.pane->findProcessByName("KyvarQuorviHelper", nullptr), procNotFound);
        QCoreApplication::processEvents();
        QCOMPARE(panel.notice(), QString());
        QCOMPARE(int(panel.launches()), 0);
        panel.pane->didSelect();
        QCOMPARE(panel.notice(), kNotice);
    }

    void beforeTheFirstListNothingIsClaimed() {
        Panel panel;
        panel.writeSettings(PaneFixture::sampleTree());
        panel.select();
        const QString unread = QStringLiteral("–");
        QCOMPARE(panel.state(), kLooking);
        QCOMPARE(panel.text("quorviTextDPI"), unread);
        QCOMPARE(panel.text("textNoMacroTitle"), QString());
        QCOMPARE(panel.text("textNoMacro"), kLooking);
        for (int n = 1; n <= 9; ++n) {
            auto* popUp = panel.find<PopUpButton>(qPrintable(QStringLiteral("quorviMenuTop%1").arg(n)));
            QCOMPARE(popUp->currentText(), unread);
            QVERIFY(!popUp->isEnabled());
        }
        QCOMPARE(panel.find<PopUpButton>("quorviMenuPollingRate")->currentText(), unread);
        panel.connectDevices(1);
        QTRY_COMPARE(panel.text("quorviTextDPI"), QStringLiteral("800 DPI"));
        QCOMPARE(panel.find<PopUpButton>("quorviMenuTop1")->currentText(), QStringLiteral("Primary Click"));
        QCOMPARE(panel.find<PopUpButton>("quorviMenuTop3")->currentText(), QStringLiteral("No Function"));
        QCOMPARE(panel.find<PopUpButton>("quorviMenuPollingRate")->currentText(), QStringLiteral("500 Hz"));
        // What was read is forgotten when the panel is hidden.
        panel.pane->willUnselect();
        panel.pane->didSelect();
        QCOMPARE(panel.text("quorviTextDPI"), unread);
    }
};

QUORVI_PANE_TEST_MAIN(HelperPresenceTest)
#include "HelperPresenceTest.moc"
