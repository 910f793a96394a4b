// The panel's messages to the helper, and its handling of device lists.

#include <QLabel>

#include "pane/PaneFixture.h"
#include "pane/PaneTestMain.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

Event listEvent(std::size_t size, FourCharCode type) {
    Event event{kEventClassQuorvi, kEventDeviceList, {}};
    EventBytes bytes(size, 0);
    bytes[0] = bytes[1] = 1; // a count that is not 0 in either byte order
    event.putBytes(keyDirectObject, type, bytes);
    return event;
}

/// Hides the pane just before a queued call of it runs.
class HideAtNextCall : public QObject {
  public:
    explicit HideAtNextCall(KyvarQuorviPane& pane) : m_pane(pane) { pane.installEventFilter(this); }
    [[nodiscard]] bool done() const { return m_done; }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::MetaCall && !std::exchange(m_done, true))
            m_pane.willUnselect();
        return QObject::eventFilter(watched, event);
    }

  private:
    KyvarQuorviPane& m_pane;
    bool m_done = false;
};

/// Counts the queued calls of the pane.
class CallCounter : public QObject {
  public:
    explicit CallCounter(KyvarQuorviPane& pane) { pane.installEventFilter(this); }
    [[nodiscard]] int count() const { return m_count; }

    bool eventFilter(QObject* watched, QEvent* event) override {
        m_count += event->type() == QEvent::MetaCall;
        return QObject::eventFilter(watched, event);
    }

  private:
    int m_count = 0;
};

} // namespace

class HelperLinkTest : public QObject {
    Q_OBJECT

  private slots:
    void listsOfAnotherSizeOrTypeChangeNothing_data() {
        QTest::addColumn<int>("size");
        QTest::addColumn<QByteArray>("type");
        QTest::newRow("195 bytes") << 195 << QByteArray("KYDL");
        QTest::newRow("197 bytes") << 197 << QByteArray("KYDL");
        QTest::newRow("another type") << 196 << QByteArray("KYDX");
    }

    void listsOfAnotherSizeOrTypeChangeNothing() {
        QFETCH(int, size);
        QFETCH(QByteArray, type);
        PaneFixture fixture;
        fixture.writeSettings(PaneFixture::sampleTree());
        fixture.select();
        fixture.helper->sendToPanel(
            listEvent(static_cast<std::size_t>(size), *fourCharCodeFromText(type.toStdString())));
        // What follows is handled after it: when this list has arrived, the other one has been looked at.
        fixture.helper->sendToPanel(listEvent(196, typeProcessSerialNumber));
        fixture.find<QLabel>("quorviTextFirmwareVersion")->setText(QStringLiteral("as it was"));
        QVERIFY(
            !QTest::qWaitFor([&] { return fixture.pane->hasDevice() || fixture.pane->deviceConfig(); }, 200));
        QCOMPARE(fixture.text("quorviTextFirmwareVersion"), QStringLiteral("as it was"));
        fixture.connectDevices(1);
        QCOMPARE(fixture.text("quorviTextFirmwareVersion"), QStringLiteral("1.05"));
    }

    void aListWithCountZeroMeansNoDeviceWhateverFollows() {
        PaneFixture fixture;
        fixture.writeSettings(PaneFixture::sampleTree());
        fixture.select();
        clickInSheet(fixture.window.get(), "quorviPanelNoDevice", "quorviNoDeviceButtonOK");
        fixture.connectDevices(0);
        QCOMPARE(fixture.text("quorviTextProfile"), QStringLiteral("No device connected"));
        QVERIFY(!fixture.isEnabled("quorviMenuPollingRate"));
    }

    void withoutTheHelperNothingIsSentAndTheFileIsStillWritten() {
        PaneFixture fixture({.helper = false});
        fixture.select();
        QVERIFY(fixture.pane->sendMessageToHelper(kMessageSettingsSaved, 0) != noErr);
        QVERIFY(fixture.pane->saveSettings(PaneFixture::sampleTree()));
        QCOMPARE(fixture.savedSettings().integer("firmware"), 0x0105);
    }

    void aSaveThatFailsTellsNobody() {
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        std::filesystem::remove(fixture.settingsFile());
        std::filesystem::create_directory(fixture.settingsFile());
        QVERIFY(!fixture.pane->saveSettings(fixture.pane->deviceConfig()));
        QCOMPARE(fixture.pane->sendMessageToHelper(kMessageRecording, 7), noErr);
        QVERIFY(fixture.commandsBecome({"KyDM 7"}));
    }

    void aSaveCarriesTheIndexOfTheCurrentProfile() {
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        fixture.pane->editProfileIndex(1);
        QVERIFY(fixture.pane->saveSettings(fixture.pane->deviceConfig()));
        fixture.pane->editProfileIndex(-1);
        QVERIFY(fixture.pane->saveSettings(fixture.pane->deviceConfig()));
        QVERIFY(fixture.commandsBecome({"KyPR 1", "KyPR -1"}));
    }

    void aControlMessageBringsTheNumberOfTheReplyBack() {
        PaneFixture fixture;
        const RecordingHelper other("AnotherProcess");
        const_cast<RecordingHelper&>(other).replyWith(-42);
        std::int32_t result = 0;
        QCOMPARE(fixture.pane->sendControlToKext("anotherPROCESS", kMessageRecording, 5, &result), noErr);
        QCOMPARE(result, -42);
        QCOMPARE(other.commands(), QStringList(QStringLiteral("KyDM 5")));
    }

    void aControlMessageWithoutAResultIsOnlySent() {
        PaneFixture fixture;
        const RecordingHelper other("AnotherProcess");
        QCOMPARE(fixture.pane->sendControlToKext("AnotherProcess", kMessageRecording, 6, nullptr), noErr);
        QTRY_COMPARE(other.commands(), QStringList(QStringLiteral("KyDM 6")));
    }

    void aControlMessageToNobodyLeavesTheResultAlone() {
        PaneFixture fixture;
        std::int32_t result = 99;
        QCOMPARE(fixture.pane->sendControlToKext("Nobody", kMessageRecording, 5, &result), procNotFound);
        QCOMPARE(result, 99);
    }

    void aProcessIsFoundInAnyLetterCaseAndInFullLengthOnly() {
        PaneFixture fixture({.helper = false});
        {
            const RecordingHelper lowerCase("kyvarquorvihelper");
            ProcessSerialNumber psn;
            QCOMPARE(fixture.pane->findProcessByName("KyvarQuorviHelper", &psn), noErr);
            QVERIFY(psn != ProcessSerialNumber());
        }
        const RecordingHelper longer("KyvarQuorviHelper2");
        ProcessSerialNumber psn{1, 2};
        QCOMPARE(fixture.pane->findProcessByName("KyvarQuorviHelper", &psn), procNotFound);
        QVERIFY((psn == ProcessSerialNumber{1, 2}));
    }

    void aListThatIsStillToBeShownWhenThePaneIsHiddenIsDropped() {
        PaneFixture fixture;
        fixture.writeSettings(PaneFixture::sampleTree());
        fixture.select();
        // The list has been received; what follows from it is the next thing that the pane is called for.
        HideAtNextCall hide(*fixture.pane);
        fixture.helper->sendDeviceList(1);
        QTRY_VERIFY(hide.done());
        QCoreApplication::processEvents();
        QVERIFY(!fixture.pane->deviceConfig());
        QVERIFY(fixture.commandsBecome({"KyRO 1", "KyRO 0"}));
    }

    void listsThatComeTogetherAreShownOnceAndTheLastOneCounts() {
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        const CallCounter calls(*fixture.pane);
        for (int list = 0; list < 20; ++list)
            fixture.helper->sendDeviceList(1);
        fixture.helper->sendDeviceList(0);
        // The bus serves its connections in turn: the panel's own look-up is answered behind the lists only
        // when they have been passed on.
        fixture.helper->awaitPassedOn();
        QCOMPARE(fixture.pane->findProcessByName("nobody", nullptr), procNotFound);
        QTRY_COMPARE(fixture.text("quorviTextProfile"), QStringLiteral("No device connected"));
        QCOMPARE(calls.count(), 1);
        // The next one is shown again.
        fixture.connectDevices(1);
        QTRY_COMPARE(fixture.text("quorviTextProfile"), QStringLiteral("Desk"));
        QCOMPARE(calls.count(), 2);
    }

    void aControlMessageThatIsAnsweredWithAnotherTypeOrAnErrorLeavesTheResultAlone_data() {
        QTest::addColumn<int>("answer");
        QTest::addColumn<int>("status");
        QTest::newRow("bytes") << 0 << int(errAECoercionFail);
        QTest::newRow("an unsigned number") << 1 << int(errAECoercionFail);
        QTest::newRow("nothing") << 2 << int(errAEDescNotFound);
        QTest::newRow("an error") << 3 << int(errAEEventFailed);
    }

    void aControlMessageThatIsAnsweredWithAnotherTypeOrAnErrorLeavesTheResultAlone() {
        QFETCH(int, answer);
        QFETCH(int, status);
        PaneFixture fixture;
        RecordingHelper other("AnotherProcess");
        other.answerWith([answer](Event& reply) {
            if (answer == 0)
                reply.putBytes(keyDirectObject, typeDeviceList, EventBytes(196, 1));
            else if (answer == 1)
                reply.putMagnitude(keyDirectObject, 7);
            return answer == 3 ? errAEEventFailed : noErr;
        });
        std::int32_t result = 99;
        QCOMPARE(
            int(fixture.pane->sendControlToKext("AnotherProcess", kMessageRecording, 5, &result)), status);
        QCOMPARE(result, 99);
    }

    void aListIsHandledAlsoWhileASheetIsUp() {
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        fixture.selectTab(4);
        bool handled = false;
        whenSheetIsUp(fixture.window.get(), "quorviPanelConfirm", [&](QDialog* sheet) {
            fixture.pane->deviceConfig().set("firmware", 0x0A00);
            fixture.helper->sendDeviceList(1);
            // The list rebuilds the pane from the file, where the firmware is the old one.
            handled = QTest::qWaitFor(
                [&] { return fixture.pane->deviceConfig().integer("firmware") == 0x0105; }, 5000);
            sheet->reject();
        });
        fixture.click("quorviButtonRestoreDefaults");
        QVERIFY(handled);
    }
};

QUORVI_PANE_TEST_MAIN(HelperLinkTest)
#include "HelperLinkTest.moc"
