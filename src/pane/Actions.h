// Connects the views' signals to the controller's selectors.
#pragma once

class QWidget;

namespace quorvi {

class Interface;
class KyvarQuorviPane;

/// Connects each control and menu item to the action that it names, and the others to their selectors. The
/// controller must outlive the views' use.
void connectActions(KyvarQuorviPane& pane, QWidget& mainView, const Interface& views);

} // namespace quorvi
