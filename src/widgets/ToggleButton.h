// A push button that stays down, and emits clicked() for assistive programs too.
#pragma once

#include "widgets/ClickedByAnyone.h"
#include "widgets/SignButton.h"

namespace quorvi {

class ToggleButton : public ClickedByAnyone<SignButton> {
    Q_OBJECT

  public:
    using ClickedByAnyone::ClickedByAnyone;
};

} // namespace quorvi
