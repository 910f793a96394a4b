#include "history/Phrase.h"

#include "base/Pattern.h"
#include "base/Unicode.h"

namespace quorvi {

namespace {

/// The part for the mark at the place; null if there is no mark, or no such part.
const Phrase* partAt(std::u16string_view pattern, std::size_t place, const Phrase& phrase) {
    if (pattern[place] != u'^' || place + 1 >= pattern.size())
        return nullptr;
    const char16_t digit = pattern[place + 1];
    if (digit < u'1' || digit > u'9')
        return nullptr;
    const auto index = static_cast<std::size_t>(digit - u'1');
    return index < phrase.parts.size() ? &phrase.parts[index] : nullptr;
}

std::u16string listInWords(const Phrase& list, const Wording& wording) {
    const std::u16string pattern = wording.text(list.text);
    std::u16string words;
    for (const Phrase& part : list.parts) {
        if (&part != &list.parts.front())
            words += separatorIn(pattern);
        words += inWords(part, wording);
    }
    return words;
}

} // namespace

Phrase patternPhrase(std::u16string text, std::vector<Phrase> parts) {
    return {Phrase::Kind::pattern, std::move(text), std::move(parts)};
}

Phrase listPhrase(std::vector<Phrase> parts) {
    return {Phrase::Kind::list, u"^1, ^2, ^3", std::move(parts)};
}

Phrase namePhrase(std::u16string name) {
    return {Phrase::Kind::name, std::move(name), {}};
}

Phrase plainPhrase(std::u16string text) {
    return {Phrase::Kind::plain, std::move(text), {}};
}

Phrase decimalPhrase(std::u16string number) {
    return {Phrase::Kind::decimal, std::move(number), {}};
}

Phrase plainPhrase(std::int64_t number) {
    return plainPhrase(toUtf16(std::to_string(number)));
}

Wording englishWording() {
    return {[](std::u16string_view english) { return std::u16string(english); },
        [](std::u16string_view, std::u16string_view name) {
            return std::u16string(name.empty() ? u"?" : name);
        }};
}

std::u16string inWords(const Phrase& phrase, const Wording& wording) {
    if (phrase.kind == Phrase::Kind::plain || phrase.kind == Phrase::Kind::decimal)
        return phrase.text;
    if (phrase.kind == Phrase::Kind::name)
        return wording.name({}, phrase.text);
    if (phrase.kind == Phrase::Kind::list)
        return listInWords(phrase, wording);
    const std::u16string pattern = wording.text(phrase.text);
    std::u16string words;
    for (std::size_t place = 0; place < pattern.size(); ++place) {
        const Phrase* part = partAt(pattern, place, phrase);
        if (!part) {
            words += pattern[place];
            continue;
        }
        words +=
            part->kind == Phrase::Kind::name ? wording.name(pattern, part->text) : inWords(*part, wording);
        ++place; // the digit
    }
    return words;
}

} // namespace quorvi
