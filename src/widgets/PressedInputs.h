// Marks the inputs of the mouse whose real buttons are held down in the window of a view, while that is
// shown.
#pragma once

#include <QWidget>

namespace quorvi {

class InputMarks;

/// The input that the button is on the drawing: left, right and wheel button 1 to 3, back 4, forward 5; 0 for
/// any other.
[[nodiscard]] int inputOfButton(Qt::MouseButton button);

class PressedInputs : public QObject {
    Q_OBJECT

  public:
    /// For the life of both.
    PressedInputs(QWidget& view, InputMarks& marks);

    /// Whether it marks anything; it does from the start.
    void setActive(bool active);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void keepOnly(Qt::MouseButtons held);

    QWidget& m_view;
    InputMarks& m_marks;
    bool m_active = true;
};

} // namespace quorvi
