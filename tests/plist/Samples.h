// Property lists for the tests, built in code to show the relevant bytes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "plist/Reader.h"

namespace quorvi::plist::samples {

inline Value read(std::string_view bytes) {
    return readPropertyList({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
}

/// An XML property list with this value.
inline std::string document(std::string_view body) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<!DOCTYPE plist PUBLIC \"-//Example//DTD PLIST 1.0//EN\" \"http://example.org/plist.dtd\">\n"
           "<plist version=\"1.0\">\n" +
           std::string(body) + "\n</plist>\n";
}

inline Value readBody(std::string_view body) {
    return read(document(body));
}

inline std::string repeated(std::string_view text, std::size_t count) {
    std::string result;
    result.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i)
        result += text;
    return result;
}

inline std::string bigEndian(std::uint64_t number, unsigned size) {
    std::string bytes;
    for (unsigned i = size; i-- > 0;)
        bytes.push_back(static_cast<char>(number >> (8 * i)));
    return bytes;
}

/// A binary property list of the objects, the first of which is the root. References take two bytes.
class Binary {
  public:
    using References = std::vector<std::uint16_t>;

    /// Each returns the object's index.
    std::uint16_t add(std::string bytes) {
        m_objects.push_back(std::move(bytes));
        return static_cast<std::uint16_t>(m_objects.size() - 1);
    }
    std::uint16_t addText(std::string_view ascii) {
        return add(head(0x50, ascii.size()) + std::string(ascii));
    }
    std::uint16_t addUtf16(std::u16string_view units) {
        std::string bytes = head(0x60, units.size());
        for (const char16_t unit : units)
            bytes += bigEndian(unit, 2);
        return add(bytes);
    }
    std::uint16_t addArray(const References& items) { return add(head(0xA0, items.size()) + joined(items)); }
    std::uint16_t addDictionary(const References& keys, const References& values) {
        return add(head(0xD0, keys.size()) + joined(keys) + joined(values));
    }

    std::string bytes() const {
        std::string file = "bplist00";
        std::string table;
        for (const auto& object : m_objects) {
            table += bigEndian(file.size(), 4);
            file += object;
        }
        const auto tableAt = file.size();
        return file + table + trailer(4, 2, m_objects.size(), 0, tableAt);
    }

    static std::string trailer(std::uint8_t offsetSize, std::uint8_t referenceSize, std::uint64_t count,
        std::uint64_t root, std::uint64_t tableAt) {
        return std::string(6, '\0') + bigEndian(offsetSize, 1) + bigEndian(referenceSize, 1) +
               bigEndian(count, 8) + bigEndian(root, 8) + bigEndian(tableAt, 8);
    }

    static std::string head(std::uint8_t marker, std::size_t length) {
        if (length < 15)
            return bigEndian(marker | length, 1);
        return bigEndian(marker | 0xFU, 1) + bigEndian(0x12, 1) + bigEndian(length, 4);
    }

  private:
    static std::string joined(const References& references) {
        std::string bytes;
        for (const auto reference : references)
            bytes += bigEndian(reference, 2);
        return bytes;
    }

    std::vector<std::string> m_objects;
};

} // namespace quorvi::plist::samples
