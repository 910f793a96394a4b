// A push button that stays down, and counts as clicked whoever clicks it.
#pragma once

#include <QPushButton>
#include <QStyleOptionButton>
#include <QStylePainter>

#include "widgets/ClickedByAnyone.h"

namespace quorvi {

class ToggleButton : public ClickedByAnyone<QPushButton> {
    Q_OBJECT

  public:
    using ClickedByAnyone::ClickedByAnyone;

  protected:
    /// Styles put the text beside the icon by the button's direction, and Qt's painter turns that around once
    /// more by the application's, away from the icon.
    void paintEvent(QPaintEvent* /*event*/) override {
        QStyleOptionButton option;
        initStyleOption(&option);
        QStylePainter painter(this);
        painter.setLayoutDirection(Qt::LeftToRight);
        painter.drawControl(QStyle::CE_PushButton, option);
    }
};

} // namespace quorvi
