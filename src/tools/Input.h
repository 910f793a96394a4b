// Reads the command line's files and numbers, and describes faults in words.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "plist/Value.h"

namespace quorvi::tools {

/// The value read, or the fault.
template <typename T>
struct Input {
    T value{};
    std::string fault; ///< "FILE: reason"; empty if the value is valid

    [[nodiscard]] bool isGood() const { return fault.empty(); }
};

/// The configuration tree under the settings key of the file. Does not check the tree's contents.
[[nodiscard]] Input<plist::Dictionary> readSettings(const std::filesystem::path& path);

/// The bytes of a file that must have exactly this many.
[[nodiscard]] Input<std::vector<std::uint8_t>> readBytes(const std::filesystem::path& path, std::size_t size);

/// The text with a question mark for every control character, so that it stays on one line.
[[nodiscard]] std::string oneLine(std::string text);

/// A whole number of 32 bits, decimal or hexadecimal after 0x; std::nullopt for any other text.
[[nodiscard]] std::optional<std::uint32_t> numberIn(std::string_view text);

/// Why the path is not a readable file; empty if it is. A FIFO or a device might never end.
[[nodiscard]] std::string faultOfFile(const std::filesystem::path& path);

/// "FILE: reason", always on one line.
[[nodiscard]] std::string faultOf(const std::filesystem::path& path, std::string_view reason);

} // namespace quorvi::tools
