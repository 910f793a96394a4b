#include "base/StringHelpers.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace quorvi {

namespace {

constexpr std::size_t kPascalLimit = 255; // the largest length byte

const char* bytes(const unsigned char* text) {
    return reinterpret_cast<const char*>(text);
}

std::string_view pascalText(const unsigned char* text) {
    return text ? std::string_view(bytes(text + 1), *text) : std::string_view();
}

/// The text up to its closing zero or its first `limit` bytes, whichever ends first; nothing beyond is read.
std::string_view terminatedText(const char* text, std::size_t limit) {
    return text ? std::string_view(text, ::strnlen(text, limit)) : std::string_view();
}

/// Appends as much of the text to the first `length` bytes of a body as fits within `maximum`. Returns the
/// body's new length.
std::size_t extend(void* body, std::size_t length, std::string_view text, std::size_t maximum) {
    const std::size_t count = std::min(text.size(), maximum - length);
    if (count > 0)
        std::memmove(static_cast<char*>(body) + length, text.data(), count);
    return length + count;
}

void extendPascal(unsigned char* text, std::size_t length, std::string_view more, std::size_t maximum) {
    maximum = std::min(maximum, kPascalLimit);
    if (length <= maximum)
        *text = static_cast<unsigned char>(extend(text + 1, length, more, maximum));
}

void extendTerminated(char* text, std::size_t length, std::string_view more, std::size_t maximum) {
    text[extend(text, length, more, maximum)] = '\0';
}

unsigned char folded(char c) {
    return static_cast<unsigned char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
}

int compare(std::string_view a, std::string_view b) {
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i)
        if (const int difference = folded(a[i]) - folded(b[i]); difference != 0)
            return difference;
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

std::string_view wholeText(const char* text) {
    return text ? std::string_view(text) : std::string_view();
}

} // namespace

void PStringCopy(unsigned char* destination, const unsigned char* source, std::size_t maximum) {
    if (destination)
        extendPascal(destination, 0, pascalText(source), maximum);
}

void PStringCat(unsigned char* destination, const unsigned char* source, std::size_t maximum) {
    if (destination)
        extendPascal(destination, *destination, pascalText(source), maximum);
}

int PStringCmp(const unsigned char* a, const unsigned char* b) {
    return compare(pascalText(a), pascalText(b));
}

void CStringPCopy(unsigned char* destination, const char* source, std::size_t maximum) {
    if (destination)
        extendPascal(destination, 0, terminatedText(source, std::min(maximum, kPascalLimit)), maximum);
}

void CStringPCat(unsigned char* destination, const char* source, std::size_t maximum) {
    if (destination)
        extendPascal(
            destination, *destination, terminatedText(source, std::min(maximum, kPascalLimit)), maximum);
}

void CStringCopy(char* destination, const char* source, std::size_t maximum) {
    if (destination)
        extendTerminated(destination, 0, terminatedText(source, maximum), maximum);
}

void CStringCat(char* destination, const char* source, std::size_t maximum) {
    if (destination)
        extendTerminated(
            destination, ::strnlen(destination, maximum), terminatedText(source, maximum), maximum);
}

int CStringCmp(const char* a, const char* b) {
    return compare(wholeText(a), wholeText(b));
}

} // namespace quorvi
