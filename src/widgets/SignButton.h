// A push button with a sign next to its text.
#pragma once

#include <QPushButton>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace quorvi {

/// Keeps the sign and the text together in a right-to-left window: styles place the text next to the icon in
/// the button's direction, and Qt's painter mirrors it again, away from the icon.
class SignButton : public QPushButton {
  public:
    using QPushButton::QPushButton;

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QStyleOptionButton option;
        initStyleOption(&option);
        QStylePainter painter(this);
        painter.setLayoutDirection(Qt::LeftToRight);
        painter.drawControl(QStyle::CE_PushButton, option);
    }
};

} // namespace quorvi
