// Sentences as data: said in the user's language by the panel, and in English on the command line.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvi {

/// A sentence, or a piece of one.
struct Phrase {
    enum class Kind : std::uint8_t {
        pattern, ///< English, a key of the string tables, in which "^1" stands for the first part and so on
        name,    ///< what somebody has named a thing: of any length and content, possibly empty
        plain,   ///< shown as it is: a number, the name of a key
    };
    Kind kind = Kind::pattern;
    std::u16string text;
    std::vector<Phrase> parts; ///< of a pattern; nine at most

    bool operator==(const Phrase&) const = default;
};

[[nodiscard]] Phrase patternPhrase(std::u16string text, std::vector<Phrase> parts = {});
[[nodiscard]] Phrase namePhrase(std::u16string name);
[[nodiscard]] Phrase plainPhrase(std::u16string text);
[[nodiscard]] Phrase plainPhrase(std::int64_t number);

/// How one says phrases.
struct Wording {
    /// The text to show for an English one.
    std::function<std::u16string(std::u16string_view english)> text;
    /// The name as it is put into the pattern, which is in the language of the text already.
    std::function<std::u16string(std::u16string_view pattern, std::u16string_view name)> name;
};

/// English, with names as they are; "?" for an empty one.
[[nodiscard]] Wording englishWording();

/// The phrase with all its parts. What a part holds stays as it is, marks like "^1" included; a mark without
/// a part stays as well.
[[nodiscard]] std::u16string inWords(const Phrase& phrase, const Wording& wording);

} // namespace quorvi
