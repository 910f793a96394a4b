// The events that processes exchange: each has a class, an id and typed parameters, all identified by codes
// of four characters.
#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/Status.h"

namespace quorvi {

/// Four ASCII characters as one number, the first in the most significant byte.
using FourCharCode = std::uint32_t;

/// fourCharCode("KyvQ") is 0x4B797651.
[[nodiscard]] consteval FourCharCode fourCharCode(const char (&text)[5]) {
    FourCharCode code = 0;
    for (int i = 0; i < 4; ++i)
        code = code << 8 | static_cast<unsigned char>(text[i]);
    return code;
}

/// The four characters of a code.
[[nodiscard]] std::string fourCharText(FourCharCode code);

/// The code of a text; std::nullopt unless the text is exactly four ASCII characters other than NUL.
[[nodiscard]] std::optional<FourCharCode> fourCharCodeFromText(std::string_view text);

// Classes and ids of the events between the panel and the helper.
constexpr FourCharCode kEventClassQuorvi = fourCharCode("KyvQ");
/// Panel to helper; has a message and a parameter.
constexpr FourCharCode kEventCommand = fourCharCode("KyvC");
constexpr FourCharCode kEventDeviceList = fourCharCode("KyDL"); ///< helper to panel
constexpr FourCharCode kEventValue = fourCharCode("KyEV");      ///< helper to panel, a single value

// The messages of a command.
constexpr FourCharCode kMessagePaneShown = fourCharCode("KyRO"); ///< parameter 1 shown, 0 hidden
/// Parameter: index of the profile, or -1.
constexpr FourCharCode kMessageSettingsSaved = fourCharCode("KyPR");
constexpr FourCharCode kMessageRecording = fourCharCode("KyDM"); ///< parameter 1 started, 0 stopped

// Keywords of parameters.
constexpr FourCharCode keyDirectObject = fourCharCode("----");
constexpr FourCharCode kKeyCommandParameter = kEventCommand; ///< the parameter of a command

// Descriptor types.
constexpr FourCharCode typeMagnitude = fourCharCode("magn");           ///< std::uint32_t
constexpr FourCharCode typeSInt32 = fourCharCode("long");              ///< std::int32_t
constexpr FourCharCode typeDeviceList = fourCharCode("KYDL");          ///< the bytes of a DeviceList
constexpr FourCharCode typeProcessSerialNumber = fourCharCode("psn "); ///< 8 bytes

/// Identifies one process of the session while it runs. {0, 0} stands for none.
struct ProcessSerialNumber {
    std::uint32_t high = 0;
    std::uint32_t low = 0;

    // The linter takes the 0 that a defaulted comparison compares with for a null pointer.
    // NOLINTNEXTLINE(modernize-use-nullptr)
    auto operator<=>(const ProcessSerialNumber&) const = default;
};

using EventBytes = std::vector<std::uint8_t>;
/// An unsigned number for 'magn', a signed one for 'long', bytes for every other descriptor type.
using EventValue = std::variant<std::uint32_t, std::int32_t, EventBytes>;

struct EventParameter {
    FourCharCode keyword = 0;
    FourCharCode type = 0;
    EventValue value;

    /// Whether the value's kind matches the descriptor type.
    [[nodiscard]] bool isWellFormed() const;

    bool operator==(const EventParameter&) const = default;
};

struct Event {
    FourCharCode eventClass = 0;
    FourCharCode eventID = 0;
    std::vector<EventParameter> parameters;

    void putMagnitude(FourCharCode keyword, std::uint32_t value);
    void putInteger(FourCharCode keyword, std::int32_t value);
    void putBytes(FourCharCode keyword, FourCharCode type, EventBytes bytes);

    /// The first parameter with the keyword; nullptr if there is none.
    [[nodiscard]] const EventParameter* findParameter(FourCharCode keyword) const;

    // The value of the first parameter with the keyword. Returns errAEDescNotFound if there is none,
    // errAECoercionFail if it has another descriptor type; the result then stays unchanged.
    [[nodiscard]] Status getMagnitude(FourCharCode keyword, std::uint32_t& value) const;
    [[nodiscard]] Status getInteger(FourCharCode keyword, std::int32_t& value) const;
    [[nodiscard]] Status getBytes(FourCharCode keyword, FourCharCode type, EventBytes& bytes) const;

    bool operator==(const Event&) const = default;
};

/// A command of the panel to the helper: class 'KyvQ', id 'KyvC', the message as direct object and its
/// parameter.
[[nodiscard]] Event makeCommand(FourCharCode message, std::int32_t parameter);

} // namespace quorvi
