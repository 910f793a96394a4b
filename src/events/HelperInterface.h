// The helper's own interface on the session bus, described once for the helper and its clients.
// com.kyvar.Helper1.xml describes it for other programs.
#pragma once

namespace quorvi::helperinterface {

constexpr char kPath[] = "/com/kyvar/Helper";
constexpr char kInterface[] = "com.kyvar.Helper1";

constexpr char kListMice[] = "ListMice";
/// Id, name, connection, in use, state, DPI by the hardware, DPI by the user, codes of inputs 1 to 7,
/// features that software cannot set.
constexpr char kMouse[] = "(sssbsqqaqas)";
constexpr char kMouseMembers[] = "sssbsqqaqas";
constexpr char kMice[] = "a(sssbsqqaqas)";
constexpr char kMiceNames[] = "mice\0";

constexpr char kUse[] = "Use";
constexpr char kUseSignature[] = "sb";
constexpr char kUseNames[] = "mouse\0inUse\0";
constexpr char kSetDpi[] = "SetDpi";
constexpr char kSetDpiSignature[] = "sq";
constexpr char kSetDpiNames[] = "mouse\0dpi\0";
constexpr char kSetCodes[] = "SetCodes";
constexpr char kSetCodesSignature[] = "saq";
constexpr char kSetCodesNames[] = "mouse\0codes\0";
constexpr char kBeginSetUp[] = "BeginSetUp";
constexpr char kMouseSignature[] = "s";
constexpr char kMouseNames[] = "mouse\0";
constexpr char kWatchKey[] = "WatchKey";
constexpr char kWatchKeySignature[] = "q";
constexpr char kWatchKeyNames[] = "code\0";
constexpr char kEndSetUp[] = "EndSetUp";

constexpr char kMiceChanged[] = "MiceChanged";
constexpr char kInputChanged[] = "InputChanged";
constexpr char kInputChangedSignature[] = "syb";
constexpr char kInputChangedNames[] = "mouse\0input\0pressed\0";
constexpr char kCodeChanged[] = "CodeChanged";
constexpr char kCodeChangedSignature[] = "sqb";
constexpr char kCodeChangedNames[] = "mouse\0code\0pressed\0";

constexpr char kService[] = "Service";
constexpr char kDemonstration[] = "Demonstration";
constexpr char kRunningProfile[] = "RunningProfile";
constexpr char kRunningStage[] = "RunningStage";
constexpr char kFrontReason[] = "FrontReason";
constexpr char kInputs[] = "Inputs";

// States of a mouse in addition to the service's (absent, waiting, busy, driven).
constexpr char kStateUnused[] = "unused";
constexpr char kStateAsking[] = "asking";   ///< an administrator, or the service, has not answered yet
constexpr char kStateRefused[] = "refused"; ///< no administrator has allowed this user
constexpr char kStateAbsent[] = "absent";

// Features that software cannot set on any mouse.
constexpr char kCannotPollingRate[] = "pollingrate";
constexpr char kCannotLights[] = "lights";

constexpr char kErrorNoSuchMouse[] = "com.kyvar.Helper1.Error.NoSuchMouse";
constexpr char kErrorNotInUse[] = "com.kyvar.Helper1.Error.NotInUse";
constexpr char kErrorNotWritten[] = "com.kyvar.Helper1.Error.NotWritten";
constexpr char kErrorBusy[] = "com.kyvar.Helper1.Error.Busy";

} // namespace quorvi::helperinterface
