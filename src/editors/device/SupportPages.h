// The pages that the panel opens outside of itself: its help, and where updates are.
#pragma once

#include <string>

namespace quorvi {

class Bundle;
class Workspace;

/// Opens the page of the help that is about the tab, 0 buttons to 4 device; its index for any other number.
void openHelp(const Bundle& bundle, Workspace& workspace, int tab);

/// Opens the page where updates are.
void openUpdates(Workspace& workspace);

} // namespace quorvi
