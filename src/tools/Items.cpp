#include <cstdio>

#include "base/Unicode.h"
#include "model/ConfigFile.h"
#include "model/Dependants.h"
#include "model/ItemFile.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "model/Lookups.h"
#include "plist/DeepCopy.h"
#include "tools/BackupTexts.h"
#include "tools/Backups.h"
#include "tools/EarlierSettings.h"
#include "tools/HelperNews.h"
#include "tools/Input.h"
#include "tools/Listing.h"

namespace quorvi::tools {

namespace {

std::string text(const plist::Dictionary& item, std::string_view key) {
    return oneLine(toUtf8(item.string(key)));
}

/// The differences between profiles and macros here.
struct Kind {
    const char* name;
    std::string_view list; ///< the key of the tree's array
    int most;
    const char16_t* defaultName;
    ReadItem (*read)(const std::filesystem::path&);
    const char* needs;
};

const Kind kProfile{"profile", keys::profiles, limits::profiles, u"Untitled Profile", readProfileFile,
    "\"ledstate\", \"defaultstage\", \"stages\" and \"buttons\""};
const Kind kMacro{
    "macro", keys::macros, limits::macros, u"Untitled Macro", readMacroFile, "\"name\" and \"steps\""};

struct FoundItem {
    const Kind* kind = nullptr; ///< null if the file holds neither
    ReadItem read{{}, ItemFault::otherItem};
};

/// The content decides the kind. A file crafted to be both counts as a profile.
FoundItem itemIn(const std::filesystem::path& file) {
    for (const Kind* kind : {&kProfile, &kMacro})
        if (ReadItem read = kind->read(file); read.fault != ItemFault::otherItem)
            return {kind, std::move(read)};
    return {};
}

std::string text(ItemFault fault) {
    switch (fault) {
    case ItemFault::notReadable:
        return "it cannot be read";
    case ItemFault::tooLarge:
        return "it is too large; an item has at most " + std::to_string(limits::itemBytes) + " bytes and " +
               std::to_string(limits::itemValues) + " values";
    case ItemFault::damaged:
        return "it is not a property list";
    case ItemFault::tooManySteps:
        return "it is a macro of more than " + std::to_string(limits::macroSteps) + " steps";
    case ItemFault::otherItem:
        return std::string("it is neither a profile, which needs ") + kProfile.needs +
               ", nor a macro, which needs " + kMacro.needs;
    case ItemFault::none:
        break;
    }
    return "";
}

/// A warning about missing parts of an imported profile; empty if it is complete.
std::string warningOf(const plist::Dictionary& profile, const plist::Dictionary& tree) {
    std::string inputs;
    for (const int input : inputsWithoutMacro(profile, tree.array(keys::macros)))
        inputs += (inputs.empty() ? "" : ", ") + std::to_string(input);
    return inputs.empty() ? "" : "buttons whose macro is missing: " + inputs;
}

/// Why no item can be added to the list; empty if one can.
std::string faultOfList(const plist::Array& list, const Kind& kind) {
    if (!list)
        return "it has no \"" + std::string(kind.list) + "\" array";
    if (static_cast<int>(list.size()) < kind.most)
        return {};
    return "it holds " + std::to_string(list.size()) + " of at most " + std::to_string(kind.most) + " " +
           std::string(kind.list);
}

Outcome add(const Kind& kind, const plist::Dictionary& item, const std::string& settings) {
    std::string fault = "it cannot be written";
    plist::Dictionary added;
    plist::Dictionary changed;
    // Changes the content at the time of replacement: the panel and other programs may add to it.
    const int error = changeConfigFile(keys::storage, settings, [&](const plist::Dictionary& tree) {
        const plist::Array list = tree.array(kind.list);
        if (std::string reason = faultOfList(list, kind); !reason.empty()) {
            fault = std::move(reason);
            return false;
        }
        added = plist::mutableDeepCopy(item); // its name depends on the present ones
        appendItem(list, added, kind.defaultName);
        changed = tree;
        keepCopyBefore(settings, CopyReason::firstChangeOfDay);
        return true;
    });
    if (error != 0)
        return refused(faultOf(settings, fault));
    tellHelperOfSave(changed, settings);
    std::printf("%s\n", text(added, keys::name).c_str());
    const std::string warning = &kind == &kProfile ? warningOf(added, changed) : "";
    return warning.empty() ? done() : done(faultOf(settings, warning));
}

/// The profile with the number, or the first macro with the identifier; nil if there is none.
plist::Dictionary itemOf(const Kind& kind, const plist::Dictionary& tree, std::uint32_t number) {
    const plist::Array list = tree.array(kind.list);
    if (&kind == &kProfile)
        return number >= 1 ? list.dictionary(number - 1) : plist::Dictionary();
    const int index = KyvarFindMacroInArray(static_cast<std::int32_t>(number), nullptr, list);
    return index >= 0 ? list.dictionary(static_cast<std::size_t>(index)) : plist::Dictionary();
}

/// The place of the option after the arguments of export.
constexpr std::size_t kWithMacros = 4;

struct ListedProfile {
    std::size_t number;
    bool isCurrent;
    plist::Dictionary profile;
};

std::vector<ListedProfile> listedProfiles(const plist::Dictionary& tree) {
    const plist::Array profiles = tree.array(keys::profiles);
    const std::int32_t current = tree.dictionary(keys::settings).integer(keys::profileId);
    std::vector<ListedProfile> list;
    for (std::size_t index = 0; index < profiles.size(); ++index)
        list.push_back(
            {index + 1, static_cast<std::int64_t>(index) + 1 == current, profiles.dictionary(index)});
    return list;
}

void printProfile(const ListedProfile& listed) {
    std::printf("%zu%s\t%s\t%s\n", listed.number, listed.isCurrent ? "*" : "",
        text(listed.profile, keys::name).c_str(),
        text(listed.profile.dictionary(keys::driver), keys::application).c_str());
}

Json jsonOfProfile(const ListedProfile& listed) {
    const plist::Dictionary driver = listed.profile.dictionary(keys::driver);
    return Json::object({{"number", listed.number}, {"current", listed.isCurrent},
        {"name", listed.profile.string(keys::name)},
        {"application", textOrNull(driver.string(keys::application))},
        {"automatic", driver.boolean(keys::autoSwitch)}});
}

void printMacro(const plist::Dictionary& macro) {
    std::printf("%d\t%zu\t%s\n", macro.integer(keys::macroId), macro.array(keys::steps).size(),
        text(macro, keys::name).c_str());
}

Json jsonOfMacro(const plist::Dictionary& macro) {
    return Json::object({{"id", macro.integer(keys::macroId)}, {"steps", macro.array(keys::steps).size()},
        {"name", macro.string(keys::name)}});
}

} // namespace

Outcome profiles(const Arguments& arguments, Format format) {
    const auto settings = readSettings(arguments[0]);
    if (!settings.isGood())
        return refused(settings.fault);
    printList(format, "profiles", listedProfiles(settings.value), printProfile, jsonOfProfile);
    return done();
}

Outcome macros(const Arguments& arguments, Format format) {
    const auto settings = readSettings(arguments[0]);
    if (!settings.isGood())
        return refused(settings.fault);
    std::vector<plist::Dictionary> list;
    const plist::Array all = settings.value.array(keys::macros);
    for (const plist::Value& macro : all.items())
        list.push_back(macro.dictionary());
    printList(format, "macros", list, printMacro, jsonOfMacro);
    return done();
}

Outcome importItem(const Arguments& arguments) {
    const auto settings = readSettings(arguments[0]);
    if (!settings.isGood())
        return refused(settings.fault);
    if (const std::string fault = faultOfFile(arguments[1]); !fault.empty())
        return refused(faultOf(arguments[1], fault));
    const ReadBackup read = readBackup(arguments[1]);
    if (read)
        return importBackup(arguments[0], read.backup, arguments[1]);
    if (read.fault == BackupFault::newerFormat)
        return refused(faultOf(arguments[1], text(read.fault)));
    const FoundItem found = itemIn(arguments[1]);
    if (!found.read)
        return refused(faultOf(arguments[1], text(found.read.fault)));
    return add(*found.kind, found.read.item, arguments[0]);
}

Outcome exportItem(const Arguments& arguments) {
    const bool isProfile = arguments[1] == kProfile.name;
    const bool takesMacros = arguments.size() > kWithMacros;
    if ((!isProfile && (arguments[1] != kMacro.name || takesMacros)) ||
        (takesMacros && arguments[kWithMacros] != "--with-macros"))
        return misused("export takes SETTINGS.plist profile|macro NUMBER FILE [--with-macros]");
    const auto number = numberIn(arguments[2]);
    if (!number)
        return misused(arguments[2] + " is not a 32-bit number, decimal or 0x");
    const auto settings = readSettings(arguments[0]);
    if (!settings.isGood())
        return refused(settings.fault);
    const plist::Dictionary item = itemOf(isProfile ? kProfile : kMacro, settings.value, *number);
    if (!item)
        return refused(faultOf(arguments[0], "it has no " + arguments[1] + " " + std::to_string(*number)));
    if (takesMacros)
        return writeBackupTo(backupOfProfile(settings.value, *number - 1), arguments[3]);
    if (const std::error_code error = writeItemFile(item, arguments[3]))
        return refused(faultOf(arguments[3], "it cannot be written: " + error.message()));
    return done();
}

} // namespace quorvi::tools
