// The string tables of the panel's languages as the sources hold them, and the parts of a text besides its
// words.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace quorvi::test {

/// Texts by their English form, both UTF-8.
using StringTable = std::map<std::string, std::string>;

/// The names of all languages that have a folder, English included: "de", "en", "zh_CN".
[[nodiscard]] std::vector<std::string> languages();

[[nodiscard]] std::filesystem::path stringTablePath(const std::string& language);

/// The language's table as the panel reads it; empty when it cannot be read.
[[nodiscard]] StringTable readStringTable(const std::string& language);

/// The language's name with nothing but letters, digits and "_", for the names of tests.
[[nodiscard]] std::string testNameOf(const std::string& language);

/// The text as a reader sees it: without the marks of access keys, and without an access key in parentheses.
[[nodiscard]] std::string shownText(const std::string& text);

/// The places in a text that something is put into, in the order of the alphabet: "%d", "%1", "%@", "^1".
[[nodiscard]] std::vector<std::string> placeholdersOf(const std::string& text);

/// The characters behind "&", in small letters where there are such. "&&" is a shown "&" and marks none.
[[nodiscard]] std::vector<std::string> accessKeysOf(const std::string& text);

/// True when a character behind "&" is written as one with the character before or after it, as letters of
/// Arabic are.
[[nodiscard]] bool joinsAnAccessKey(const std::string& text);

} // namespace quorvi::test
