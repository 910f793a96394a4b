// The bus interface of the simulated mouse, described once for the helper and its clients.
// com.kyvar.SimulatedMouse.xml describes it for other programs.
#pragma once

namespace quorvi::simulatedmouse {

constexpr char kPath[] = "/com/kyvar/SimulatedMouse";
constexpr char kInterface[] = "com.kyvar.SimulatedMouse";

constexpr char kAttach[] = "Attach"; ///< no arguments, no result
constexpr char kDetach[] = "Detach"; ///< no arguments, no result

constexpr char kPress[] = "Press";     ///< of an input, 1 to 9; no result
constexpr char kRelease[] = "Release"; ///< of an input, 1 to 9; no result
constexpr char kInputSignature[] = "y";
constexpr char kInputNames[] = "input\0";
constexpr char kMove[] = "Move"; ///< by counts of the sensor; no result
constexpr char kMoveSignature[] = "ii";
constexpr char kMoveNames[] = "x\0y\0";

constexpr char kEmitted[] = "Emitted"; ///< signal: a frame of what the mouse types and moves
constexpr char kEmittedSignature[] = "a(tqqi)";
constexpr char kEmittedEvent[] = "(tqqi)"; ///< microseconds of the steady clock, type, code, value
constexpr char kEmittedMembers[] = "tqqi";
constexpr char kEmittedNames[] = "events\0";

constexpr char kAttached[] = "Attached"; ///< property: the mouse is plugged in
constexpr char kAttachedSignature[] = "b";
constexpr char kRecording[] = "Recording"; ///< property: the panel is recording a macro
constexpr char kRecordingSignature[] = "b";
/// Property: the configuration record that was last written to the mouse.
constexpr char kRecord[] = "Record";
constexpr char kRecordSignature[] = "ay";
constexpr char kProfile[] = "Profile"; ///< property: the profile that the mouse runs, from 1
constexpr char kStage[] = "Stage";     ///< property: its sensitivity stage, from 1
constexpr char kRunningSignature[] = "u";

/// The answer to an input of a mouse that is not plugged in.
constexpr char kErrorNotAttached[] = "com.kyvar.Error.NotAttached";

} // namespace quorvi::simulatedmouse
