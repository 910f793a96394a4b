#include "plist/Writer.h"

#include <algorithm>

#include "plist/Carried.h"
#include "plist/Limits.h"
#include "plist/Node.h"
#include "plist/Unicode.h"
#include "plist/XmlBounds.h"

namespace quorvi::plist {

namespace {

/// Builds libplist's tree from ours. Each function gives null when the value cannot be written.
class Exporter {
  public:
    // NOLINTNEXTLINE(misc-no-recursion): the depth is bounded, by which a container within itself ends
    Node node(const Value& value) {
        ++m_cost.nodes;
        if (!m_cost.isBearable())
            return nullptr;
        return std::visit([this](const auto& v) { return make(v); }, value.variant());
    }

  private:
    static Node make(std::monostate) { return nullptr; }
    static Node make(bool v) { return Node(plist_new_bool(v ? 1 : 0)); }
    static Node make(std::int64_t v) { return Node(plist_new_uint(static_cast<std::uint64_t>(v))); }
    static Node make(double v) { return Node(plist_new_real(v)); }
    static Node make(const CarriedRef& v) { return Node(plist_copy(v->node())); }

    Node make(const std::u16string& v) {
        m_cost.bytes += v.size();
        return Node(plist_new_string(toXmlUtf8(v).c_str()));
    }

    Node make(const Data& v) {
        m_cost.bytes += v.size();
        static const std::uint8_t none = 0; // an empty vector has no address, which copying asks for
        const auto* bytes = v.empty() ? &none : v.data();
        return Node(plist_new_data(reinterpret_cast<const char*>(bytes), v.size()));
    }

    Node make(const Dictionary& v) {
        Node dictionary(plist_new_dict());
        return fill(v.entries(),
                   [&](const Entry& entry) {
                       m_cost.bytes += entry.key.size();
                       Node child = node(entry.value);
                       if (child)
                           plist_dict_set_item(dictionary.get(), writable(entry.key).c_str(), child.get());
                       return child.release() != nullptr;
                   })
                   ? std::move(dictionary)
                   : nullptr;
    }

    Node make(const Array& v) {
        Node array(plist_new_array());
        return fill(v.items(),
                   [&](const Value& item) {
                       Node child = node(item);
                       if (child)
                           plist_array_append_item(array.get(), child.get());
                       return child.release() != nullptr;
                   })
                   ? std::move(array)
                   : nullptr;
    }

    template <typename Elements, typename Add>
    bool fill(const Elements& elements, Add add) {
        if (m_depth == kMaxDepth)
            return false;
        ++m_depth;
        const bool complete = std::all_of(elements.begin(), elements.end(), add);
        --m_depth;
        return complete;
    }

    /// Keys are UTF-8 by contract, but whoever set one may have taken it from anywhere.
    static std::string writable(const std::string& key) {
        const auto isPlain = [](char c) { return c >= ' ' && c <= '~'; };
        return std::all_of(key.begin(), key.end(), isPlain) ? key : toXmlUtf8(toUtf16(key));
    }

    std::size_t m_depth = 0;
    Cost m_cost;
};

std::string serialized(const Node& node) {
    char* text = nullptr;
    std::uint32_t length = 0;
    plist_to_xml(node.get(), &text, &length);
    const Allocated<char> owner(text);
    return text ? std::string(text, length) : std::string();
}

} // namespace

std::optional<std::string> writeXml(const Value& value) {
    const NumericScope scope;
    const Node root = Exporter().node(value);
    if (!root)
        return std::nullopt;
    std::string xml = serialized(root);
    if (!isBoundedXml(xml))
        return std::nullopt;
    return xml;
}

} // namespace quorvi::plist
