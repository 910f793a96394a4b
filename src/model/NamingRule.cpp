#include "model/NamingRule.h"

#include <algorithm>

#include "model/Limits.h"

namespace quorvi {

namespace {

/// Room for a blank and a counter of two digits behind the base.
constexpr std::size_t kLongestBase = limits::nameUnits - 3;
constexpr std::size_t kLongestCounter = 2;

/// The name without a counter at its end: " 2" to " 99", and also " -5". 0 is not a counter.
std::u16string_view withoutCounter(std::u16string_view name) {
    const auto blank = name.rfind(u' ');
    if (blank == std::u16string_view::npos)
        return name;
    const auto counter = name.substr(blank + 1);
    const bool isCounter =
        counter.size() <= kLongestCounter && plist::Value(std::u16string(counter)).integer() != 0;
    return isCounter ? name.substr(0, blank) : name;
}

bool isTaken(
    const std::u16string& name, const plist::Array& array, std::string_view key, std::int32_t ignored) {
    for (std::size_t index = 0; index < array.size(); ++index) {
        const auto* other = array.dictionary(index).value(key).string();
        if (other && *other == name && static_cast<std::int64_t>(index) != ignored)
            return true;
    }
    return false;
}

std::u16string decimal(int number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

} // namespace

std::u16string makeNameUnique(std::u16string name, const std::u16string& defaultName,
    const plist::Array& array, std::string_view key, std::int32_t ignoringIndex) {
    if (name.empty())
        name = defaultName;
    name.resize(std::min(name.size(), limits::nameUnits));
    const std::u16string base(withoutCounter(name).substr(0, kLongestBase));
    for (int counter = 2; isTaken(name, array, key, ignoringIndex); ++counter)
        name = base + u' ' + decimal(counter);
    return name;
}

} // namespace quorvi
