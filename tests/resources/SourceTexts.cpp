#include "resources/SourceTexts.h"

#include <algorithm>
#include <cctype>

namespace quorvi::test {

namespace {

bool belongsToName(char character) {
    return std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '_';
}

char unescaped(char character) {
    switch (character) {
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    case 't':
        return '\t';
    default:
        return character;
    }
}

class Tokens {
  public:
    explicit Tokens(std::string_view source) : m_rest(source) {
        while (!m_rest.empty())
            readToken();
    }
    std::vector<Token> take() { return std::move(m_tokens); }

  private:
    void readToken() {
        const char first = m_rest.front();
        if (m_rest.starts_with("//"))
            m_rest.remove_prefix(std::min(m_rest.find('\n'), m_rest.size()));
        else if (m_rest.starts_with("/*"))
            m_rest.remove_prefix(std::min(m_rest.find("*/", 2), m_rest.size() - 2) + 2);
        else if (std::isspace(static_cast<unsigned char>(first)) != 0)
            m_rest.remove_prefix(1);
        else if (first == '"')
            addLiteral(quoted());
        else if (first == '\'')
            m_tokens.push_back({Token::Kind::Other, quoted()});
        else if (std::isdigit(static_cast<unsigned char>(first)) != 0)
            m_tokens.push_back({Token::Kind::Other, number()});
        else if (belongsToName(first))
            m_tokens.push_back({Token::Kind::Name, name()});
        else {
            m_tokens.push_back({Token::Kind::Other, std::string(1, first)});
            m_rest.remove_prefix(1);
        }
    }

    std::string quoted() {
        const char quote = m_rest.front();
        m_rest.remove_prefix(1);
        std::string text;
        while (!m_rest.empty() && m_rest.front() != quote) {
            const bool isEscaped = m_rest.front() == '\\' && m_rest.size() > 1;
            text += isEscaped ? unescaped(m_rest[1]) : m_rest.front();
            m_rest.remove_prefix(isEscaped ? 2 : 1);
        }
        m_rest.remove_prefix(std::min<std::size_t>(1, m_rest.size()));
        return text;
    }

    // The quotes within 10'000 are no characters.
    std::string number() {
        std::size_t length = 0;
        while (length < m_rest.size() && (belongsToName(m_rest[length]) || m_rest[length] == '\''))
            ++length;
        return taken(length);
    }

    std::string name() {
        std::size_t length = 0;
        while (length < m_rest.size() && belongsToName(m_rest[length]))
            ++length;
        return taken(length);
    }

    std::string taken(std::size_t length) {
        std::string text(m_rest.substr(0, length));
        m_rest.remove_prefix(length);
        return text;
    }

    void addLiteral(std::string text) {
        const bool hasPrefix =
            !m_tokens.empty() && (m_tokens.back().text == "u" || m_tokens.back().text == "u8");
        const bool isUtf16 = hasPrefix && m_tokens.back().text == "u";
        if (hasPrefix)
            m_tokens.pop_back();
        if (!m_tokens.empty() && m_tokens.back().kind == Token::Kind::Literal)
            m_tokens.back().text += text;
        else
            m_tokens.push_back({Token::Kind::Literal, std::move(text), isUtf16});
    }

    std::string_view m_rest;
    std::vector<Token> m_tokens;
};

bool isOneOf(const Token& token, std::string_view characters) {
    return token.kind == Token::Kind::Other && token.text.size() == 1 &&
           characters.find(token.text.front()) != std::string_view::npos;
}

} // namespace

std::vector<Token> tokensOf(std::string_view source) {
    return Tokens(source).take();
}

std::vector<Literal> literalsIn(std::string_view source) {
    std::vector<Literal> literals;
    for (Token& token : Tokens(source).take())
        if (token.kind == Token::Kind::Literal)
            literals.push_back({token.isUtf16, std::move(token.text)});
    return literals;
}

std::vector<Literal> literalsGivenTo(
    const std::set<std::string, std::less<>>& names, std::string_view source) {
    std::vector<Literal> literals;
    int depth = 0; // within the name's parentheses
    bool isNamed = false;
    for (Token& token : Tokens(source).take()) {
        if (isOneOf(token, "({"))
            depth += depth > 0 || isNamed ? 1 : 0;
        else if (isOneOf(token, ")}"))
            depth -= depth > 0 ? 1 : 0;
        else if (token.kind == Token::Kind::Literal && depth > 0)
            literals.push_back({token.isUtf16, std::move(token.text)});
        isNamed = token.kind == Token::Kind::Name && names.contains(token.text);
    }
    return literals;
}

} // namespace quorvi::test
