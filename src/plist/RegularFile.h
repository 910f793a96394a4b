// Reading the bytes of a file that may come from anywhere.
#pragma once

#include <cstdint>
#include <filesystem>

#include "plist/Reader.h"
#include "plist/Value.h"

namespace quorvi::plist {

enum class Links : std::uint8_t { followed, notReadable };

/// Reads the whole file into `bytes`, which stay unchanged on failure. Returns Ok, NotReadable, or TooLarge
/// for more than `limit` bytes, none of which are read then. Never blocks: a directory, a FIFO or a device is
/// not read, nor a link in the path's last component unless `links` allows it.
[[nodiscard]] FileStatus readRegularFile(
    const std::filesystem::path& path, std::uint64_t limit, Data& bytes, Links links = Links::followed);

} // namespace quorvi::plist
