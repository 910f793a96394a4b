// A check box that emits clicked() for assistive programs too.
#pragma once

#include <QCheckBox>

#include "widgets/ClickedByAnyone.h"

namespace quorvi {

class CheckBox : public ClickedByAnyone<QCheckBox> {
    Q_OBJECT

  public:
    using ClickedByAnyone::ClickedByAnyone;
};

} // namespace quorvi
