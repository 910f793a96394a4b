// Reading property lists, XML and binary. Text in the old style with braces is not read.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>

#include "plist/Limits.h"
#include "plist/Value.h"

namespace quorvi::plist {

/// Reads an XML property list 1.0 (UTF-8, with or without byte-order mark) or a binary property list. Every
/// dictionary and array in the result is new. The last of several equal keys sets the value, at the place of
/// the first; a last key without a value is left out; a number's text is read up to its first character that
/// is not part of a number. Returns Value() if the bytes are not a property list, are cut short, or exceed
/// the bounds or the other limits of Limits.h.
[[nodiscard]] Value readPropertyList(std::span<const std::uint8_t> bytes, const Bounds& bounds = {});

/// Whether the bytes have the shape of a whole property list within the bounds. Allocates no memory for the
/// values, and does not check that each is well-formed.
[[nodiscard]] bool isBounded(std::span<const std::uint8_t> bytes, const Bounds& bounds = {});

enum class FileStatus : std::uint8_t {
    Ok,
    NotReadable,     ///< missing, not permitted, or not a regular file
    TooLarge,        ///< beyond the bounds; a larger file is not read at all
    NotPropertyList, ///< read, but refused by readPropertyList
};

struct FileContents {
    FileStatus status = FileStatus::NotReadable;
    Value value; ///< Value() unless the status is Ok
};

/// Reads the property list in the file, within the bounds. Never blocks: a directory, a FIFO or a device is
/// not read.
[[nodiscard]] FileContents readPropertyListFile(const std::filesystem::path& path, const Bounds& bounds = {});

} // namespace quorvi::plist
