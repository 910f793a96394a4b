// A push button without a frame that still shows when it has the focus.
#pragma once

#include "widgets/SignButton.h"

namespace quorvi {

/// Some styles draw nothing on a flat button that the Tab key has come to.
class FlatButton : public SignButton {
    Q_OBJECT

  public:
    explicit FlatButton(QWidget* parent = nullptr) : SignButton(parent) { setFlat(true); }

  protected:
    void paintEvent(QPaintEvent* event) override;
};

/// Frames the widget in the colour of marks, if it has the focus and the user goes by the keyboard.
void paintFocusFrame(QWidget& widget, const QRect& around);

} // namespace quorvi
