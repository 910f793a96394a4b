// The drawing of the current macro in time, in the real panel.
#pragma once

#include <QHelpEvent>
#include <QPushButton>
#include <QToolTip>

#include "pane/MacroFixture.h"
#include "plist/Writer.h"
#include "widgets/StepsTimeline.h"

namespace quorvi::test {

inline constexpr const char* kTimeline = "quorviTimelineSteps";

inline const QStringList kCtrlC{"1 224 70", "1 6 50", "0 6 30", "0 224 0"};

/// The timeline with these steps, and what the mouse and the keyboard do to it.
class TimelineFixture : public MacroFixture {
  public:
    explicit TimelineFixture(const QStringList& steps = kCtrlC) : MacroFixture(steps) {}

    /// The edge of the step goes so many pixels to the right, in small moves, and the button is still down.
    void drag(int step, int pixels, Qt::KeyboardModifiers modifiers = {}) const {
        const QPoint from = timeline->edgeOf(step);
        QTest::mousePress(timeline->viewport(), Qt::LeftButton, modifiers, from);
        for (int moved = 0; moved != pixels; moved += pixels > 0 ? 1 : -1)
            move(from + QPoint(moved, 0), modifiers);
        move(from + QPoint(pixels, 0), modifiers);
    }
    void move(const QPoint& point, Qt::KeyboardModifiers modifiers = {}) const {
        QMouseEvent event(QEvent::MouseMove, point, timeline->viewport()->mapToGlobal(point), Qt::NoButton,
            Qt::LeftButton, modifiers);
        QApplication::sendEvent(timeline->viewport(), &event);
    }
    /// Without a button, as the display tells it; but its pointer stays, which would miss a window that is
    /// still being placed.
    void pointAt(const QPoint& point) const {
        QTest::mouseMove(window->windowHandle(), timeline->viewport()->mapTo(window.get(), point));
        QCoreApplication::processEvents();
    }
    void release() const { QTest::mouseRelease(timeline->viewport(), Qt::LeftButton, {}, QPoint(1, 1)); }
    void clickAt(const QPoint& point, Qt::KeyboardModifiers modifiers = {}) const {
        QTest::mouseClick(timeline->viewport(), Qt::LeftButton, modifiers, point);
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
        QTest::keyClick(window->windowHandle(), key, modifiers);
        QCoreApplication::processEvents();
    }
    [[nodiscard]] std::vector<int> selected() const { return table->selectedRows(); }
    [[nodiscard]] std::string bytes() const { return plist::writeXml(pane->deviceConfig()).value(); }
    [[nodiscard]] std::string savedBytes() const { return plist::writeXml(savedSettings()).value(); }
    [[nodiscard]] QString lastAction() const {
        return find<QPushButton>("quorviButtonUndo")->toolTip().section(" (Ctrl", 0, 0);
    }
    /// What the pointer that rests there is told.
    [[nodiscard]] QString tipAt(const QPoint& point) const {
        QToolTip::hideText();
        QHelpEvent event(QEvent::ToolTip, point, timeline->viewport()->mapToGlobal(point));
        QApplication::sendEvent(timeline->viewport(), &event);
        return QToolTip::text();
    }

    StepsTimeline* timeline = find<StepsTimeline>(kTimeline);
    KyvarQuorviTableView* table = find<KyvarQuorviTableView>(kStepsTable);
};

} // namespace quorvi::test
