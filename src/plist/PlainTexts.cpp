#include "plist/PlainTexts.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "base/Unicode.h"

namespace quorvi::plist {

namespace {

/// Far below the number of keys that readPropertyList() refuses.
constexpr std::size_t kMaxTexts = 4096;

constexpr std::string_view kBlanks = " \t\r\n";

constexpr std::array<std::pair<std::string_view, char>, 6> kEntities = {
    {{"&amp;", '&'}, {"&#13;", '\r'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&apos;", '\''}}};

/// The text with its entities replaced; std::nullopt if it has an unknown one.
std::optional<std::string> withoutEntities(std::string_view text) {
    std::string plain;
    while (true) {
        const auto entity = text.find('&');
        plain.append(text.substr(0, entity));
        if (entity == std::string_view::npos)
            return plain;
        text.remove_prefix(entity);
        const auto* const known = std::find_if(kEntities.begin(), kEntities.end(),
            [&](const auto& candidate) { return text.starts_with(candidate.first); });
        if (known == kEntities.end())
            return std::nullopt;
        plain.push_back(known->second);
        text.remove_prefix(known->first.size());
    }
}

class PlainReader {
  public:
    explicit PlainReader(std::string_view xml) : m_rest(xml) {}

    std::optional<Texts> read() {
        Texts texts;
        if (!head())
            return std::nullopt;
        while (!takeTag("</dict>")) {
            auto key = element("<key>", "</key>");
            auto text = key ? element("<string>", "</string>") : std::nullopt;
            if (!text || texts.size() == kMaxTexts)
                return std::nullopt;
            if (!texts.emplace(std::move(*key), std::move(*text)).second)
                return std::nullopt;
        }
        const bool isWhole = takeTag("</plist>") && skipToTag() && m_rest.empty();
        return isWhole ? std::optional(std::move(texts)) : std::nullopt;
    }

  private:
    bool head() {
        return take("<?xml version=\"1.0\" encoding=\"UTF-8\"?>") && documentType() &&
               takeTag("<plist version=\"1.0\">") && takeTag("<dict>");
    }

    /// Skips a document type without internal declarations, if there is one.
    bool documentType() {
        if (!takeTag("<!DOCTYPE "))
            return true;
        const auto end = m_rest.find('>');
        if (end == std::string_view::npos)
            return false;
        const auto type = m_rest.substr(0, end);
        m_rest.remove_prefix(end + 1);
        const bool isQuotedWhole = std::count(type.begin(), type.end(), '"') % 2 == 0;
        return isQuotedWhole && type.find('[') == std::string_view::npos;
    }

    bool take(std::string_view prefix) {
        const bool found = m_rest.starts_with(prefix);
        if (found)
            m_rest.remove_prefix(prefix.size());
        return found;
    }

    bool takeTag(std::string_view tag) { return skipToTag() && take(tag); }

    /// Skips blanks and comments; false for a comment without an end.
    bool skipToTag() {
        constexpr std::string_view end = "-->";
        do {
            m_rest.remove_prefix(std::min(m_rest.find_first_not_of(kBlanks), m_rest.size()));
            if (!take("<!--"))
                return true;
            const auto at = m_rest.find(end);
            if (at == std::string_view::npos)
                return false;
            m_rest.remove_prefix(at + end.size());
        } while (true);
    }

    std::optional<std::u16string> element(std::string_view start, std::string_view end) {
        if (!takeTag(start))
            return std::nullopt;
        const auto text = m_rest.substr(0, m_rest.find('<'));
        m_rest.remove_prefix(text.size());
        const auto isBlank = [](char c) { return kBlanks.find(c) != std::string_view::npos; };
        if (!take(end) || text.empty() || isBlank(text.front()) || isBlank(text.back()))
            return std::nullopt;
        const auto plain = withoutEntities(text);
        return plain ? std::optional(toUtf16(*plain)) : std::nullopt;
    }

    std::string_view m_rest;
};

} // namespace

std::optional<Texts> readPlainTexts(std::span<const std::uint8_t> bytes) {
    const std::string_view xml(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    return xml.find('\0') == std::string_view::npos ? PlainReader(xml).read() : std::nullopt;
}

} // namespace quorvi::plist
