#include "plist/Writer.h"

#include <algorithm>
#include <utility>

#include "base/Unicode.h"
#include "plist/Carried.h"
#include "plist/Limits.h"
#include "plist/Node.h"
#include "plist/XmlText.h"

namespace quorvi::plist {

namespace {

/// libplist's text for one scalar, without the document around it; empty if libplist cannot write it.
std::string libplistText(plist_t node) {
    char* text = nullptr;
    std::uint32_t length = 0;
    plist_to_xml(node, &text, &length);
    const Allocated<char> owner(text);
    std::string_view content(text ? text : "", length);
    if (!content.starts_with(XmlText::kProlog) || !content.ends_with(XmlText::kEpilog))
        return {};
    content.remove_prefix(XmlText::kProlog.size());
    content.remove_suffix(XmlText::kEpilog.size());
    return std::string(content);
}

/// Writes a tree and counts the cost of reading it back, as isBoundedXml does for a finished text. Each
/// function returns false if the value cannot be written or read back.
class Writer {
  public:
    explicit Writer(std::string room) : m_xml(std::move(room)) {}

    // NOLINTNEXTLINE(misc-no-recursion): the depth is bounded, by which a container within itself ends
    bool put(const Value& value) {
        ++m_cost.nodes;
        m_cost.bytes = m_xml.size();
        return m_cost.isBearable() && std::visit([this](const auto& v) { return make(v); }, value.variant());
    }

    std::optional<std::string> finish() && {
        std::string text = std::move(m_xml).finish();
        m_cost.bytes = text.size();
        return m_cost.isBearable() ? std::optional(std::move(text)) : std::nullopt;
    }

  private:
    static bool make(std::monostate) { return false; }

    bool make(bool v) {
        m_xml.line(v ? "<true/>" : "<false/>");
        return true;
    }

    bool make(std::int64_t v) {
        m_xml.integer(v);
        return true;
    }

    bool make(double v) { return putLines(libplistText(Node(plist_new_real(v)).get())); }

    bool make(const std::u16string& v) {
        putText("<string>", toXmlUtf8(v), "</string>");
        return true;
    }

    bool make(const Data& v) {
        m_xml.data(v);
        return true;
    }

    bool make(const CarriedRef& v) {
        if (PLIST_IS_UID(v->node())) { // written as a dictionary of one key
            m_cost.nodes += 2;
            if (m_xml.depth() == kMaxDepth)
                return false;
        }
        return putLines(libplistText(v->node()));
    }

    bool make(const Array& v) {
        return putContainer(
            "<array>", "</array>", "<array/>", v.items(), [this](const Value& item) { return put(item); });
    }

    bool make(const Dictionary& v) {
        m_cost.work += dictionaryWork(v.size());
        if (!m_cost.isBearable())
            return false;
        const auto hasPlainKey = [](const Entry& entry) { return isPlain(entry.key); };
        if (std::all_of(v.entries().begin(), v.entries().end(), hasPlainKey))
            return putDictionary(v);
        return putDictionary(withWritableKeys(v));
    }

    bool putDictionary(const Dictionary& v) {
        return putContainer("<dict>", "</dict>", "<dict/>", v.entries(), [this](const Entry& entry) {
            ++m_cost.nodes;
            putText("<key>", entry.key, "</key>");
            return put(entry.value);
        });
    }

    template <typename Elements, typename Put>
    bool putContainer(std::string_view startTag, std::string_view endTag, std::string_view emptyTag,
        const Elements& elements, Put putElement) {
        if (m_xml.depth() == kMaxDepth)
            return false;
        if (elements.empty()) {
            m_xml.line(emptyTag);
            return true;
        }
        m_xml.open(startTag);
        const bool complete = std::all_of(elements.begin(), elements.end(), putElement);
        m_xml.close(endTag);
        return complete;
    }

    void putText(std::string_view startTag, std::string_view utf8, std::string_view endTag) {
        const auto [entities, length] = m_xml.escaped(startTag, utf8, endTag);
        m_cost.work += entityWork(entities, length);
    }

    bool putLines(std::string_view text) {
        const bool written = !text.empty();
        while (!text.empty()) {
            const auto end = text.find('\n');
            m_xml.line(text.substr(0, end));
            text.remove_prefix(end + 1);
        }
        return written;
    }

    static bool isPlain(std::string_view key) {
        return std::all_of(key.begin(), key.end(), [](char c) { return c >= ' ' && c <= '~'; });
    }

    /// Keys are UTF-8 by contract, but they may come from anywhere. If two are equal after conversion, the
    /// later one counts.
    static Dictionary withWritableKeys(const Dictionary& v) {
        auto result = Dictionary::create();
        result.reserve(v.size());
        for (const auto& entry : v.entries())
            result.set(toXmlUtf8(toUtf16(entry.key)), entry.value);
        return result;
    }

    XmlText m_xml;
    Cost m_cost;
};

} // namespace

std::optional<std::string> writeXml(const Value& value, std::string room) {
    const NumericScope scope;
    Writer writer(std::move(room));
    return writer.put(value) ? std::move(writer).finish() : std::nullopt;
}

} // namespace quorvi::plist
