// The exchange of the host's key dispatch: while a pane is shown it is asked for every key before the host
// is.
#pragma once

namespace quorvi {

class KyvarQuorviPane;

/// Puts the pane in front of the host's key dispatch; called a second time, takes it out again. The exchange
/// is its own inverse, so the calls have to be paired: an odd number of them leaves the host patched.
void KyvarQuorviSwapNSAppMethods(KyvarQuorviPane* pane);

/// The pane that keys are offered to; null while the host's dispatch is its own.
extern KyvarQuorviPane* gPatchedPane;

} // namespace quorvi
