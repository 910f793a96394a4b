#include <array>
#include <cstdio>
#include <ctime>
#include <utility>
#include <vector>

#include "base/Unicode.h"
#include "history/Differences.h"
#include "model/ConfigFileStore.h"
#include "model/Keys.h"
#include "model/SettingsDocument.h"
#include "tools/BackupTexts.h"
#include "tools/Backups.h"
#include "tools/DifferenceLines.h"
#include "tools/EarlierSettings.h"
#include "tools/Input.h"
#include "tools/Listing.h"

namespace quorvi::tools {

namespace {

using plist::Dictionary;

constexpr auto kUsage = "history takes [show NUMBER | restore [SETTINGS.plist] NUMBER]";

/// A copy, chosen by its number in the list.
struct ChosenCopy {
    std::filesystem::path file;
    ReadBackup read;
    Outcome outcome; ///< kDone if it was read
};

ChosenCopy chosenCopy(const std::string& number) {
    const auto wanted = numberIn(number);
    if (!wanted)
        return {{}, {}, misused(number + " is not a 32-bit number, decimal or 0x")};
    const History history = userHistory();
    const auto copies = history.list();
    if (*wanted < 1 || *wanted > copies.size())
        return {
            {}, {}, refused("there is no copy " + number + "; there are " + std::to_string(copies.size()))};
    const DatedCopy& copy = copies[*wanted - 1];
    const auto file = historyFolder(homeFolder()) / copy.name;
    auto read = history.read(copy);
    auto outcome = read ? done() : refused(faultOf(file, text(read.fault)));
    return {file, std::move(read), std::move(outcome)};
}

/// In the user's time zone: "2026-11-22 18:30:05"; for scripts in UTC, in the form of RFC 3339.
std::string dateAndTime(std::chrono::system_clock::time_point time, Format format) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
    const bool isUtc = format == Format::json;
    std::tm parts{};
    isUtc ? ::gmtime_r(&seconds, &parts) : ::localtime_r(&seconds, &parts);
    std::array<char, 64> text{};
    if (isUtc)
        std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &parts);
    else
        std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &parts);
    return text.data();
}

std::string nameOf(const Dictionary& item) {
    return oneLine(toUtf8(item.string(keys::name)));
}

struct ListedCopy {
    std::size_t number;
    DatedCopy copy;
    Dictionary now; ///< the user's settings
};

Dictionary settingsOfNow() {
    return storedTree(keys::storage, userSettingsPath(homeFolder()));
}

std::vector<ListedCopy> listedCopies() {
    const Dictionary now = settingsOfNow();
    std::vector<ListedCopy> list;
    for (DatedCopy& copy : userHistory().list())
        list.push_back({list.size() + 1, std::move(copy), now});
    return list;
}

void printCopy(const ListedCopy& listed) {
    std::printf("%zu\t%s\t%s\n", listed.number, dateAndTime(listed.copy.time, Format::text).c_str(),
        text(listed.copy.reason).c_str());
}

/// Null for a copy that cannot be read.
Json differencesIn(const ListedCopy& listed) {
    const ReadBackup read = userHistory().read(listed.copy);
    if (!read)
        return {};
    const auto lines = linesOf(differencesBetween(read.backup.tree, listed.now));
    return Json::array({lines.begin(), lines.end()});
}

Json jsonOfCopy(const ListedCopy& listed) {
    return Json::object({{"number", listed.number}, {"time", dateAndTime(listed.copy.time, Format::json)},
        {"reason", text(listed.copy.reason)}, {"differences", differencesIn(listed)}});
}

Outcome show(const std::string& number) {
    const ChosenCopy copy = chosenCopy(number);
    if (!copy.read)
        return copy.outcome;
    const Dictionary tree = copy.read.backup.tree;
    const auto current = tree.dictionary(keys::settings).integer(keys::profileId);
    const auto profiles = tree.array(keys::profiles);
    for (std::size_t index = 0; index < profiles.size(); ++index)
        std::printf("profile\t%zu%s\t%s\t%s\n", index + 1,
            static_cast<std::int64_t>(index) + 1 == current ? "*" : "",
            nameOf(profiles.dictionary(index)).c_str(),
            oneLine(toUtf8(profiles.dictionary(index).dictionary(keys::driver).string(keys::application)))
                .c_str());
    const plist::Array all = tree.array(keys::macros);
    for (const auto& item : all.items())
        std::printf("macro\t%d\t%zu\t%s\n", item.dictionary().integer(keys::macroId),
            item.dictionary().array(keys::steps).size(), nameOf(item.dictionary()).c_str());
    nameKeysOfEnvironment();
    for (const std::string& line : linesOf(differencesBetween(tree, settingsOfNow())))
        std::printf("difference\t%s\n", line.c_str());
    return done();
}

} // namespace

Outcome history(const Arguments& arguments, Format format) {
    if (arguments.empty()) {
        if (format == Format::json)
            nameKeysOfEnvironment();
        printList(format, "history", listedCopies(), printCopy, jsonOfCopy);
        return done();
    }
    if (format == Format::json)
        return misused("history prints only its list as JSON");
    if (arguments[0] == "show" && arguments.size() == 2)
        return show(arguments[1]);
    if (arguments[0] != "restore" || arguments.size() == 1)
        return misused(kUsage);
    const ChosenCopy copy = chosenCopy(arguments.back());
    const std::filesystem::path settings =
        arguments.size() == 3 ? std::filesystem::path(arguments[1]) : userSettingsPath(homeFolder());
    return copy.read ? restoreBackup(settings, copy.read.backup, copy.file) : copy.outcome;
}

} // namespace quorvi::tools
