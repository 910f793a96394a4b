#include "resources/AddedTexts.h"

#include <algorithm>
#include <array>

#include "resources/SourceTexts.h"

namespace quorvi::test {

namespace {

// Functions that return a text in the user's language.
constexpr std::array<std::string_view, 10> kLookups{"filledPattern", "filledText", "interfaceText",
    "joinedText", "localized", "locString", "lookup", "m_text", "text", "textWithName"};

class AddedTexts {
  public:
    explicit AddedTexts(std::string_view source) : m_tokens(tokensOf(source)) {}

    std::vector<std::string> addedTexts() {
        for (std::size_t at = 0; at < m_tokens.size(); ++at) {
            if (isLookup(at)) {
                if (isAdded(startOfChain(at), closing(at + 1)) || isInOwnPattern(at))
                    add(at);
                else
                    rememberVariable(at);
            }
        }
        for (const Variable& variable : m_variables)
            for (std::size_t at = variable.from; at < variable.to; ++at)
                if (isName(at) && m_tokens[at].text == variable.name && !is(at - 1, '.') && isAdded(at, at))
                    add(at);
        return m_found;
    }

  private:
    struct Variable {
        std::string name;
        std::size_t from;
        std::size_t to; ///< the end of the block that declares it
    };

    [[nodiscard]] bool is(std::size_t at, char sign) const {
        return at < m_tokens.size() && m_tokens[at].kind == Token::Kind::Other &&
               m_tokens[at].text.size() == 1 && m_tokens[at].text.front() == sign;
    }
    [[nodiscard]] bool isName(std::size_t at) const {
        return at < m_tokens.size() && m_tokens[at].kind == Token::Kind::Name;
    }
    [[nodiscard]] bool isLookup(std::size_t at) const {
        return isName(at) && is(at + 1, '(') &&
               std::ranges::find(kLookups, m_tokens[at].text) != kLookups.end();
    }

    /// The parenthesis that closes the one there.
    [[nodiscard]] std::size_t closing(std::size_t at) const {
        for (int depth = 0; at < m_tokens.size(); ++at) {
            depth += is(at, '(') ? 1 : is(at, ')') ? -1 : 0;
            if (depth == 0)
                break;
        }
        return at;
    }

    /// The "m_context" of m_context.text and so on.
    [[nodiscard]] std::size_t startOfChain(std::size_t at) const {
        while (at >= 2 && is(at - 1, '.') && isName(at - 2))
            at -= 2;
        return at;
    }

    [[nodiscard]] bool isAdded(std::size_t first, std::size_t last) const {
        const bool isWhole = !is(last + 1, '.') && !is(last + 1, '(') && !is(last + 1, '[');
        const bool adds = first > 0 && is(first - 1, '+');
        const bool addsTo = first > 1 && is(first - 1, '=') && is(first - 2, '+');
        const bool isAddedTo = is(last + 1, '+') && !is(last + 2, '+');
        return (isWhole && (adds || addsTo)) || isAddedTo;
    }

    /// Whether it stands in the parentheses of QStringLiteral("%1 …").arg(…).
    [[nodiscard]] bool isInOwnPattern(std::size_t lookup) const {
        for (std::size_t at = lookup; at > 4 && !is(at, ';'); --at)
            if (is(at, '(') && isName(at - 1) && m_tokens[at - 1].text == "arg" && is(at - 3, ')') &&
                m_tokens[at - 4].kind == Token::Kind::Literal && closing(at) > lookup)
                return true;
        return false;
    }

    /// The name in "name = text(…)", also where the text is one of two.
    void rememberVariable(std::size_t lookup) {
        int depth = 0;
        for (std::size_t at = lookup; at > 1; --at) {
            depth += is(at, ')') ? 1 : is(at, '(') ? -1 : 0;
            if (depth < 0 || is(at, ';') || is(at, '{') || is(at, '}'))
                return;
            if (depth == 0 && is(at, '=') && isName(at - 1))
                return m_variables.push_back({m_tokens[at - 1].text, at, endOfBlock(at)});
        }
    }

    [[nodiscard]] std::size_t endOfBlock(std::size_t at) const {
        for (int depth = 0; at < m_tokens.size() && depth >= 0; ++at)
            depth += is(at, '{') ? 1 : is(at, '}') ? -1 : 0;
        return at;
    }

    void add(std::size_t at) {
        const bool hasLiteral =
            is(at + 1, '(') && at + 2 < m_tokens.size() && m_tokens[at + 2].kind == Token::Kind::Literal;
        m_found.push_back(m_tokens[at].text + (hasLiteral ? " " + m_tokens[at + 2].text : ""));
    }

    std::vector<Token> m_tokens;
    std::vector<Variable> m_variables;
    std::vector<std::string> m_found;
};

} // namespace

std::vector<std::string> addedTextsIn(std::string_view source) {
    return AddedTexts(source).addedTexts();
}

} // namespace quorvi::test
