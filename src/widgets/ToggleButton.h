// A push button that stays down, and emits clicked() for assistive programs too.
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
    /// Styles place the text next to the icon in the button's direction, and Qt's painter mirrors it again
    /// for the application's, away from the icon.
    void paintEvent(QPaintEvent* /*event*/) override {
        QStyleOptionButton option;
        initStyleOption(&option);
        QStylePainter painter(this);
        painter.setLayoutDirection(Qt::LeftToRight);
        painter.drawControl(QStyle::CE_PushButton, option);
    }
};

} // namespace quorvi
