#include "base/TemporaryName.h"

#include <charconv>

namespace quorvi {

namespace {

constexpr std::string_view kPrefix = ".quorvi-";

/// Removes a number in canonical form from the front of the text and returns it.
template <typename Number>
std::optional<Number> takeNumber(std::string_view& text) {
    Number number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    const bool padded = text.starts_with('0') && rest != text.data() + 1;
    if (error != std::errc() || padded || text.starts_with('-'))
        return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(rest - text.data()));
    return number;
}

} // namespace

std::string temporaryName(pid_t process, unsigned number) {
    return std::string(kPrefix) + std::to_string(process) + "-" + std::to_string(number);
}

std::optional<pid_t> makerOfTemporaryName(std::string_view name) {
    if (!name.starts_with(kPrefix))
        return std::nullopt;
    name.remove_prefix(kPrefix.size());
    const auto process = takeNumber<pid_t>(name);
    if (!process || *process <= 0 || !name.starts_with('-'))
        return std::nullopt;
    name.remove_prefix(1);
    return takeNumber<unsigned>(name) && name.empty() ? process : std::nullopt;
}

} // namespace quorvi
