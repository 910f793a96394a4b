#include "events/ProcessName.h"

#include <array>
#include <charconv>

#include "base/StringHelpers.h"
#include "events/EventsInterface.h"

namespace quorvi::events {

namespace {

/// A Pascal string of up to 255 bytes; no name on the bus is longer (D-Bus, "Valid Names").
using Str255 = std::array<unsigned char, 256>;

Str255 pascalString(std::string_view text) {
    Str255 result{};
    CStringPCopy(result.data(), std::string(text).c_str(), result.size() - 1);
    return result;
}

/// Removes a decimal number from the front of the text.
bool takeNumber(std::string_view& text, std::uint32_t& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return error == std::errc();
}

bool takeCharacter(std::string_view& text, char c) {
    const bool there = text.starts_with(c);
    text.remove_prefix(there ? 1 : 0);
    return there;
}

} // namespace

bool sameProcessName(std::string_view a, std::string_view b) {
    return PStringCmp(pascalString(a).data(), pascalString(b).data()) == 0;
}

std::string uniqueName(const ProcessSerialNumber& psn) {
    return std::string(":").append(std::to_string(psn.high)).append(".").append(std::to_string(psn.low));
}

std::optional<ProcessSerialNumber> psnFromUniqueName(std::string_view name) {
    ProcessSerialNumber psn;
    if (takeCharacter(name, ':') && takeNumber(name, psn.high) && takeCharacter(name, '.') &&
        takeNumber(name, psn.low) && name.empty())
        return psn;
    return std::nullopt;
}

std::string wellKnownName(std::string_view processName) {
    return std::string(kNamePrefix).append(processName);
}

std::optional<std::string_view> processNameOf(std::string_view wellKnownName) {
    constexpr std::string_view prefix = kNamePrefix;
    if (!wellKnownName.starts_with(prefix) || wellKnownName.size() == prefix.size())
        return std::nullopt;
    return wellKnownName.substr(prefix.size());
}

} // namespace quorvi::events
