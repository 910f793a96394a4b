// A drag in the drawing of a macro of sixteen steps, in the real controller and window: the longest frame,
// which is a move of the pointer until it is drawn, and the frames of a play head.

#include <QApplication>
#include <QMouseEvent>
#include <QTest>

#include <algorithm>

#include "bench/Figures.h"
#include "bench/FullConfiguration.h"
#include "pane/PaneFixture.h"
#include "support/PrivateBus.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/StepsTimeline.h"

namespace quorvi::bench {
namespace {

constexpr int kMoves = 1000; ///< of one drag
constexpr int kSteps = 16;
constexpr double kGoal = 8; ///< ms, half a frame of a display at 60 Hz

class Panel {
  public:
    Panel() {
        m_fixture.openWith(fullConfiguration());
        m_fixture.selectTab(3);
        m_fixture.selectRow("quorviTableMacros", 0);
        QCoreApplication::processEvents();
        m_timeline = m_fixture.find<StepsTimeline>("quorviTimelineSteps");
        if (m_timeline->stepCount() != kSteps)
            qFatal("the macro has %d steps", m_timeline->stepCount());
    }

    /// The frames of a drag of the second step's edge, back and forth, in ms. Each shows another delay.
    std::vector<double> drag() {
        const QPoint from = m_timeline->edgeOf(1);
        QTest::mousePress(m_timeline->viewport(), Qt::LeftButton, {}, from);
        std::vector<double> frames;
        const int sweep = m_timeline->width() - from.x();
        for (int move = 1; move <= kMoves; ++move) {
            const auto delay = m_timeline->draggedDelay();
            const int along = 4 + (move * 3) % sweep;
            frames.push_back(frameOf([&] { moveTo(from + QPoint(along, 0)); }));
            m_changes += m_timeline->draggedDelay() != delay ? 1 : 0;
        }
        QTest::keyClick(m_timeline, Qt::Key_Escape);
        QTest::mouseRelease(m_timeline->viewport(), Qt::LeftButton, {}, from);
        return frames;
    }

    std::vector<double> play() {
        std::vector<double> frames;
        for (int frame = 0; frame < kMoves; ++frame)
            frames.push_back(frameOf([&] { m_timeline->setPlayedTime(std::chrono::milliseconds(frame)); }));
        m_timeline->setPlayedTime(std::nullopt);
        return frames;
    }

    [[nodiscard]] int changes() const { return m_changes; }

  private:
    void moveTo(const QPoint& point) {
        QMouseEvent event(QEvent::MouseMove, point, m_timeline->viewport()->mapToGlobal(point), Qt::NoButton,
            Qt::LeftButton, Qt::ShiftModifier);
        QApplication::sendEvent(m_timeline->viewport(), &event);
    }

    /// The action, and the drawing that it leads to.
    static double frameOf(const std::function<void()>& action) {
        const auto start = Clock::now();
        action();
        QCoreApplication::processEvents();
        return Microseconds(Clock::now() - start).count() / 1000;
    }

    test::PaneFixture m_fixture;
    StepsTimeline* m_timeline = nullptr;
    int m_changes = 0;
};

void run(bool quick) {
    Panel panel;
    std::vector<double> all;
    std::vector<double> longest;
    std::vector<double> played;
    const int rounds = quick ? 2 : 11;
    for (int round = 0; round < rounds; ++round) {
        const std::vector<double> frames = panel.drag();
        all.insert(all.end(), frames.begin(), frames.end());
        longest.push_back(*std::ranges::max_element(frames));
        const std::vector<double> heads = panel.play();
        played.insert(played.end(), heads.begin(), heads.end());
    }
    if (panel.changes() < rounds * kMoves / 2)
        qFatal("only %d of %d moves changed the delay", panel.changes(), rounds * kMoves);
    printRow("longest of " + std::to_string(kMoves) + " frames of a drag in a macro's timeline",
        figureOf(longest), "ms", kGoal);
    printRow("  a frame", figureOf(all), "ms", kGoal);
    printRow("  a frame of the play head", figureOf(played), "ms", kGoal);
}

} // namespace
} // namespace quorvi::bench

int main(int argc, char** argv) {
    const quorvi::test::PrivateBus bus;
    QApplication application(argc, argv);
    quorvi::bench::run(quorvi::bench::isQuick(argc, argv));
}
