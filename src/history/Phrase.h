// Sentences as data: the panel shows them in the user's language, the command line in English.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvi {

/// A sentence, or a part of one.
struct Phrase {
    enum class Kind : std::uint8_t {
        pattern, ///< English, a key of the string tables; "^1" stands for the first part and so on
        list,    ///< the pattern of a list (see separatorIn) and any number of parts
        name,    ///< a name given by a user: any length and content, possibly empty
        plain,   ///< shown unchanged: a whole number, the name of a key
        decimal, ///< a number with a point before its decimals, which the panel shows as the user writes it
    };
    Kind kind = Kind::pattern;
    std::u16string text;
    std::vector<Phrase> parts; ///< of a pattern, nine at most; of a list

    bool operator==(const Phrase&) const = default;
};

[[nodiscard]] Phrase patternPhrase(std::u16string text, std::vector<Phrase> parts = {});
/// The parts in a row, with what the user's language puts between each two.
[[nodiscard]] Phrase listPhrase(std::vector<Phrase> parts);
[[nodiscard]] Phrase namePhrase(std::u16string name);
[[nodiscard]] Phrase plainPhrase(std::u16string text);
[[nodiscard]] Phrase plainPhrase(std::int64_t number);
[[nodiscard]] Phrase decimalPhrase(std::u16string number);

/// How to put phrases into words.
struct Wording {
    /// The text to show for an English one.
    std::function<std::u16string(std::u16string_view english)> text;
    /// Prepares the name for the pattern, which is already translated.
    std::function<std::u16string(std::u16string_view pattern, std::u16string_view name)> name;
};

/// English, with unchanged names; "?" for an empty one.
[[nodiscard]] Wording englishWording();

/// The phrase with all its parts. Parts are inserted unchanged, even with marks like "^1"; a mark without a
/// part stays.
[[nodiscard]] std::u16string inWords(const Phrase& phrase, const Wording& wording);

} // namespace quorvi
