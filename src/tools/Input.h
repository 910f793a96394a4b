// Reading what the command line names, with the fault in words when it cannot be used.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "plist/Value.h"

namespace quorvi::tools {

/// What was read, or why it was not.
template <typename T>
struct Input {
    T value{};
    std::string fault; ///< "FILE: reason"; empty when the value is good

    [[nodiscard]] bool isGood() const { return fault.empty(); }
};

/// The configuration tree under the settings key of the file. Its own contents are not checked.
[[nodiscard]] Input<plist::Dictionary> readSettings(const std::filesystem::path& path);

/// The bytes of a file that must have exactly this many.
[[nodiscard]] Input<std::vector<std::uint8_t>> readBytes(const std::filesystem::path& path, std::size_t size);

/// The text with a question mark for every control character, so that it stays on its line.
[[nodiscard]] std::string oneLine(std::string text);

/// A whole number of 32 bits, decimal or hexadecimal behind 0x; nothing when the text is none.
[[nodiscard]] std::optional<std::uint32_t> numberIn(std::string_view text);

/// Why the path names no file that can be read, or nothing. A FIFO or a device might never end.
[[nodiscard]] std::string faultOfFile(const std::filesystem::path& path);

/// "FILE: reason", on one line whatever the file's name holds.
[[nodiscard]] std::string faultOf(const std::filesystem::path& path, std::string_view reason);

} // namespace quorvi::tools
