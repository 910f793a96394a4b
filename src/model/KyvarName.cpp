#include "model/KyvarName.h"

#include <algorithm>
#include <cstring>

namespace quorvi {

namespace {

char16_t unitAt(const std::uint8_t* name, std::size_t index) {
    return static_cast<char16_t>(name[2 * index] | name[2 * index + 1] << 8);
}

std::uint8_t encodedByte(const std::u16string& string, std::size_t index) {
    return static_cast<std::uint8_t>(string[index / 2] >> (index % 2 * 8));
}

} // namespace

std::size_t KyvarNameLength(const std::uint8_t* name, std::size_t size) {
    std::size_t length = 0;
    while (name && length < size / 2 && unitAt(name, length) != 0)
        ++length;
    return length;
}

std::size_t KyvarStringToName(const std::u16string* string, std::uint8_t* buffer, std::size_t size) {
    if (!buffer)
        return 0;
    std::fill_n(buffer, size, std::uint8_t{0});
    if (!string)
        return 0;
    const auto stored = std::min(size, 2 * string->size());
    for (std::size_t i = 0; i < stored; ++i)
        buffer[i] = encodedByte(*string, i);
    return stored;
}

std::optional<std::u16string> KyvarNameToString(const std::uint8_t* name, std::size_t size) {
    if (!name)
        return std::nullopt;
    std::u16string string(KyvarNameLength(name, size), u'\0');
    for (std::size_t i = 0; i < string.size(); ++i)
        string[i] = unitAt(name, i);
    return string;
}

bool KyvarBuffersAreIdentical(const void* a, const void* b, std::size_t length) {
    if (!a || !b || length == 0 || length > limits::comparedBytes)
        return false;
    return std::memcmp(a, b, length) == 0;
}

} // namespace quorvi
