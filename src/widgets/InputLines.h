// The lines that tie the numbers on the drawing of the mouse to the controls beside it.
#pragma once

#include <QLineF>
#include <QWidget>

#include <array>

#include "widgets/InputMarks.h"

namespace quorvi {

class MouseView;

class InputLines : public QWidget {
    Q_OBJECT

  public:
    /// Controls of the inputs from 1.
    using Controls = std::array<QWidget*, mouseInputs>;

    /// Covers the view's parent, which the controls lie in too, between the drawing and them. It takes no
    /// click and no focus.
    InputLines(MouseView& view, const Controls& controls);

    /// From the edge of the control to the circle of the input, 1 to 9, in this widget's coordinates.
    [[nodiscard]] QLineF lineOf(int input) const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    const MouseView& m_view;
    Controls m_controls;
};

} // namespace quorvi
