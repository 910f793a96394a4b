#include "history/Backup.h"

#include <algorithm>
#include <cerrno>

#include "history/BackupKeys.h"
#include "model/ConfigFileStore.h"
#include "model/Dependants.h"
#include "model/ItemFile.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "plist/DeepCopy.h"
#include "plist/Reader.h"
#include "plist/RegularFile.h"
#include "plist/Writer.h"

namespace quorvi {

namespace {

namespace fs = std::filesystem;
using plist::Array;
using plist::Dictionary;

constexpr plist::Bounds kBounds{kBackupValues, kBackupBytes};

bool isWholeProfile(const plist::Value& item) {
    return KyvarValidateProfile(item.dictionary());
}

bool areSettings(const Dictionary& tree) {
    const plist::Array list = tree.array(keys::profiles);
    const auto& profiles = list.items();
    return KyvarValidateConfig(tree, limits::minimumVersion) && tree.dictionary(keys::settings) &&
           tree.array(keys::macros) && std::any_of(profiles.begin(), profiles.end(), isWholeProfile);
}

bool isNumber(const plist::Value& value, std::int64_t number) {
    const auto* own = std::get_if<std::int64_t>(&value.variant());
    return own && *own == number;
}

bool isAbove(const plist::Value& value, std::int64_t number) {
    const auto* own = std::get_if<std::int64_t>(&value.variant());
    return own && *own > number;
}

std::optional<BackupContents> contentsIn(const Dictionary& top) {
    const std::u16string name = top.string(backup_keys::contents);
    if (name == backup_keys::everything)
        return BackupContents::everything;
    return name == backup_keys::oneProfile ? std::optional(BackupContents::oneProfile) : std::nullopt;
}

/// Whether the tree fits the file's "contents".
bool hasContents(const Dictionary& tree, BackupContents contents) {
    return areSettings(tree) &&
           (contents == BackupContents::everything || tree.array(keys::profiles).size() == 1);
}

Dictionary topOf(const Backup& backup) {
    auto top = Dictionary::create();
    const bool isWhole = backup.contents == BackupContents::everything;
    top.append(backup_keys::format, backup_keys::writtenFormat);
    top.append(backup_keys::contents, isWhole ? backup_keys::everything : backup_keys::oneProfile);
    top.append(keys::storage, backup.tree);
    return top;
}

} // namespace

Backup backupOf(const Dictionary& tree) {
    return {plist::mutableDeepCopy(tree), BackupContents::everything};
}

Backup backupOfProfile(const Dictionary& tree, std::size_t profile) {
    const Dictionary item = tree.array(keys::profiles).dictionary(profile);
    if (!item)
        return {};
    const Array macros = tree.array(keys::macros);
    const auto profiles = Array::create();
    profiles.append(item);
    const auto itsMacros = Array::create();
    for (const std::size_t macro : macrosRunBy(item, macros))
        itsMacros.append(macros.value(macro));
    const auto part = Dictionary::create();
    part.append(keys::version, limits::writtenVersion);
    part.append(keys::settings, Dictionary::create());
    part.append(keys::profiles, profiles);
    part.append(keys::macros, itsMacros);
    return {plist::mutableDeepCopy(part), BackupContents::oneProfile};
}

bool canBeRestored(const Backup& backup) {
    return hasContents(backup.tree, backup.contents);
}

std::optional<std::string> backupBytes(const Backup& backup) {
    if (!backup)
        return std::nullopt;
    auto text = plist::writeXml(topOf(backup));
    const auto bytesOfText = [&] {
        return std::span(reinterpret_cast<const std::uint8_t*>(text->data()), text->size());
    };
    if (!text || !plist::isBounded(bytesOfText(), kBounds))
        return std::nullopt;
    return text;
}

std::error_code writeBackup(const Backup& backup, const fs::path& path) {
    if (!backupBytes(backup))
        return std::make_error_code(std::errc::invalid_argument);
    return writeItemFile(topOf(backup), path);
}

ReadBackup backupIn(const plist::Data& bytes) {
    const auto value = plist::readPropertyList(bytes, kBounds);
    if (value.isNothing()) {
        const bool isTooLarge = !plist::isBounded(bytes, kBounds) && plist::isBounded(bytes);
        return {{}, isTooLarge ? BackupFault::tooLarge : BackupFault::damaged};
    }
    const auto top = value.dictionary();
    const plist::Value& format = top.value(backup_keys::format);
    if (isAbove(format, backup_keys::writtenFormat))
        return {{}, BackupFault::newerFormat};
    const auto contents = contentsIn(top);
    const auto tree = top.dictionary(keys::storage);
    if (!isNumber(format, backup_keys::writtenFormat) || !contents || !hasContents(tree, *contents))
        return {{}, BackupFault::noSettings};
    return {{tree, *contents}, BackupFault::none};
}

ReadBackup readBackup(const fs::path& path) {
    return readBackup(path, plist::Links::followed);
}

ReadBackup readBackup(const fs::path& path, plist::Links links) {
    plist::Data bytes;
    errno = 0;
    switch (plist::readRegularFile(path, kBackupBytes, bytes, links)) {
    case plist::FileStatus::Ok:
        return backupIn(bytes);
    case plist::FileStatus::TooLarge:
        return {{}, BackupFault::tooLarge};
    default:
        return {{}, errno == ENOENT || errno == ENOTDIR ? BackupFault::noSuchFile : BackupFault::notReadable};
    }
}

} // namespace quorvi
