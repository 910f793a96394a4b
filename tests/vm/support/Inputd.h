// The service as a program, with the rights that it has on a user's machine.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "engine/TestRecord.h"
#include "support/ChildProcess.h"

namespace quorvi::test {

/// Starts it as its own user, who is in the groups of input devices and of uinput and may gain no right.
[[nodiscard]] std::unique_ptr<ChildProcess> startInputd(const std::vector<std::string>& arguments = {});

/// Starts it on that one device, without a bus.
[[nodiscard]] std::unique_ptr<ChildProcess> startInputd(const std::string& node, const TestRecord& record);

/// The record as a file that the service's user can read; its path.
[[nodiscard]] std::string fileOf(const TestRecord& record);

/// What the mouse of no manufacturer would be: input 4 types A with Shift, 5 holds Control, 6 runs a macro of
/// A and B that takes 40 ms, 7 goes to profile 2, where 4 types B and 7 goes back.
[[nodiscard]] TestRecord busyRecord();

// Codes of functions and usages of keys, as the record has them.
constexpr int kSingleKey = 49;
constexpr int kRunMacro = 65;
constexpr int kSwitchToProfile = 34;
constexpr int kNextStage = 18;
constexpr int kPageDown = 97;
constexpr int kUsageA = 4;
constexpr int kUsageB = 5;
constexpr int kUsageLeftShift = 225;
constexpr int kUsageLeftControl = 224;
constexpr int kShiftBit = 2;

} // namespace quorvi::test
