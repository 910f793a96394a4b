// The names of temporary files, by which those of a killed process are recognised.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <sys/types.h>

namespace quorvi {

/// ".quorvi-PROCESS-NUMBER".
[[nodiscard]] std::string temporaryName(pid_t process, unsigned number);

/// The process in a name of exactly that form; std::nullopt for any other name.
[[nodiscard]] std::optional<pid_t> makerOfTemporaryName(std::string_view name);

} // namespace quorvi
