#include "plist/XmlBounds.h"

#include <algorithm>
#include <array>
#include <vector>

namespace quorvi::plist {

namespace {

constexpr std::array<std::string_view, 8> kLeaves = {
    "key", "string", "integer", "real", "true", "false", "data", "date"};

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}
bool endsName(char c) {
    return c == '>' || c == '<' || isBlank(c);
}

/// Splits the text into exactly the tokens of libplist's reader, including quotes, so that the two cannot
/// differ on what is a tag and what is inside a comment. Refuses everything that stops that reader or does
/// not belong in a property list.
class Scanner {
  public:
    Scanner(std::string_view xml, const Bounds& bounds) : m_rest(xml), m_bounds(bounds) {}

    bool run() {
        for (skipBlanks(); !m_rest.empty(); skipBlanks()) {
            if (!take("<") || !token() || !m_cost.isBearable(m_bounds))
                return false;
        }
        return m_rootDone && !m_inPlist && m_open.empty();
    }

  private:
    /// An open container: its tag, and the number of keys in it so far.
    struct Container {
        std::string_view tag;
        std::uint64_t keys = 0;
    };

    bool take(std::string_view prefix) {
        const bool found = m_rest.starts_with(prefix);
        if (found)
            m_rest.remove_prefix(prefix.size());
        return found;
    }

    void skipBlanks() {
        m_rest.remove_prefix(lengthUntil([](char c) { return !isBlank(c); }));
    }

    /// The number of characters before the first one of the kind.
    template <typename IsOfKind>
    std::size_t lengthUntil(IsOfKind isOfKind) const {
        const auto end = std::find_if(m_rest.begin(), m_rest.end(), isOfKind);
        return static_cast<std::size_t>(end - m_rest.begin());
    }

    bool skipPast(std::string_view end) {
        const auto at = m_rest.find(end);
        if (at == std::string_view::npos)
            return false;
        m_rest.remove_prefix(at + end.size());
        return true;
    }

    /// As skipPast, but not within double quotes.
    bool skipUnquotedPast(std::string_view end) {
        while (!m_rest.empty()) {
            if (take(end))
                return true;
            if (!skipOne())
                return false;
        }
        return false;
    }

    /// Skips one character or one quoted text.
    bool skipOne() {
        const bool quoted = m_rest.front() == '"';
        m_rest.remove_prefix(1);
        return !quoted || skipPast("\"");
    }

    bool token() {
        if (m_rest.starts_with('?'))
            return skipUnquotedPast("?>");
        if (!m_rest.starts_with('!'))
            return tag();
        if (take("!--"))
            return skipPast("-->");
        return take("!DOCTYPE") && documentType();
    }

    bool documentType() {
        while (!m_rest.empty()) {
            if (take(">"))
                return true;
            if (take("["))
                return skipUnquotedPast("]>");
            if (!skipOne())
                return false;
        }
        return false;
    }

    bool tag() {
        const std::size_t nameEnd = lengthUntil(endsName);
        const std::string_view whole = m_rest;
        std::string_view name = m_rest.substr(0, nameEnd);
        m_rest.remove_prefix(nameEnd);
        while (!m_rest.empty() && m_rest.front() != '>' && m_rest.front() != '<') {
            if (!skipOne())
                return false;
        }
        const std::size_t length = whole.size() - m_rest.size();
        if (length == 0 || !take(">"))
            return false;
        const bool empty = whole[length - 1] == '/';
        if (empty && name.size() == length)
            name.remove_suffix(1);
        return name.starts_with('/') ? endTag(name.substr(1)) : startTag(name, empty);
    }

    bool startTag(std::string_view name, bool empty) {
        if (name == "plist") {
            const bool first = !m_rootDone && !m_inPlist && m_open.empty() && !empty;
            m_inPlist = true;
            return first;
        }
        if (m_rootDone)
            return false;
        ++m_cost.nodes;
        if (name == "dict" || name == "array") {
            if (m_open.size() == kMaxDepth)
                return false;
            if (!empty)
                m_open.push_back({name});
        } else if (std::find(kLeaves.begin(), kLeaves.end(), name) == kLeaves.end()) {
            return false;
        } else {
            if (name == "key" && !m_open.empty())
                ++m_open.back().keys;
            if (!empty && !text(name))
                return false;
        }
        m_rootDone = m_open.empty();
        return true;
    }

    bool endTag(std::string_view name) {
        if (name == "plist") {
            const bool matches = m_rootDone && m_inPlist;
            m_inPlist = false;
            return matches;
        }
        if (m_open.empty() || m_open.back().tag != name)
            return false;
        m_cost.work += dictionaryWork(m_open.back().keys);
        m_open.pop_back();
        m_rootDone = m_open.empty();
        return true;
    }

    /// The text of a value up to and including its end tag; comments and CDATA sections are part of it.
    bool text(std::string_view name) {
        const std::string_view whole = m_rest;
        while (skipPast("<")) {
            if (take("!--")) {
                if (!skipPast("-->"))
                    return false;
            } else if (take("![CDATA[")) {
                if (!skipPast("]]>"))
                    return false;
            } else {
                countEntities(whole.substr(0, whole.size() - m_rest.size() - 1));
                if (!take("/") || !take(name))
                    return false;
                skipBlanks();
                return take(">");
            }
        }
        return false;
    }

    void countEntities(std::string_view whole) {
        const auto entities = static_cast<std::uint64_t>(std::count(whole.begin(), whole.end(), '&'));
        m_cost.work += entityWork(entities, whole.size());
    }

    std::string_view m_rest;
    Bounds m_bounds;
    std::vector<Container> m_open;
    Cost m_cost;
    bool m_inPlist = false;
    bool m_rootDone = false;
};

} // namespace

bool isBoundedXml(std::string_view xml, const Bounds& bounds) {
    // XML has no zero bytes, and libplist's reader ends only some texts at one.
    return xml.size() <= bounds.bytes && xml.find('\0') == std::string_view::npos &&
           Scanner(xml, bounds).run();
}

} // namespace quorvi::plist
