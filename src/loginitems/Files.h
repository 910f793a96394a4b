// File-system calls for the login-item stores, with errors as statuses.
#pragma once

#include <string>

#include "base/FileCalls.h"
#include "base/Status.h"

namespace quorvi {

/// The status for an errno value; ioErr for one without its own code. Never memFullErr.
[[nodiscard]] Status statusOfErrno(int error);

/// Creates an empty file if none exists. Returns fnfErr if the path cannot be reached, else the status of the
/// failed call.
[[nodiscard]] Status ensureFile(const std::string& path, FileCalls& calls);

/// Creates the folder and its missing parents, accessible only to their owner, as the XDG base directories
/// require. Leaves an existing folder unchanged.
[[nodiscard]] Status makeFolder(const std::string& path);

[[nodiscard]] Status removeFile(const std::string& path, FileCalls& calls);

} // namespace quorvi
