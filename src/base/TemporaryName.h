// What temporary files are called, so that those that a killed process leaves behind are told from everything
// else.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <sys/types.h>

namespace quorvi {

/// ".quorvi-PROCESS-NUMBER".
[[nodiscard]] std::string temporaryName(pid_t process, unsigned number);

/// The process that a name of exactly that form was made by; nothing for any other name.
[[nodiscard]] std::optional<pid_t> makerOfTemporaryName(std::string_view name);

} // namespace quorvi
