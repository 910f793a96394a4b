#include "tools/Verbs.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>

namespace quorvi::tools {

namespace {

constexpr std::size_t kAny = std::numeric_limits<std::size_t>::max();

struct Verb {
    const char* name;
    const char* arguments;
    std::size_t fewest;
    std::size_t most;
    Outcome (*run)(const Arguments&);
};

Outcome help(const Arguments&) {
    std::fputs(usage().c_str(), stdout);
    return done();
}

Outcome version(const Arguments&) {
    std::puts("quorvictl " QUORVI_VERSION);
    return done();
}

constexpr std::array kVerbs{
    Verb{"encode", "SETTINGS.plist RECORD.bin", 2, 2, encode},
    Verb{"decode", "RECORD.bin SETTINGS.plist", 2, 2, decode},
    Verb{"check", "SETTINGS.plist", 1, 1, check},
    Verb{"match",
        "SETTINGS.plist [--auto] [--application A] [--identifier I] [--signature S] [--executable E]", 1,
        kAny, match},
    Verb{"profiles", "SETTINGS.plist", 1, 1, profiles},
    Verb{"macros", "SETTINGS.plist", 1, 1, macros},
    Verb{"import", "SETTINGS.plist FILE", 2, 2, importItem},
    Verb{"export", "SETTINGS.plist profile|macro NUMBER FILE", 4, 4, exportItem},
    Verb{"commands", "", 0, 0, commands},
    Verb{"key-name", "CODE [MASK]", 1, 2, keyName},
    Verb{"usb-to-adb", "USAGE", 1, 1, usbToAdb},
    Verb{"adb-to-usb", "CODE", 1, 1, adbToUsb},
    Verb{"devices", "", 0, 0, devices},
    Verb{"attach", "", 0, 0, attach},
    Verb{"detach", "", 0, 0, detach},
    Verb{"mice", "", 0, 0, mice},
    Verb{"use", "MOUSE", 1, 1, use},
    Verb{"forget", "MOUSE", 1, 1, forget},
    Verb{"press", "INPUT", 1, 1, press},
    Verb{"release", "INPUT", 1, 1, release},
    Verb{"watch", "", 0, 0, watch},
    Verb{"--help", "", 0, 0, help},
    Verb{"--version", "", 0, 0, version},
};

} // namespace

Outcome run(const Arguments& commandLine) {
    if (commandLine.empty())
        return misused("no verb given");
    const std::string& name = commandLine.front();
    const auto verb =
        std::find_if(kVerbs.begin(), kVerbs.end(), [&](const Verb& entry) { return name == entry.name; });
    if (verb == kVerbs.end())
        return misused("there is no verb " + name);
    const Arguments arguments(commandLine.begin() + 1, commandLine.end());
    if (arguments.size() < verb->fewest || arguments.size() > verb->most)
        return misused(name + " takes " + (*verb->arguments ? verb->arguments : "no arguments"));
    return verb->run(arguments);
}

std::string usage() {
    std::string text;
    for (const Verb& verb : kVerbs)
        text.append(text.empty() ? "usage: quorvictl " : "       quorvictl ")
            .append(verb.name)
            .append(*verb.arguments ? " " : "")
            .append(verb.arguments)
            .append("\n");
    return text;
}

} // namespace quorvi::tools
