// The bus interface that carries events, described once: servers, callers and tests use these names.
// com.kyvar.Events.xml describes it for other programs.
#pragma once

namespace quorvi::events {

/// A process takes part by owning this prefix followed by its process name.
constexpr char kNamePrefix[] = "com.kyvar.";

constexpr char kPath[] = "/com/kyvar/Events";
constexpr char kInterface[] = "com.kyvar.Events";

/// Send(s eventClass, s eventID, a(ssv) parameters) -> a(ssv) reply; a parameter is (keyword, type, value).
constexpr char kSend[] = "Send";
constexpr char kSendArguments[] = "ssa(ssv)";
constexpr char kSendResult[] = "a(ssv)";
constexpr char kSendNames[] = "eventClass\0eventID\0parameters\0reply\0";
constexpr char kParameter[] = "(ssv)";
constexpr char kParameterMembers[] = "ssv";

// The signature of a parameter's variant.
constexpr char kMagnitudeSignature[] = "u"; ///< for 'magn'
constexpr char kIntegerSignature[] = "i";   ///< for 'long'
constexpr char kBytesSignature[] = "ay";    ///< for every other type

/// The answer to an event without a handler.
constexpr char kErrorEventNotHandled[] = "com.kyvar.Error.EventNotHandled";
/// The answer when the handler failed.
constexpr char kErrorEventFailed[] = "com.kyvar.Error.EventFailed";
/// The answer to codes that are not four characters and to values that do not fit their type.
constexpr char kErrorInvalidArguments[] = "org.freedesktop.DBus.Error.InvalidArgs";

} // namespace quorvi::events
