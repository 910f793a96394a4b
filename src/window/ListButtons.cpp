#include "window/ListButtons.h"

#include <QPushButton>

#include "widgets/KyvarQuorviTableView.h"

namespace quorvi {

void enableButtonOf(KyvarQuorviTableView& list, QPushButton& button, bool enabled) {
    const bool hadFocus = button.window()->focusWidget() == &button;
    button.setEnabled(enabled);
    if (hadFocus && !enabled)
        list.setFocus();
}

} // namespace quorvi
