// Marks the inputs whose real buttons are held down in a view's window, while the view is visible.
#pragma once

#include <QWidget>

namespace quorvi {

class InputMarks;

/// The button's input on the drawing: left, right and wheel button 1 to 3, back 4, forward 5; 0 for any
/// other.
[[nodiscard]] int inputOfButton(Qt::MouseButton button);

class PressedInputs : public QObject {
    Q_OBJECT

  public:
    /// Active while both exist.
    PressedInputs(QWidget& view, InputMarks& marks);

    /// Sets whether it is active; initially it is.
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
