// Reading the bytes of a file that anybody may have put there.
#pragma once

#include <cstdint>
#include <filesystem>

#include "plist/Reader.h"
#include "plist/Value.h"

namespace quorvi::plist {

enum class Links : std::uint8_t { followed, notReadable };

/// Reads the whole file into `bytes`, which are otherwise left as they are. Ok, NotReadable, or TooLarge for
/// more than `limit` bytes, of which none is read then. Never waits for anybody: a directory, a FIFO or a
/// device is not read, and no link in the path's last component when it is not to be.
[[nodiscard]] FileStatus readRegularFile(
    const std::filesystem::path& path, std::uint64_t limit, Data& bytes, Links links = Links::followed);

} // namespace quorvi::plist
