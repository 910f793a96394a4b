// The service as a program, with the rights that it has on a user's machine.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "support/ChildProcess.h"
#include "vm/support/TestRecord.h"

namespace quorvi::test {

/// Starts it as its own user, who is in the groups of input devices and of uinput and may gain no right.
[[nodiscard]] std::unique_ptr<ChildProcess> startInputd(const std::vector<std::string>& arguments = {});

/// Starts it on that one device, without a bus.
[[nodiscard]] std::unique_ptr<ChildProcess> startInputd(const std::string& node, const TestRecord& record);

} // namespace quorvi::test
