// A push button that stays down, and counts as clicked whoever clicks it.
#pragma once

#include <QPushButton>

#include "platform/widgets/ClickedByAnyone.h"

namespace quorvi {

class ToggleButton : public ClickedByAnyone<QPushButton> {
    Q_OBJECT

  public:
    using ClickedByAnyone::ClickedByAnyone;
};

} // namespace quorvi
