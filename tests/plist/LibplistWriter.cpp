#include "plist/LibplistWriter.h"

#include "base/Unicode.h"
#include "plist/Carried.h"
#include "plist/Node.h"

namespace quorvi::plist::samples {

namespace {

Node nodeOf(const Value& value);

Node make(std::monostate) {
    return nullptr;
}
Node make(bool v) {
    return Node(plist_new_bool(v ? 1 : 0));
}
Node make(std::int64_t v) {
    return signedInteger(v);
}
Node make(double v) {
    return Node(plist_new_real(v));
}
Node make(const CarriedRef& v) {
    return Node(plist_copy(v->node()));
}
Node make(const std::u16string& v) {
    return Node(plist_new_string(toXmlUtf8(v).c_str()));
}

Node make(const Data& v) {
    const std::string bytes(v.begin(), v.end());
    return Node(plist_new_data(bytes.c_str(), bytes.size()));
}

Node make(const Array& v) {
    Node array(plist_new_array());
    for (const auto& item : v.items()) {
        Node child = nodeOf(item);
        if (!child)
            return nullptr;
        plist_array_append_item(array.get(), child.release());
    }
    return array;
}

Node make(const Dictionary& v) {
    Node dictionary(plist_new_dict());
    for (const auto& [key, item] : v.entries()) {
        Node child = nodeOf(item);
        if (!child)
            return nullptr;
        plist_dict_set_item(dictionary.get(), toXmlUtf8(toUtf16(key)).c_str(), child.release());
    }
    return dictionary;
}

// NOLINTNEXTLINE(misc-no-recursion): the tests' trees are not deep
Node nodeOf(const Value& value) {
    return std::visit([](const auto& v) { return make(v); }, value.variant());
}

} // namespace

std::string libplistXml(const Value& value) {
    const NumericScope scope;
    const Node root = nodeOf(value);
    char* text = nullptr;
    std::uint32_t length = 0;
    if (root)
        plist_to_xml(root.get(), &text, &length);
    const Allocated<char> owner(text);
    return {text ? text : "", length};
}

} // namespace quorvi::plist::samples
