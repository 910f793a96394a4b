#include "tools/Backups.h"

#include <cstdio>

#include "base/Unicode.h"
#include "model/ConfigFile.h"
#include "model/ConfigFileStore.h"
#include "model/Keys.h"
#include "model/SettingsDocument.h"
#include "tools/BackupTexts.h"
#include "tools/EarlierSettings.h"
#include "tools/HelperNews.h"
#include "tools/Input.h"
#include "tools/Verbs.h"

namespace quorvi::tools {

namespace {

namespace fs = std::filesystem;
using plist::Dictionary;

constexpr auto kCannotBeWritten = "it cannot be written";

bool isMissing(const fs::path& file) {
    std::error_code error;
    return fs::status(file, error).type() == fs::file_type::not_found;
}

/// For a machine without settings.
Outcome makeSettings(const fs::path& settings, const Backup& backup, const fs::path& source) {
    const auto tree = Dictionary::create();
    const auto leftOut = restoreEverything(tree, backup);
    const bool isOwn = settings == userSettingsPath(homeFolder());
    // Saving the user's own settings also creates their folders.
    if (isOwn ? !saveSettings(tree, settings) : !KyvarSaveConfigToFile(keys::storage, tree, settings))
        return refused(faultOf(settings, kCannotBeWritten));
    tellHelperOfSave(tree, settings);
    tellLeftOut(source, leftOut);
    return done();
}

/// The settings file given before the last argument, else the user's own.
fs::path settingsBefore(const Arguments& arguments) {
    return arguments.size() > 1 ? fs::path(arguments.front()) : userSettingsPath(homeFolder());
}

} // namespace

Outcome restoreBackup(const fs::path& settings, const Backup& backup, const fs::path& source) {
    if (backup.contents != BackupContents::everything)
        return refused(faultOf(source, "it holds a single profile, which import adds"));
    if (isMissing(settings))
        return makeSettings(settings, backup, source);
    if (const auto read = readSettings(settings); !read.isGood())
        return refused(read.fault);
    std::vector<LeftOut> leftOut;
    Dictionary changed;
    const int error = changeConfigFile(keys::storage, settings, [&](const Dictionary& tree) {
        if (!tree)
            return false;
        keepCopyBefore(settings, CopyReason::beforeRestore);
        leftOut = restoreEverything(tree, backup);
        changed = tree;
        return true;
    });
    if (error != 0)
        return refused(faultOf(settings, kCannotBeWritten));
    tellHelperOfSave(changed, settings);
    tellLeftOut(source, leftOut);
    return done();
}

Outcome importBackup(const fs::path& settings, const Backup& backup, const fs::path& source) {
    if (backup.contents != BackupContents::oneProfile)
        return refused(faultOf(source, "it holds all settings, which restore brings back"));
    AddedProfile added;
    Dictionary changed;
    const int error = changeConfigFile(keys::storage, settings, [&](const Dictionary& tree) {
        added = addProfile(tree, backup, {u"Untitled Profile", u"Untitled Macro"});
        changed = tree;
        if (added.index)
            keepCopyBefore(settings, CopyReason::firstChangeOfDay);
        return added.index.has_value();
    });
    tellLeftOut(source, added.leftOut);
    if (error != 0)
        return refused(faultOf(settings, added.index ? kCannotBeWritten : "the profile was not added"));
    tellHelperOfSave(changed, settings);
    const auto profile = changed.array(keys::profiles).dictionary(*added.index);
    std::printf("%s\n", oneLine(toUtf8(profile.string(keys::name))).c_str());
    return done();
}

Outcome writeBackupTo(const Backup& backup, const fs::path& file) {
    if (!backupBytes(backup))
        return refused(faultOf(file, text(BackupFault::tooLarge)));
    if (const std::error_code error = writeBackup(backup, file))
        return refused(faultOf(file, std::string(kCannotBeWritten).append(": ").append(error.message())));
    return done();
}

Outcome backup(const Arguments& arguments) {
    const fs::path file = settingsBefore(arguments);
    const auto settings = readSettings(file);
    if (!settings.isGood())
        return refused(settings.fault);
    const Backup made = backupOf(settings.value);
    // Refuse a backup that could not be read back.
    if (!canBeRestored(made))
        return refused(faultOf(file, "it has no valid settings with a profile"));
    return writeBackupTo(made, arguments.back());
}

Outcome restore(const Arguments& arguments) {
    const std::string& file = arguments.back();
    if (const std::string fault = faultOfFile(file); !fault.empty())
        return refused(faultOf(file, fault));
    const auto read = readBackup(file);
    if (!read)
        return refused(faultOf(file, text(read.fault)));
    return restoreBackup(settingsBefore(arguments), read.backup, file);
}

} // namespace quorvi::tools
