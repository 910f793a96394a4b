#include "tools/Input.h"

#include <charconv>
#include <fstream>

#include "model/Keys.h"
#include "plist/Reader.h"

namespace quorvi::tools {

namespace fs = std::filesystem;

namespace {

std::string faultOfContents(const fs::path& path, plist::FileStatus status) {
    std::error_code error;
    switch (status) {
    case plist::FileStatus::Ok:
        return "";
    case plist::FileStatus::NotReadable:
        return "it cannot be read";
    case plist::FileStatus::TooLarge:
        return "it is too large for a property list";
    case plist::FileStatus::NotPropertyList:
        break;
    }
    return fs::file_size(path, error) == 0 ? "it is empty" : "it is not a property list";
}

} // namespace

std::string oneLine(std::string text) {
    for (char& c : text)
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F)
            c = '?';
    return text;
}

std::optional<std::uint32_t> numberIn(std::string_view text) {
    const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
    text.remove_prefix(hexadecimal ? 2 : 0);
    std::uint32_t number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, hexadecimal ? 16 : 10);
    if (error != std::errc() || stop != end)
        return std::nullopt;
    return number;
}

std::string faultOf(const fs::path& path, std::string_view reason) {
    std::string text = oneLine(path.string());
    return (text.empty() ? std::string("\"\"") : text).append(": ").append(reason);
}

std::string faultOfFile(const fs::path& path) {
    std::error_code error;
    const auto status = fs::status(path, error);
    if (status.type() == fs::file_type::not_found)
        return "there is no such file";
    if (error)
        return error.message();
    if (status.type() == fs::file_type::directory)
        return "it is a directory";
    return status.type() == fs::file_type::regular ? "" : "it is not a regular file";
}

Input<plist::Dictionary> readSettings(const fs::path& path) {
    if (const auto fault = faultOfFile(path); !fault.empty())
        return {{}, faultOf(path, fault)};
    const auto contents = plist::readPropertyListFile(path);
    if (const auto fault = faultOfContents(path, contents.status); !fault.empty())
        return {{}, faultOf(path, fault)};
    const auto top = contents.value.dictionary();
    if (!top)
        return {{}, faultOf(path, "its property list is not a dictionary")};
    const auto tree = top.dictionary(keys::storage);
    if (!tree)
        return {{}, faultOf(path, "it has no dictionary under the key \"quorvi\"")};
    return {tree, ""};
}

Input<std::vector<std::uint8_t>> readBytes(const fs::path& path, std::size_t size) {
    if (const auto fault = faultOfFile(path); !fault.empty())
        return {{}, faultOf(path, fault)};
    std::error_code error;
    const auto actual = fs::file_size(path, error);
    if (actual != size)
        return {{}, faultOf(path,
                        "it has " + std::to_string(actual) + " bytes; a record has " + std::to_string(size))};
    std::ifstream file(path, std::ios::binary);
    std::vector<char> bytes(size);
    if (!file.read(bytes.data(), static_cast<std::streamsize>(size)))
        return {{}, faultOf(path, "it cannot be read")};
    return {std::vector<std::uint8_t>(bytes.begin(), bytes.end()), ""};
}

} // namespace quorvi::tools
