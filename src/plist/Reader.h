// Reading property lists, XML and binary. Text in the old style with braces is not read.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>

#include "plist/Limits.h"
#include "plist/Value.h"

namespace quorvi::plist {

/// The value that the bytes of an XML property list 1.0 (UTF-8, with or without byte-order mark) or of a
/// binary property list hold. Every dictionary and array of it is new. Of equal keys the later one's value
/// counts, at the place of the first; a last key without a value is left out; a number's text is read up to
/// what is no number any more. Nothing when the bytes are no property list, are cut short, or exceed the
/// bounds or the other limits of Limits.h.
[[nodiscard]] Value readPropertyList(std::span<const std::uint8_t> bytes, const Bounds& bounds = {});

/// Whether the bytes have the shape of a whole property list within the bounds. Takes no memory for its
/// values, and does not say that every one of them is well-formed.
[[nodiscard]] bool isBounded(std::span<const std::uint8_t> bytes, const Bounds& bounds = {});

enum class FileStatus : std::uint8_t {
    Ok,
    NotReadable,     ///< missing, not permitted, or no regular file
    TooLarge,        ///< beyond the bounds; a larger file is not read at all
    NotPropertyList, ///< read, and refused by readPropertyList
};

struct FileContents {
    FileStatus status = FileStatus::NotReadable;
    Value value; ///< nothing unless the status is Ok
};

/// The property list in the file, within the bounds. Never waits for anybody: a directory, a FIFO or a device
/// is not read.
[[nodiscard]] FileContents readPropertyListFile(const std::filesystem::path& path, const Bounds& bounds = {});

} // namespace quorvi::plist
