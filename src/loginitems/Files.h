// The file-system calls that the login-item stores need, with their errors as statuses.
#pragma once

#include <string>

#include "base/FileCalls.h"
#include "base/Status.h"

namespace quorvi {

/// The status that stands for an errno value; ioErr for one without a code of its own. Never memFullErr.
[[nodiscard]] Status statusOfErrno(int error);

/// Creates an empty file where there is nothing; an existing one is left as it is. fnfErr when the path
/// cannot be reached, else the status of the failed call.
[[nodiscard]] Status ensureFile(const std::string& path, FileCalls& calls);

/// Creates the folder and those above it for their owner alone, as the XDG base directories ask for. An
/// existing folder is left as it is.
[[nodiscard]] Status makeFolder(const std::string& path);

[[nodiscard]] Status removeFile(const std::string& path, FileCalls& calls);

} // namespace quorvi
