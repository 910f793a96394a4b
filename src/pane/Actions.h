// The views' signals, tied to the selectors of the controller.
#pragma once

class QWidget;

namespace quorvi {

class Interface;
class KyvarQuorviPane;

/// Ties each control and menu item to the action whose name it carries, and what has no action to its
/// selector. The controller must outlive the views' use.
void connectActions(KyvarQuorviPane& pane, QWidget& mainView, const Interface& views);

} // namespace quorvi
