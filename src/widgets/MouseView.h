// The drawing of the mouse on the buttons tab, with the number of each input on it. It follows the palette
// and is never mirrored, because it shows a real object.
#pragma once

#include <QTimer>
#include <QTransform>
#include <QWidget>

#include <functional>
#include <utility>

#include "widgets/InputMarks.h"
#include "widgets/MousePicture.h"
#include "widgets/PressFade.h"
#include "widgets/PressedInputs.h"

class QHelpEvent;

namespace quorvi {

enum class BadgeState;

class MouseView : public QWidget {
    Q_OBJECT

  public:
    explicit MouseView(QWidget* parent = nullptr);

    /// The marks on the drawing. The view itself marks the pointed input, and inputs pressed on the real
    /// mouse in its window.
    [[nodiscard]] InputMarks& marks() { return m_marks; }
    [[nodiscard]] const InputMarks& marks() const { return m_marks; }

    /// Sets whether the helper reports presses on the drawn mouse. If it does, presses in the window are not
    /// marked, because their input is not known there.
    void setReported(bool reported);
    /// Shows a press or release of the input, 1 to 9, reported by the helper. Turns of the wheel, 8 and 9,
    /// have no release.
    void reportInput(int input, bool pressed);

    /// Returns the explanation of the input under the pointer, in lines; may be empty.
    using Explanation = std::function<QString(int input)>;
    void setExplanation(Explanation explanation) { m_explanation = std::move(explanation); }

    /// Sets which lights are drawn as lit.
    void setLights(bool wheel, bool battery);

    /// The middle of the number of the input, 1 to 9, and the radius of its circle, in the view's
    /// coordinates.
    [[nodiscard]] QPointF middleOfInput(int input) const;
    [[nodiscard]] qreal radiusOfInput() const;
    /// The input whose number is at that point of the view; 0 if there is none.
    [[nodiscard]] int inputAt(const QPointF& point) const;
    /// Maps the sheet of MouseDrawing.h to view coordinates.
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
    PressFade m_fade{*this, m_marks};
    MousePicture m_picture;
    QTimer m_wheelRest;      ///< runs while a turn of the wheel is shown
    int m_clicked = 0;       ///< the input on which the left button was pressed
    bool m_reported = false; ///< see setReported()
    bool m_wheelIsLit = false;
    bool m_batteryIsLit = false;
};

} // namespace quorvi
