#include "model/ItemFile.h"

#include <cerrno>

#include "base/AtomicFile.h"
#include "base/Leftovers.h"
#include "model/ConfigFileStore.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "model/NamingRule.h"
#include "plist/Reader.h"
#include "plist/Writer.h"

namespace quorvi {

namespace {

namespace fs = std::filesystem;

/// Reads any dictionary within the size limits.
ReadItem readItemFile(const fs::path& path) {
    const auto contents = plist::readPropertyListFile(path, {limits::itemValues, limits::itemBytes});
    switch (contents.status) {
    case plist::FileStatus::NotReadable:
        return {{}, ItemFault::notReadable};
    case plist::FileStatus::TooLarge:
        return {{}, ItemFault::tooLarge};
    case plist::FileStatus::NotPropertyList:
        return {{}, ItemFault::damaged};
    case plist::FileStatus::Ok:
        break;
    }
    const plist::Dictionary item = contents.value.dictionary();
    return {item, item ? ItemFault::none : ItemFault::otherItem};
}

bool isMacro(const plist::Dictionary& item) {
    return item.has(keys::name) && item.has(keys::steps);
}

std::error_code systemError(int number) {
    return {number, std::generic_category()};
}

/// Why a file was not replaced, if no system call set errno.
int unsaidErrorAt(const fs::path& path) {
    std::error_code error;
    return fs::is_directory(path, error) ? EISDIR : EIO;
}

} // namespace

ReadItem readProfileFile(const fs::path& path) {
    ReadItem read = readItemFile(path);
    if (read && !KyvarValidateProfile(read.item))
        return {{}, ItemFault::otherItem};
    return read;
}

ReadItem readMacroFile(const fs::path& path) {
    ReadItem read = readItemFile(path);
    if (read && !isMacro(read.item))
        return {{}, ItemFault::otherItem};
    if (read && read.item.array(keys::steps).size() > limits::macroSteps)
        return {{}, ItemFault::tooManySteps};
    return read;
}

std::error_code writeItemFile(const plist::Dictionary& item, const fs::path& path) {
    const auto text = plist::writeXml(item);
    if (!text)
        return systemError(EINVAL);
    removeLeftovers(path); // an interrupted export leaves them in the user's folder
    errno = 0;
    if (replaceFileAtomically(path, *text))
        return {};
    const int number = errno;
    return systemError(number != 0 ? number : unsaidErrorAt(path));
}

void appendItem(const plist::Array& array, const plist::Dictionary& item, const std::u16string& defaultName) {
    const std::u16string* name = item.value(keys::name).string();
    std::u16string unique =
        makeNameUnique(name ? *name : std::u16string(), defaultName, array, keys::name, -1);
    if (!name || *name != unique)
        item.set(keys::name, std::move(unique));
    array.append(item);
}

} // namespace quorvi
