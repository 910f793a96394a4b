// The host's cost of a key while no capture is active: its way through the event dispatch with the pane's
// filter, compared with the same way without.

#include <QApplication>
#include <QKeyEvent>
#include <QWindow>

#include "bench/Figures.h"
#include "pane/EventPatch.h"
#include "pane/PaneFixture.h"
#include "support/PrivateBus.h"

namespace quorvi::bench {
namespace {

constexpr int kCalls = 200; // milliseconds, far above what the clock costs
constexpr int kEventsInACall = 6;

/// A press and a release of Shift and of F9 in it, each press with the question for a shortcut before it, as
/// they come from a keyboard.
void typeKeys(QWindow* window) {
    struct Row {
        QEvent::Type type;
        int key;
        quint32 scanCode;
        quint32 keysym;
        quint32 state;
    };
    static constexpr std::array<Row, kEventsInACall> kRows{{
        {QEvent::ShortcutOverride, Qt::Key_Shift, 50, 0xffe1, 0},
        {QEvent::KeyPress, Qt::Key_Shift, 50, 0xffe1, 0},
        {QEvent::ShortcutOverride, Qt::Key_F9, 75, 0xffc6, 1},
        {QEvent::KeyPress, Qt::Key_F9, 75, 0xffc6, 1},
        {QEvent::KeyRelease, Qt::Key_F9, 75, 0xffc6, 1},
        {QEvent::KeyRelease, Qt::Key_Shift, 50, 0xffe1, 1},
    }};
    for (const Row& row : kRows) {
        QKeyEvent event(row.type, row.key, {}, row.scanCode, row.keysym, row.state);
        QCoreApplication::sendEvent(window, &event);
    }
}

void run(bool quick) {
    test::PaneFixture fixture({.helper = false});
    fixture.select();
    QWindow* const window = fixture.window->windowHandle();
    const auto microsecondsOfAnEvent = [window] {
        return processorMicrosecondsOf(kCalls, [window] { typeKeys(window); }) / (kCalls * kEventsInACall);
    };
    const auto pairs = runPairs(quick ? 5 : 101, microsecondsOfAnEvent, [&] {
        KyvarQuorviSwapNSAppMethods(fixture.pane.get());
        const double result = microsecondsOfAnEvent();
        KyvarQuorviSwapNSAppMethods(fixture.pane.get());
        return result;
    });
    printRow("a key event in the host, the panel shown / without the panel's filter",
        figureOf(pairs.ratios()), "x", std::nullopt);
    printRow("  what the filter takes of it", figureOf(pairs.differences()), "µs", 100);
}

} // namespace
} // namespace quorvi::bench

int main(int argc, char** argv) {
    const quorvi::test::PrivateBus bus;
    QApplication application(argc, argv);
    quorvi::bench::run(quorvi::bench::isQuick(argc, argv));
}
