#include <cstdint>
#include <cstdio>
#include <optional>

#include "base/Unicode.h"
#include "keyboard/KeyCodeConversion.h"
#include "keyboard/KeyNames.h"
#include "tools/DifferenceLines.h"
#include "tools/Input.h"
#include "tools/Verbs.h"

namespace quorvi::tools {

namespace {

constexpr std::uint32_t kHighestKeyCode = 0xFF;
constexpr std::uint32_t kHighestMask = 0xFFFF;

Outcome noNumber(const std::string& argument) {
    return misused(argument + " is not a 32-bit number, decimal or 0x");
}

Outcome convert(const std::string& argument, std::uint8_t (*conversion)(std::uint32_t)) {
    const auto number = numberIn(argument);
    if (!number)
        return noNumber(argument);
    std::printf("%u\n", unsigned{conversion(*number)});
    return done();
}

} // namespace

Outcome keyName(const Arguments& arguments) {
    const std::string maskArgument = arguments.size() > 1 ? arguments[1] : "0";
    const auto code = numberIn(arguments[0]);
    const auto mask = numberIn(maskArgument);
    if (!code || !mask)
        return noNumber(code ? maskArgument : arguments[0]);
    if (*code > kHighestKeyCode)
        return refused(arguments[0] + " is not a key code; the highest is 255");
    if (*mask > kHighestMask)
        return refused(maskArgument + " is not a modifier mask; the highest is 0xFFFF");
    nameKeysOfEnvironment();
    std::printf("%s\n", toUtf8(GetKeyCombinationName(*code, *mask)).c_str());
    return done();
}

Outcome usbToAdb(const Arguments& arguments) {
    return convert(arguments[0], UsbToAdbKeycode);
}

Outcome adbToUsb(const Arguments& arguments) {
    return convert(arguments[0], AdbToUsbKeycode);
}

} // namespace quorvi::tools
