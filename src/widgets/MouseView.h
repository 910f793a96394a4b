// The drawing of the mouse on the buttons tab, with the number of each input on it. It follows the palette,
// and is never mirrored: it is the picture of a thing.
#pragma once

#include <QTimer>
#include <QTransform>
#include <QWidget>

#include <functional>
#include <utility>

#include "widgets/InputMarks.h"
#include "widgets/PressedInputs.h"

class QHelpEvent;

namespace quorvi {

enum class BadgeState;

class MouseView : public QWidget {
    Q_OBJECT

  public:
    explicit MouseView(QWidget* parent = nullptr);

    /// What is marked on the drawing. The view itself marks what the pointer is over, and what is pressed on
    /// the real mouse in its window.
    [[nodiscard]] InputMarks& marks() { return m_marks; }
    [[nodiscard]] const InputMarks& marks() const { return m_marks; }

    /// Whether the helper reports what is pressed on the mouse that is drawn. Then what is pressed in the
    /// window marks nothing: which of the mouse's buttons that was, is not known there.
    void setReported(bool reported);
    /// The helper says that the input, 1 to 9, went down or up. A turn of the wheel, 8 and 9, only goes down.
    void reportInput(int input, bool pressed);

    /// Gives what is said of the input that the pointer rests on, in lines; empty for nothing.
    using Explanation = std::function<QString(int input)>;
    void setExplanation(Explanation explanation) { m_explanation = std::move(explanation); }

    /// Which of the mouse's lights are drawn as lit.
    void setLights(bool wheel, bool battery);

    /// The middle of the number of the input, 1 to 9, and the radius of its circle, in the view's
    /// coordinates.
    [[nodiscard]] QPointF middleOfInput(int input) const;
    [[nodiscard]] qreal radiusOfInput() const;
    /// The input whose number is at that point of the view; 0 when there is none.
    [[nodiscard]] int inputAt(const QPointF& point) const;
    /// From the sheet of MouseDrawing.h to the view's coordinates.
    [[nodiscard]] QTransform fromSheet() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  signals:
    /// The input was clicked with the left button.
    void inputClicked(int input);

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    void pointAt(int input);
    [[nodiscard]] BadgeState stateOf(int input) const;
    void explain(const QHelpEvent& event);

    InputMarks m_marks;
    Explanation m_explanation;
    PressedInputs m_pressed{*this, m_marks};
    QTimer m_wheelRest;      ///< runs while a turn of the wheel is shown
    int m_clicked = 0;       ///< the input that the left button went down on
    bool m_reported = false; ///< see setReported()
    bool m_wheelIsLit = false;
    bool m_batteryIsLit = false;
};

} // namespace quorvi
