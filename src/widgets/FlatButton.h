// A push button without a frame that still shows when it has the focus.
#pragma once

#include "widgets/SignButton.h"

namespace quorvi {

/// Some styles do not mark a flat button that has the focus.
class FlatButton : public SignButton {
    Q_OBJECT

  public:
    explicit FlatButton(QWidget* parent = nullptr) : SignButton(parent) { setFlat(true); }

  protected:
    void paintEvent(QPaintEvent* event) override;
};

/// Frames the widget in the mark colour if it has the focus and the user navigates with the keyboard.
void paintFocusFrame(QWidget& widget, const QRect& around);

} // namespace quorvi
