#include "plist/Reader.h"
#include "plist/RegularFile.h"

namespace quorvi::plist {

FileContents readPropertyListFile(const std::filesystem::path& path, const Bounds& bounds) {
    Data bytes;
    if (const auto status = readRegularFile(path, bounds.bytes, bytes); status != FileStatus::Ok)
        return {status, {}};
    Value value = readPropertyList(bytes, bounds);
    if (!value.isNothing())
        return {FileStatus::Ok, std::move(value)};
    const bool isTooLarge = !isBounded(bytes, bounds) && isBounded(bytes);
    return {isTooLarge ? FileStatus::TooLarge : FileStatus::NotPropertyList, {}};
}

} // namespace quorvi::plist
