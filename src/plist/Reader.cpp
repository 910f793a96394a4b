#include "plist/Reader.h"

#include <string_view>

#include "base/Unicode.h"
#include "plist/BinaryBounds.h"
#include "plist/Carried.h"
#include "plist/Node.h"
#include "plist/XmlBounds.h"

namespace quorvi::plist {

namespace {

/// Some editors start a UTF-8 file with it; libplist does not accept it.
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// Converts a libplist tree to values.
class Importer {
  public:
    /// libplist merges equal keys when it reads XML, but keeps them all when it reads a binary file.
    explicit Importer(bool keysMayRepeat) : m_keysMayRepeat(keysMayRepeat) {}

    // NOLINTNEXTLINE(misc-no-recursion): the depth is bounded before libplist builds the tree
    Value value(plist_t node) const {
        switch (plist_get_node_type(node)) {
        case PLIST_DICT:
            return dictionary(node);
        case PLIST_ARRAY:
            return array(node);
        case PLIST_STRING:
            return string(node);
        case PLIST_UINT:
            return integer(node);
        case PLIST_REAL: {
            double number = 0;
            plist_get_real_val(node, &number);
            return number;
        }
        case PLIST_BOOLEAN: {
            std::uint8_t truth = 0;
            plist_get_bool_val(node, &truth);
            return truth != 0;
        }
        case PLIST_DATA: {
            std::uint64_t length = 0;
            const char* bytes = plist_get_data_ptr(node, &length);
            return bytes ? Data(bytes, bytes + length) : Data();
        }
        default:
            return CarriedRef(std::make_shared<Carried>(node));
        }
    }

  private:
    Dictionary dictionary(plist_t node) const {
        auto result = Dictionary::create();
        result.reserve(plist_dict_get_size(node));
        plist_dict_iter iterator = nullptr;
        plist_dict_new_iter(node, &iterator);
        const Allocated<void> owner(iterator);
        while (true) {
            char* text = nullptr;
            plist_t child = nullptr;
            plist_dict_next_item(node, iterator, &text, &child);
            const Allocated<char> key(text);
            if (!key || !child)
                return result;
            if (m_keysMayRepeat)
                result.set(key.get(), value(child));
            else
                result.append(key.get(), value(child));
        }
    }

    Array array(plist_t node) const {
        auto result = Array::create();
        result.reserve(plist_array_get_size(node));
        plist_array_iter iterator = nullptr;
        plist_array_new_iter(node, &iterator);
        const Allocated<void> owner(iterator);
        for (plist_t item = nullptr; plist_array_next_item(node, iterator, &item), item;)
            result.append(value(item));
        return result;
    }

    static Value string(plist_t node) {
        std::uint64_t length = 0;
        const char* text = plist_get_string_ptr(node, &length);
        return text ? toUtf16({text, length}) : std::u16string();
    }

    /// libplist returns negative numbers and those above the signed range as the same 64 bits. Only their
    /// width tells them apart, so compare it with that of a signed number.
    static Value integer(plist_t node) {
        std::uint64_t number = 0;
        plist_get_uint_val(node, &number);
        const auto isWide = [&] {
            const Node narrow = signedInteger(static_cast<std::int64_t>(number));
            return plist_compare_node_value(node, narrow.get()) == 0;
        };
        if (number > INT64_MAX && isWide())
            return CarriedRef(std::make_shared<Carried>(node));
        return static_cast<std::int64_t>(number);
    }

    bool m_keysMayRepeat;
};

std::string_view textOf(std::span<const std::uint8_t> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::string_view xmlIn(std::span<const std::uint8_t> bytes) {
    std::string_view text = textOf(bytes);
    if (text.starts_with(kByteOrderMark))
        text.remove_prefix(kByteOrderMark.size());
    return text;
}

} // namespace

bool isBounded(std::span<const std::uint8_t> bytes, const Bounds& bounds) {
    return looksBinary(bytes) ? isBoundedBinary(bytes, bounds) : isBoundedXml(xmlIn(bytes), bounds);
}

Value readPropertyList(std::span<const std::uint8_t> bytes, const Bounds& bounds) {
    if (!isBounded(bytes, bounds))
        return {};
    const bool binary = looksBinary(bytes);
    const std::string_view text = binary ? textOf(bytes) : xmlIn(bytes);
    const NumericScope scope;
    plist_t parsed = nullptr;
    const auto parse = binary ? plist_from_bin : plist_from_xml;
    parse(text.data(), static_cast<std::uint32_t>(text.size()), &parsed);
    const Node root(parsed);
    return root ? Importer(binary).value(root.get()) : Value();
}

} // namespace quorvi::plist
