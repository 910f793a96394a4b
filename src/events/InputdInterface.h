// The service's interface on the system bus, described once: the service, its clients and the tests use these
// names. inputd/bus/com.kyvar.Inputd1.xml describes it for other programs, and says what each part does.
#pragma once

namespace quorvi::inputd {

constexpr char kName[] = "com.kyvar.Inputd1";
constexpr char kPath[] = "/com/kyvar/Inputd1";
constexpr char kInterface[] = "com.kyvar.Inputd1";

constexpr char kListMice[] = "ListMice";
constexpr char kListMiceResult[] = "a(ssqqqb)"; ///< id, name, vendor, product, DPI of the sensor or 0, used
constexpr char kMouse[] = "(ssqqqb)";
constexpr char kMouseMembers[] = "ssqqqb";
constexpr char kUse[] = "Use";
constexpr char kUseArguments[] = "saya{sv}";
constexpr char kSetRecord[] = "SetRecord";
constexpr char kSetRecordArguments[] = "say";
constexpr char kSetOptions[] = "SetOptions";
constexpr char kSetOptionsArguments[] = "sa{sv}";
constexpr char kForget[] = "Forget";
constexpr char kForgetArguments[] = "s";
constexpr char kGetStatus[] = "GetStatus";
constexpr char kGetStatusArguments[] = "s";
constexpr char kWatch[] = "Watch";
constexpr char kWatchArguments[] = "b";
constexpr char kWatchCodes[] = "WatchCodes";
constexpr char kWatchCodesArguments[] = "sb";

constexpr char kMiceChanged[] = "MiceChanged";
constexpr char kStatusChanged[] = "StatusChanged";
constexpr char kInputChanged[] = "InputChanged";
constexpr char kInputChangedArguments[] = "syb"; ///< mouse, input, pressed
constexpr char kCodeChanged[] = "CodeChanged";
constexpr char kCodeChangedArguments[] = "sqb"; ///< mouse, EV_KEY code, pressed

/// State, profile, stage, DPI of X and Y, inputs that are down (bit 0 is input 1).
constexpr char kStatus[] = "syyqqq";
constexpr char kStatusChangedArguments[] = "ssyyqqq"; ///< the mouse before it

// The states of a mouse in use.
constexpr char kStateAbsent[] = "absent";   ///< unplugged, or the computer goes to sleep
constexpr char kStateWaiting[] = "waiting"; ///< plain until all its buttons are up
constexpr char kStateBusy[] = "busy";       ///< another program has grabbed it
constexpr char kStateDriven[] = "driven";   ///< the record is in effect
/// Forgotten: by its user, or because another user is now at the machine.
constexpr char kStateUnused[] = "unused";

// The options of Use and SetOptions. Missing ones have their defaults.
constexpr char kOptionSensorDpi[] = "SensorDpi";       ///< q, 100 to 64000
constexpr char kOptionAcceleration[] = "Acceleration"; ///< ad, one of 0.1 to 2.0 for each of 5 profiles
constexpr char kOptionButtonCodes[] = "ButtonCodes";   ///< aq, EV_KEY codes of inputs 1 to 7, 0 for none
/// aq, EV_KEY codes that type a to z, 0 for the US layout's.
constexpr char kOptionLetterKeys[] = "LetterKeys";
constexpr char kOptionQuietMacros[] = "QuietMacros"; ///< b, no macro starts

// Errors.
constexpr char kErrorAccessDenied[] = "org.freedesktop.DBus.Error.AccessDenied";
constexpr char kErrorInvalidArguments[] = "org.freedesktop.DBus.Error.InvalidArgs";
constexpr char kErrorLimitsExceeded[] = "org.freedesktop.DBus.Error.LimitsExceeded";
constexpr char kErrorFailed[] = "org.freedesktop.DBus.Error.Failed";
constexpr char kErrorNoSuchMouse[] = "com.kyvar.Inputd1.Error.NoSuchMouse";

/// The polkit action, requested once for each user.
constexpr char kPolkitAction[] = "com.kyvar.inputd.use-mice";

} // namespace quorvi::inputd
