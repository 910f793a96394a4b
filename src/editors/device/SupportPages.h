// Opens the panel's external pages: help and updates.
#pragma once

#include <string>

namespace quorvi {

class Bundle;
class Workspace;

/// Opens the help page of the tab, 0 (buttons) to 4 (device); the index for any other number.
void openHelp(const Bundle& bundle, Workspace& workspace, int tab);

/// Opens the updates page.
void openUpdates(Workspace& workspace);

} // namespace quorvi
