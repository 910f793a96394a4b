// An impostor with the helper's or the panel's name. The panel is a separate program.

#include <QTest>

#include "host/PanelProgram.h"
#include "support/Keyboard.h"
#include "support/ProcessFigures.h"
#include "support/SessionTestMain.h"
#include "support/Storm.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr char kHelperName[] = "KyvarQuorviHelper";
constexpr char kPanelName[] = "KyvarQuorviPane";

/// A process that owns the name and does with commands what the test says. It serves the bus while the test
/// waits for something.
class Impostor {
  public:
    explicit Impostor(const char* name) {
        if (m_bus->ownName(name) != NameResult::owned)
            qFatal("the name %s is taken", name);
    }
    void handleCommands(EventHandler handler) {
        m_bus->installHandler(kEventClassQuorvi, kEventCommand, std::move(handler));
    }
    template <typename Condition>
    [[nodiscard]] bool serveUntil(Condition&& condition) const {
        return QTest::qWaitFor(
            [&] {
                m_bus->process();
                return condition();
            },
            kWindowPatienceMs);
    }
    [[nodiscard]] EventBus& bus() const { return *m_bus; }

  private:
    std::unique_ptr<EventBus> m_bus = EventBus::connect();
};

} // namespace

class LyingHelperTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display with xdotool");
    }

    void listsThatDoNotHaveTheirSizeAreNotLookedAt_data() {
        QTest::addColumn<int>("size");
        for (const int size : {0, 1, 4, 100, 195, 197, 392, 1'000'000})
            QTest::addRow("%d bytes", size) << size;
    }

    void listsThatDoNotHaveTheirSizeAreNotLookedAt() {
        QFETCH(int, size);
        const Session session;
        const Impostor helper(kHelperName);
        session.home.awaitDeviceList();
        const OpenProgram program(session);
        QTRY_VERIFY_WITH_TIMEOUT(session.runs(kPanelName), kWindowPatienceMs);
        const WindowPing ping(program.window());
        Storm liar(session.process(kPanelName));
        liar.sendListOfSize(std::size_t(size));
        QVERIFY(liar.isTakenIn());
        QVERIFY(answersInTime(ping)); // what the list had caused would have run by now
        QVERIFY(!session.home.deviceListHasCome());
        liar.sendDeviceList(1);
        QTRY_VERIFY_WITH_TIMEOUT(session.home.deviceListHasCome(), kWindowPatienceMs);
    }

    void aCountBeyondTheRecordOrBelowZeroIsAMouse_data() {
        QTest::addColumn<int>("count");
        for (const int count : {9, 0x7FFF, 0x8000, 0xFFFF})
            QTest::addRow("%d", count) << count;
    }

    void aCountBeyondTheRecordOrBelowZeroIsAMouse() {
        QFETCH(int, count);
        const Session session;
        const Impostor helper(kHelperName);
        session.home.awaitDeviceList();
        const OpenProgram program(session);
        QTRY_VERIFY_WITH_TIMEOUT(session.runs(kPanelName), kWindowPatienceMs);
        Storm liar(session.process(kPanelName));
        liar.sendDeviceList(std::uint16_t(count));
        QTRY_VERIFY_WITH_TIMEOUT(session.home.deviceListHasCome(), kWindowPatienceMs);
        const WindowPing ping(program.window());
        QVERIFY(answersInTime(ping)); // no sheet that says that there is no mouse, which would end neither
        QCOMPARE(program.end().exitCode, std::optional(0));
    }

    void aHelperThatAnswersWithErrorsAndWithAListToEverySave() {
        PanelProgram panel;
        QVERIFY(panel.clickReachesTheMouse()); // from here by keys: what tells of the loss moves the page
        panel.session.killHelper();
        Impostor helper(kHelperName);
        Storm liar(panel.session.process(kPanelName));
        int commands = 0;
        helper.handleCommands([&](const Event&, const ProcessSerialNumber&, Event& reply) {
            ++commands;
            liar.sendDeviceList(1);
            reply.putBytes(keyDirectObject, typeDeviceList, {1, 2, 3});
            return errAEEventFailed;
        });
        QVERIFY(panel.keyIsSaved());
        QVERIFY(panel.keyIsSaved());
        QVERIFY(helper.serveUntil([&] { return commands >= 2; }));
        // A list saves nothing when nothing is to be put right: the two do not keep each other busy.
        QVERIFY(liar.isTakenIn());
        QVERIFY(comesToRest(panel.program->pid()));
        helper.bus().process();
        QCOMPARE(commands, 2);
        QVERIFY(panel.keyIsSaved());
    }

    void whoHasTakenThePanelsNameDoesNotKeepAHelperFromFindingThePanel() {
        Session session;
        const Impostor impostor(kPanelName);
        session.startHelper();
        session.home.awaitDeviceList();
        const OpenProgram program(session);
        QTRY_VERIFY_WITH_TIMEOUT(session.home.deviceListHasCome(), kWindowPatienceMs);
        session.killHelper();
        session.home.awaitDeviceList();
        session.startHelper();
        QTRY_VERIFY_WITH_TIMEOUT(session.home.deviceListHasCome(), kWindowPatienceMs);
    }
};

QUORVI_SESSION_TEST_MAIN(LyingHelperTest)
#include "LyingHelperTest.moc"
