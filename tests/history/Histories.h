// Shared by several tests of copies and backups.
#pragma once

#include <chrono>
#include <ostream>
#include <string>

#include "base/Unicode.h"
#include "history/History.h"
#include "model/Trees.h"

namespace quorvi {

inline void PrintTo(const LeftOut& leftOut, std::ostream* stream) {
    *stream << "{" << static_cast<int>(leftOut.what) << ", " << toUtf8(leftOut.name) << ", " << leftOut.number
            << ", " << leftOut.input << "}";
}

} // namespace quorvi

namespace quorvi::test {

using Time = std::chrono::system_clock::time_point;

/// Noon of that day, in universal time.
[[nodiscard]] inline Time noon(int year, unsigned month, unsigned day) {
    using namespace std::chrono;
    return sys_days(std::chrono::year(year) / std::chrono::month(month) / std::chrono::day(day)) + hours(12);
}

/// A sane tree that is another one with each rate.
[[nodiscard]] inline plist::Dictionary treeWithRate(int rate) {
    auto result = tree();
    result.dictionary("settings").set("profileid", 1);
    result.dictionary("settings").set("pollingrate", rate);
    return result;
}

[[nodiscard]] inline int rateOf(const ReadBackup& read) {
    return read.backup.tree.dictionary("settings").integer("pollingrate");
}

/// A profile whose inputs from the first on run the macros with these identifiers.
[[nodiscard]] inline plist::Dictionary profileThatRuns(
    std::initializer_list<int> macroIds, std::u16string name = u"Game") {
    auto result = profile(std::move(name));
    const auto buttons = dict();
    int input = 0;
    for (const int macroId : macroIds)
        buttons.set("0" + std::to_string(++input), assignment(65, macroId, 1));
    result.set("buttons", buttons);
    return result;
}

/// A macro that presses that key.
[[nodiscard]] inline plist::Dictionary macroOfKey(int macroId, std::u16string name, int key) {
    auto result = macro(macroId, std::move(name));
    result.array("steps").dictionary(0).set("argument", key);
    return result;
}

/// The identifier that the profile's input runs; 0 when it does something else.
[[nodiscard]] inline int macroAt(const plist::Dictionary& profile, int input) {
    const auto assigned = profile.dictionary("buttons").dictionary("0" + std::to_string(input));
    return assigned.integer("command") == 65 ? assigned.integer("param1") : 0;
}

[[nodiscard]] inline plist::Dictionary without(plist::Dictionary item, std::string_view key) {
    item.remove(key);
    return item;
}

} // namespace quorvi::test
