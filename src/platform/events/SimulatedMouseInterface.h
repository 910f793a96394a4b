// The bus interface of the simulated mouse, described once for the helper that offers it and the programs
// that use it. com.kyvar.SimulatedMouse.xml says the same for other programs.
#pragma once

namespace quorvi::simulatedmouse {

constexpr char kPath[] = "/com/kyvar/SimulatedMouse";
constexpr char kInterface[] = "com.kyvar.SimulatedMouse";

constexpr char kAttach[] = "Attach"; ///< no arguments, no result
constexpr char kDetach[] = "Detach"; ///< no arguments, no result

constexpr char kAttached[] = "Attached"; ///< property: the mouse is plugged in
constexpr char kAttachedSignature[] = "b";
constexpr char kRecording[] = "Recording"; ///< property: the panel is recording a macro
constexpr char kRecordingSignature[] = "b";
constexpr char kRecord[] =
    "Record"; ///< property: the configuration record that was last written to the mouse
constexpr char kRecordSignature[] = "ay";

} // namespace quorvi::simulatedmouse
