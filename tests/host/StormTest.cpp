// The open panel, as a separate program, in a storm of device lists and malformed events: it keeps responding
// to its user, uses no more memory, and is unchanged afterwards.
//
// The short form has some hundred of either. The full one, of 10,000 device lists and 10,000 malformed
// events:
//     QUORVI_STORM=10000 scripts/with-display dbus-run-session -- build/bin/StormTest
// It prints the longest delay of an answer, and the memory before and afterwards.

#include "support/Storm.h"

#include <QTest>

#include <array>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <thread>

#include "host/PanelProgram.h"
#include "support/Files.h"
#include "support/Keyboard.h"
#include "support/ProcessFigures.h"
#include "support/SessionTestMain.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr char kPanelName[] = "KyvarQuorviPane";

/// By how much memory may differ after the storm, in KiB: pages that the allocator comes to touch. It is
/// about 1000 after 10,000 lists and no more after 40,000.
constexpr std::int64_t kMemoryMargin = 1536;

/// Counts that lists have in the storm; the record has room for 8.
constexpr std::array<std::uint16_t, 5> kCounts{1, 8, 9, 0x8000, 0xFFFF};

[[nodiscard]] Storm stormAt(const PanelProgram& panel) {
    return Storm(panel.session.process(kPanelName));
}

/// Runs the action in a thread of its own, while the events of this one are handled.
template <typename Action>
[[nodiscard]] bool runBeside(Action&& action) {
    std::atomic<bool> done = false;
    std::thread thread([&] {
        action();
        done = true;
    });
    const bool ended = QTest::qWaitFor([&] { return done.load(); }, 10 * 60 * 1000);
    thread.join();
    return ended;
}

void sendPairs(Storm& storm, int pairs, bool withEmptyLists) {
    for (int i = 0; i < pairs; ++i) {
        storm.sendMalformed();
        const bool isEmpty = withEmptyLists && i % 3 == 0;
        storm.sendDeviceList(isEmpty ? 0 : kCounts[std::size_t(i) % kCounts.size()]);
    }
}

} // namespace

class StormTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display with xdotool");
    }

    void thePanelAnswersAndIsAfterwardsAsItWas() {
        const PanelProgram panel;
        QVERIFY(panel.clickReachesTheMouse());
        const auto file = readFile(panel.session.home.settingsFile());
        const auto record = panel.session.record();
        const pid_t pid = panel.program->pid();
        const int size = stormSize();
        Storm storm = stormAt(panel);

        const WindowPing ping(panel.program->window());
        QTRY_VERIFY_WITH_TIMEOUT(ping.answers() >= 20, kWindowPatienceMs);
        const int calmDelay = ping.longestDelayMs();
        bool takenIn = false;
        MemoryFigures first;
        QVERIFY(runBeside([&] {
            sendPairs(storm, size / 10, true);
            takenIn = storm.isTakenIn();
            first = memoryOf(pid);
            sendPairs(storm, size - size / 10, true);
            storm.sendDeviceList(1);
            takenIn = storm.isTakenIn() && takenIn;
        }));
        QVERIFY(takenIn);
        const int answers = ping.answers();
        QTRY_VERIFY_WITH_TIMEOUT(ping.answers() > answers, kWindowPatienceMs);
        const MemoryFigures last = memoryOf(pid);
        std::printf("%d device lists and %d malformed events: %d answers, the longest after %d ms (%d ms "
                    "before); memory %lld -> %lld KiB, heap %lld -> %lld KiB\n",
            size, size, ping.answers(), ping.longestDelayMs(), calmDelay,
            static_cast<long long>(first.resident), static_cast<long long>(last.resident),
            static_cast<long long>(first.anonymous), static_cast<long long>(last.anonymous));
        QVERIFY2(ping.longestDelayMs() <= kLongestDelayMs, "the window kept its user waiting");
        if (!kSanitized) { // the sanitizers keep what was freed, and find leaks themselves
            QVERIFY(last.resident <= first.resident + kMemoryMargin);
            QVERIFY(last.anonymous <= first.anonymous + kMemoryMargin);
        }

        QCOMPARE(readFile(panel.session.home.settingsFile()), file);
        QCOMPARE(changes(record, panel.session.record()), QString());
        QVERIFY(panel.clickReachesTheMouse());
        QVERIFY(panel.program->isRunning());
        const auto ended = panel.program->end();
        QVERIFY2(ended.error.find("Sanitizer") == std::string::npos, ended.error.c_str());
        QCOMPARE(ended.exitCode, std::optional(0));
    }

    void aPanelThatStopsIsNoticed() {
        const PanelProgram panel;
        const WindowPing ping(panel.program->window());
        QTRY_VERIFY_WITH_TIMEOUT(ping.answers() >= 5, kWindowPatienceMs);
        kill(panel.program->pid(), SIGSTOP);
        QTRY_VERIFY_WITH_TIMEOUT(ping.longestDelayMs() > kLongestDelayMs, kWindowPatienceMs);
        kill(panel.program->pid(), SIGCONT);
        const int answers = ping.answers();
        QTRY_VERIFY_WITH_TIMEOUT(ping.answers() > answers, kWindowPatienceMs);
        QVERIFY(ping.longestDelayMs() > kLongestDelayMs); // the answer that came late counts as well
    }

    void everyClickInTheStormReachesTheMouse() {
        const PanelProgram panel;
        Storm storm = stormAt(panel);
        std::atomic<bool> stop = false;
        std::thread sender([&] {
            // As fast as the panel takes it: what is sent faster than that waits in the bus, in front of the
            // answers that the panel asks for to tell the helper.
            while (!stop && storm.isTakenIn())
                sendPairs(storm, 100, false);
        });
        int reached = 0;
        for (int click = 0; click < 10; ++click)
            reached += panel.clickReachesTheMouse();
        stop = true;
        sender.join();
        QCOMPARE(reached, 10);
    }

    void nothingWakesThePanelAfterwards() {
        const PanelProgram panel;
        Storm storm = stormAt(panel);
        sendPairs(storm, 100, true);
        storm.sendDeviceList(1);
        QVERIFY(storm.isTakenIn());
        const pid_t pid = panel.program->pid();
        QVERIFY(comesToRest(pid));
        const auto before = sleepsOf(pid);
        QVERIFY(!QTest::qWaitFor([&] { return sleepsOf(pid) != before; }, 2000));
    }
};

QUORVI_SESSION_TEST_MAIN(StormTest)
#include "StormTest.moc"
