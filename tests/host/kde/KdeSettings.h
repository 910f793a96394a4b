// Initial settings for KDE's hosts.
#pragma once

#include "host/UserHome.h"

namespace quorvi::test {

constexpr int kUsageOfA = 0x04;
constexpr int kUsageOfQ = 0x14;

/// The defaults with that key on the second button.
[[nodiscard]] inline plist::Dictionary settingsWithAKey(int usage) {
    const auto settings = UserHome::defaults();
    const auto button = plist::Dictionary::create();
    button.set("command", 49);
    button.set("param1", usage);
    settings.array("profiles").dictionary(0).dictionary("buttons").set("02", button);
    return settings;
}

/// The key there.
[[nodiscard]] inline int keyIn(const plist::Dictionary& settings) {
    const auto profile = settings.array("profiles").dictionary(0);
    return profile.dictionary("buttons").dictionary("02").integer("param1");
}

/// The defaults with a macro "Jump" that has no steps.
[[nodiscard]] inline plist::Dictionary settingsWithAMacro() {
    const auto settings = UserHome::defaults();
    const auto macro = plist::Dictionary::create();
    macro.set("macroid", 1);
    macro.set("name", u"Jump");
    macro.set("steps", plist::Array::create());
    settings.array("macros").append(macro);
    return settings;
}

} // namespace quorvi::test
