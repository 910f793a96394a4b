// The programs as a user has them who has set everything up, for what is measured from outside.
#pragma once

#include <string>

namespace quorvi::bench {

inline const std::string kPanel = QUORVI_PROGRAMS "/quorvi-settings";
inline const std::string kEmptyWindow = QUORVI_PROGRAMS "/quorvi-bench-empty-window";
inline const std::string kHelper =
    QUORVI_BUNDLE "/Contents/Resources/KyvarQuorviHelper.app/Contents/Linux/KyvarQuorviHelper";

/// Lets this process and what it starts have a home folder with a full configuration of an earlier session,
/// and nothing of the real user's.
void becomeNewUser(const std::string& home);

/// Waits until the process of that name is in the process list of the session's bus.
void waitForProcess(const std::string& name);
inline void waitForHelper() {
    waitForProcess("KyvarQuorviHelper");
}

} // namespace quorvi::bench
