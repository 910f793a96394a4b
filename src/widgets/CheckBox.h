// A check box that counts as clicked whoever clicks it.
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
