// The panel's tabs, by their places.
#pragma once

namespace quorvi::test {

inline constexpr int kButtonsTab = 0;
inline constexpr int kSensitivityTab = 1;
inline constexpr int kProfilesTab = 2;
inline constexpr int kMacrosTab = 3;
inline constexpr int kDeviceTab = 4;

} // namespace quorvi::test
