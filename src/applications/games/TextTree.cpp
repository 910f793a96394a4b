#include "applications/games/TextTree.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include "base/Unicode.h"

namespace quorvi::games {

namespace {

constexpr int kDeepest = 32;
constexpr int kMostValues = 100'000;
constexpr std::string_view kBlanks = " \t\r\n";

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// The common reader of both forms.
class Reader {
  public:
    explicit Reader(std::string_view text) : m_rest(text) {}

  protected:
    void skipBlanks() { m_rest.remove_prefix(std::min(m_rest.find_first_not_of(kBlanks), m_rest.size())); }
    [[nodiscard]] bool nextIs(char c) const { return m_rest.starts_with(c); }
    bool take(char c) {
        if (!nextIs(c))
            return false;
        m_rest.remove_prefix(1);
        return true;
    }
    [[nodiscard]] bool atEnd() const { return m_rest.empty(); }
    char takeAny() {
        const char c = m_rest.front();
        m_rest.remove_prefix(1);
        return c;
    }
    /// Removes and returns the text up to the first of these characters.
    std::string takeUntil(std::string_view ends) {
        const auto size = std::min(m_rest.find_first_of(ends), m_rest.size());
        std::string taken(m_rest.substr(0, size));
        m_rest.remove_prefix(size);
        return taken;
    }
    void skipLine() { m_rest.remove_prefix(std::min(m_rest.find('\n'), m_rest.size())); }
    [[nodiscard]] bool startsWith(std::string_view text) const { return m_rest.starts_with(text); }
    /// Returns false if there have been too many.
    bool countValue() { return ++m_values <= kMostValues; }

    std::string_view m_rest;

  private:
    int m_values = 0;
};

class KeyValuesReader : Reader {
  public:
    using Reader::Reader;

    bool readMembers(TextTree& tree, int depth) {
        for (skip(); !atEnd() && !nextIs('}'); skip()) {
            std::string name;
            if (!countValue() || !readText(name))
                return false;
            auto& member = tree.members.emplace_back(std::move(name), TextTree()).second;
            skip();
            if (!take('{')) {
                if (!readText(member.text))
                    return false;
            } else if (depth == kDeepest || !readMembers(member, depth + 1) || !take('}')) {
                return false;
            }
        }
        return true;
    }

  private:
    void skip() {
        for (skipBlanks(); startsWith("//"); skipBlanks())
            skipLine();
    }
    bool readText(std::string& text) {
        if (!take('"')) {
            text = takeUntil(" \t\r\n{}\"");
            return !text.empty();
        }
        while (!atEnd() && !nextIs('"')) {
            char c = takeAny();
            if (c == '\\' && !atEnd()) {
                c = takeAny();
                c = c == 'n' ? '\n' : c == 't' ? '\t' : c;
            }
            text.push_back(c);
        }
        return take('"');
    }
};

class JsonReader : Reader {
  public:
    using Reader::Reader;

    bool readValue(TextTree& tree, int depth) {
        skipBlanks();
        if (!countValue() || depth == kDeepest)
            return false;
        if (take('{'))
            return readMembers(tree, depth, '}');
        if (take('['))
            return readMembers(tree, depth, ']');
        if (nextIs('"'))
            return readText(tree.text);
        tree.text = takeUntil(" \t\r\n,]}");
        if (tree.text.empty())
            return false;
        if (tree.text == "null")
            tree.text.clear();
        return true;
    }

  private:
    bool readMembers(TextTree& tree, int depth, char end) {
        for (skipBlanks(); !take(end); skipBlanks()) {
            if (!tree.members.empty() && !take(','))
                return false;
            skipBlanks();
            auto& [name, value] = tree.members.emplace_back();
            if (end == '}' && !readName(name))
                return false;
            if (!readValue(value, depth + 1))
                return false;
        }
        return true;
    }
    bool readName(std::string& name) {
        if (!readText(name))
            return false;
        skipBlanks();
        return take(':');
    }
    bool readText(std::string& text) {
        if (!take('"'))
            return false;
        std::u16string units; // of a pair like "\uD83D\uDE00"
        const auto finishUnits = [&] {
            text += toUtf8(units);
            units.clear();
        };
        while (!atEnd() && !nextIs('"')) {
            const char c = takeAny();
            char16_t unit = 0;
            if (c == '\\' && take('u')) {
                if (!readUnit(unit))
                    return false;
                units.push_back(unit);
                continue;
            }
            finishUnits();
            text.push_back(c == '\\' && !atEnd() ? escaped(takeAny()) : c);
        }
        finishUnits();
        return take('"');
    }
    bool readUnit(char16_t& unit) {
        constexpr std::size_t digits = 4;
        std::uint16_t number = 0;
        if (m_rest.size() < digits ||
            std::from_chars(m_rest.data(), m_rest.data() + digits, number, 16).ptr != m_rest.data() + digits)
            return false;
        m_rest.remove_prefix(digits);
        unit = number;
        return true;
    }
    static char escaped(char c) {
        switch (c) {
        case 'n':
            return '\n';
        case 't':
            return '\t';
        case 'r':
            return '\r';
        case 'b':
            return '\b';
        case 'f':
            return '\f';
        default:
            return c;
        }
    }
};

} // namespace

TextTree::TextTree() = default;
TextTree::TextTree(const TextTree& other) = default;
TextTree::TextTree(TextTree&& other) noexcept = default;
TextTree& TextTree::operator=(const TextTree& other) = default;
TextTree& TextTree::operator=(TextTree&& other) noexcept = default;
TextTree::~TextTree() = default;

const TextTree& TextTree::operator[](std::string_view name) const& {
    static const TextTree nothing;
    const auto found = std::ranges::find_if(members,
        [&](const auto& member) { return std::ranges::equal(member.first, name, {}, lower, lower); });
    return found == members.end() ? nothing : found->second;
}

TextTree readKeyValues(std::string_view text) {
    TextTree tree;
    (void)KeyValuesReader(text).readMembers(tree, 0);
    return tree;
}

TextTree readJson(std::string_view text) {
    TextTree tree;
    (void)JsonReader(text).readValue(tree, 0);
    return tree;
}

} // namespace quorvi::games
