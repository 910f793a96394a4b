// A timeline of a macro: a lane for each key and for the mouse buttons, bars from press to release, and the
// delays below. Dragging an edge changes the delay before it.
//
// Keys: the arrows, Home and End select a step; "+" and "-" set its next longer and shorter usual delay.
#pragma once

#include <QAbstractScrollArea>
#include <QPointer>
#include <QStringList>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "macros/Timeline.h"
#include "macros/TimelineScale.h"
#include "widgets/AccessibleWidgets.h"
#include "widgets/TimelineDrag.h"
#include "widgets/TimelineGeometry.h"

class QHelpEvent;
class QMenu;

namespace quorvi {

struct TimelineScene;

/// What a timeline shows.
struct TimelineContent {
    Timeline timeline;
    QStringList laneNames;    ///< of each lane
    QStringList stepsInWords; ///< each with the delays around it
    bool operator==(const TimelineContent&) const = default;
};

class StepsTimeline : public QAbstractScrollArea {
    Q_OBJECT
    /// The text shown while there are no steps.
    Q_PROPERTY(QString emptyText READ emptyText WRITE setEmptyText)

  public:
    explicit StepsTimeline(QWidget* parent = nullptr);

    /// Shows another macro, or the same one after a change. A change cancels a drag in progress.
    void setContent(TimelineContent content);
    [[nodiscard]] const TimelineContent& content() const { return m_content; }
    [[nodiscard]] int stepCount() const { return int(m_content.timeline.steps()); }

    /// Shows these steps as selected. Keys apply to the current one.
    void setSelectedSteps(std::vector<int> steps, int current);
    [[nodiscard]] const std::vector<int>& selectedSteps() const { return m_selected; }
    /// The step that keys apply to; -1 if there is none.
    [[nodiscard]] int currentStep() const { return m_current < stepCount() ? m_current : -1; }
    /// Selects only this step, as the user does. Does nothing if it does not exist.
    void chooseStep(int step);
    /// Sets the step's delay to the next longer or shorter usual one, as the user does.
    void stepDelay(int step, bool longer);

    /// Sets whether the mouse and the keys can change delays and the selection.
    void setEditable(bool editable);
    [[nodiscard]] bool isEditable() const { return m_editable; }

    /// The delays at which a drag snaps, in milliseconds and in order.
    void setUsualDelays(std::vector<std::int32_t> delays) { m_usualDelays = std::move(delays); }
    /// Sets the function that returns the text of a delay.
    void setDelayText(std::function<QString(std::int32_t)> text);
    [[nodiscard]] QString emptyText() const { return m_emptyText; }
    void setEmptyText(const QString& text);
    /// Sets the context menu of the steps, which the panel owns.
    void setMenu(QMenu* menu);
    /// Passes all other keys to the list of steps, so that its keys work here too. A double click on a delay
    /// acts like F2 there.
    void setList(QWidget* list) { m_list = list; }

    /// Shows how far the macro has been played, from its first step; std::nullopt hides the play head.
    void setPlayedTime(std::optional<std::chrono::milliseconds> time);

    /// The delay that a drag would set; std::nullopt while there is no drag.
    [[nodiscard]] std::optional<std::int32_t> draggedDelay() const;

    // In the coordinates of the viewport.

    /// The middle of the step's edge, where a drag changes the delay before it. The number of steps means the
    /// end of the macro, which is in the foot.
    [[nodiscard]] QPoint edgeOf(int step) const;
    /// The bar that begins or ends at the step.
    [[nodiscard]] QRect barOf(int step) const;
    /// The step whose bar, or whose delay below the bars, is at the point; -1 if there is none.
    [[nodiscard]] int stepAt(const QPoint& point) const;
    /// The place of the play head; std::nullopt if there is none.
    [[nodiscard]] std::optional<qreal> playHead() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  signals:
    /// The timeline is about to be shown and needs its content now.
    void appears();
    /// The user has selected exactly these steps. The first one becomes the current one.
    void stepsChosen(const std::vector<int>& steps);
    /// The user has changed the step's delay, in milliseconds.
    void delayChosen(int step, int delay);

  protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void layOut();
    [[nodiscard]] int usualHeight() const;
    [[nodiscard]] qreal letters() const;
    [[nodiscard]] const TimelineScale& shownScale() const { return m_drag ? m_drag->scale() : m_scale; }
    [[nodiscard]] TimelineScene scene() const;
    [[nodiscard]] std::optional<std::size_t> barAt(const QPointF& point) const;
    [[nodiscard]] std::optional<std::size_t> edgeAt(const QPointF& point) const;
    [[nodiscard]] QString explanationAt(const QPoint& point) const;
    void chooseAt(const QPoint& point, bool further = false);
    void chooseSteps(const std::vector<std::size_t>& steps);
    void showEdgeAt(const QPointF& point);
    void moveDrag(const QPoint& point, Qt::KeyboardModifiers modifiers);
    void endDrag(bool taken);
    [[nodiscard]] int stepOfKey(int key) const;
    [[nodiscard]] bool isOwnKey(const QKeyEvent& key) const;
    bool handToList(QEvent& event);
    void typeDelayOf(int step);
    void openMenuByKey();
    void showCurrentStep();
    void updatePlayHead();

    std::shared_ptr<void> m_accessibleWidgets = accessibleWidgets();
    TimelineContent m_content;
    std::vector<int> m_selected;
    int m_current = -1;
    std::vector<std::int32_t> m_usualDelays;
    std::function<QString(std::int32_t)> m_delayText;
    QString m_emptyText;
    QPointer<QMenu> m_menu;
    QPointer<QWidget> m_list;
    bool m_editable = false;

    TimelineScale m_scale;
    TimelineGeometry m_geometry;
    std::optional<TimelineDrag> m_drag;
    std::optional<std::size_t> m_edge; ///< the edge under the pointer
    std::optional<std::chrono::milliseconds> m_played;
};

} // namespace quorvi
