// Reading the bytes of a file that anybody may have put there.
#pragma once

#include <cstdint>
#include <filesystem>

#include "plist/Reader.h"
#include "plist/Value.h"

namespace quorvi::plist {

/// Reads the whole file into `bytes`, which are otherwise left as they are. Ok, NotReadable, or TooLarge for
/// more than `limit` bytes, of which none is read then. Never waits for anybody: a directory, a FIFO or a
/// device is not read.
[[nodiscard]] FileStatus readRegularFile(const std::filesystem::path& path, std::uint64_t limit, Data& bytes);

} // namespace quorvi::plist
