#include "history/CopyName.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <string_view>

namespace quorvi {

namespace {

using std::chrono::milliseconds;
using std::chrono::sys_time;

constexpr std::array<std::string_view, 3> kReasons{"day", "deletion", "restore"};
/// The range of the system's clock, in nanoseconds.
constexpr std::chrono::year kFirstYear{1970};
constexpr std::chrono::year kLastYear{2261};
constexpr std::size_t kLengthOfTime = 25; ///< "2026-11-22T17-33-05.123Z-"

std::string nameOf(sys_time<milliseconds> time, CopyReason reason) {
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(time - day);
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d-%02d-%02d.%03dZ-",
        static_cast<int>(date.year()), static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
        static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
        static_cast<int>(clock.seconds().count()), static_cast<int>(clock.subseconds().count()));
    std::string name = text.data();
    name.append(kReasons.at(static_cast<std::size_t>(reason))).append(kBackupExtension);
    return name;
}

/// The number at the place in the text; -1 for anything else.
int numberAt(std::string_view text, std::size_t place, std::size_t length) {
    const std::string_view digits = text.substr(place, length);
    int number = -1;
    const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return error == std::errc() && stop == digits.data() + digits.size() && number >= 0 ? number : -1;
}

sys_time<milliseconds> timeIn(std::string_view name) {
    using namespace std::chrono;
    const year_month_day date(year(numberAt(name, 0, 4)), month(static_cast<unsigned>(numberAt(name, 5, 2))),
        day(static_cast<unsigned>(numberAt(name, 8, 2))));
    if (!date.ok() || date.year() < kFirstYear || date.year() > kLastYear)
        return {};
    return sys_days(date) + hours(numberAt(name, 11, 2)) + minutes(numberAt(name, 14, 2)) +
           seconds(numberAt(name, 17, 2)) + milliseconds(numberAt(name, 20, 3));
}

} // namespace

DatedCopy datedCopy(std::chrono::system_clock::time_point time, CopyReason reason) {
    const auto cut = std::chrono::floor<milliseconds>(time);
    return {nameOf(cut, reason), cut, reason};
}

std::optional<DatedCopy> copyOfName(const std::string& name) {
    if (name.size() <= kLengthOfTime)
        return std::nullopt;
    const auto time = timeIn(name);
    // Accept only a name that its time and reason reproduce.
    for (std::size_t reason = 0; reason < kReasons.size(); ++reason)
        if (auto copy = datedCopy(time, static_cast<CopyReason>(reason)); copy.name == name)
            return copy;
    return std::nullopt;
}

} // namespace quorvi
