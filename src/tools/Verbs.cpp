#include "tools/Verbs.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>

#include "tools/Json.h"

namespace quorvi::tools {

namespace {

constexpr std::size_t kAny = std::numeric_limits<std::size_t>::max();

using Run = Outcome (*)(const Arguments&);
using RunInFormat = Outcome (*)(const Arguments&, Format);

struct Verb {
    constexpr Verb(const char* verb, const char* takes, std::size_t atLeast, std::size_t atMost, Run function)
        : name(verb), arguments(takes), fewest(atLeast), most(atMost), run(function) {}
    constexpr Verb(
        const char* verb, const char* takes, std::size_t atLeast, std::size_t atMost, RunInFormat function)
        : name(verb), arguments(takes), fewest(atLeast), most(atMost), runInFormat(function) {}

    const char* name;
    const char* arguments;
    std::size_t fewest;
    std::size_t most;
    Run run = nullptr;
    RunInFormat runInFormat = nullptr; ///< for a verb that can print JSON, instead of run
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
    Verb{"apply", "FILE [SETTINGS.plist] [--check]", 1, 3, apply},
    Verb{"match",
        "SETTINGS.plist [--auto] [--application A] [--identifier I] [--signature S] [--executable E]", 1,
        kAny, match},
    Verb{"profiles", "SETTINGS.plist", 1, 1, profiles},
    Verb{"macros", "SETTINGS.plist", 1, 1, macros},
    Verb{"import", "SETTINGS.plist FILE", 2, 2, importItem},
    Verb{"export", "SETTINGS.plist profile|macro NUMBER FILE [--with-macros]", 4, 5, exportItem},
    Verb{"backup", "[SETTINGS.plist] FILE", 1, 2, backup},
    Verb{"restore", "[SETTINGS.plist] FILE", 1, 2, restore},
    Verb{"history", "[show NUMBER | restore [SETTINGS.plist] NUMBER]", 0, 3, history},
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

constexpr const char* kJson = "--json";

std::string verbsWithJson() {
    std::string names;
    for (const Verb& verb : kVerbs)
        if (verb.runInFormat)
            names.append(names.empty() ? "" : "|").append(verb.name);
    return names;
}

Outcome runVerb(const Verb& verb, const Arguments& arguments, Format format) {
    Outcome outcome = verb.run ? verb.run(arguments) : verb.runInFormat(arguments, format);
    if (format == Format::json && outcome.exitCode == kRefused)
        print(Json::object({{"error", outcome.reason}}));
    return outcome;
}

} // namespace

Outcome run(const Arguments& commandLine) {
    Arguments words = commandLine;
    const bool isFirst = !words.empty() && words.front() == kJson;
    if (isFirst)
        words.erase(words.begin());
    if (words.empty())
        return misused("no command given");
    const std::string name = words.front();
    const auto verb =
        std::find_if(kVerbs.begin(), kVerbs.end(), [&](const Verb& entry) { return name == entry.name; });
    if (verb == kVerbs.end())
        return misused("unknown command " + name);
    if (isFirst && !verb->runInFormat)
        return misused(name + " prints no JSON");
    words.erase(words.begin());
    const bool isJson = isFirst || (verb->runInFormat && std::erase(words, kJson) > 0);
    if (words.size() < verb->fewest || words.size() > verb->most)
        return misused(name + " takes " + (*verb->arguments ? verb->arguments : "no arguments"));
    return runVerb(*verb, words, isJson ? Format::json : Format::text);
}

std::string usage() {
    std::string text;
    for (const Verb& verb : kVerbs)
        text.append(text.empty() ? "usage: quorvictl " : "       quorvictl ")
            .append(verb.name)
            .append(*verb.arguments ? " " : "")
            .append(verb.arguments)
            .append("\n");
    return text.append("       quorvictl --json ").append(verbsWithJson()).append(" ...\n");
}

} // namespace quorvi::tools
