#include "plist/Reader.h"

#include "plist/Limits.h"
#include "plist/RegularFile.h"

namespace quorvi::plist {

FileContents readPropertyListFile(const std::filesystem::path& path) {
    Data bytes;
    if (const auto status = readRegularFile(path, kMaxBytes, bytes); status != FileStatus::Ok)
        return {status, {}};
    Value value = readPropertyList(bytes);
    const auto status = value.isNothing() ? FileStatus::NotPropertyList : FileStatus::Ok;
    return {status, std::move(value)};
}

} // namespace quorvi::plist
