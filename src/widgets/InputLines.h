// The lines between the numbers on the drawing of the mouse and the controls next to it.
#pragma once

#include <QPolygonF>
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

    /// Covers the parent of the view and the controls, and draws between them. Accepts no clicks and no
    /// focus.
    InputLines(MouseView& view, const Controls& controls);

    /// The line of the input, 1 to 9, in this widget's coordinates: horizontal from the control's edge to the
    /// knee, then straight to the input's circle.
    [[nodiscard]] QPolygonF lineOf(int input) const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    [[nodiscard]] QRectF edgesOf(int input) const;

    const MouseView& m_view;
    Controls m_controls;
};

} // namespace quorvi
