// The 16-bit status codes that the platform services return: 0 is success, any other value is the reason for
// the failure. The numbers are those that the panel's callers expect.
#pragma once

#include <cstdint>

namespace quorvi {

using Status = std::int16_t;

constexpr Status noErr = 0;
constexpr Status dskFulErr = -34;              ///< the disk is full
constexpr Status ioErr = -36;                  ///< an input or output error without its own code
constexpr Status bdNamErr = -37;               ///< not a valid file name
constexpr Status fnfErr = -43;                 ///< the file or folder cannot be reached
constexpr Status paramErr = -50;               ///< an argument cannot be used
constexpr Status permErr = -54;                ///< no permission for the file
constexpr Status memFullErr = -108;            ///< an object or its data cannot be created
constexpr Status resNotFound = -192;           ///< content that cannot be read, or has another shape
constexpr Status procNotFound = -600;          ///< no such process, or the end of the process list
constexpr Status connectionInvalid = -609;     ///< no bus, or the other side disconnected during the call
constexpr Status errAECoercionFail = -1700;    ///< a parameter has another type
constexpr Status errAEDescNotFound = -1701;    ///< a parameter is missing
constexpr Status errAEEventNotHandled = -1708; ///< the other side has no handler for the event
constexpr Status errAETimeout = -1712;         ///< no reply in time
constexpr Status pathTooLongErr = -2110;       ///< a path exceeds the limit of its receiver
constexpr Status errAEEventFailed = -10000;    ///< the other side's handler failed

} // namespace quorvi
