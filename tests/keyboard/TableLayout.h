// A keyboard layout given as a table of keystrokes and characters.
#pragma once

#include <map>
#include <tuple>

#include "keyboard/KeyboardLayout.h"

namespace quorvi::test {

/// A keystroke that is not in the table cannot be translated.
class TableLayout : public KeyboardLayout {
  public:
    TableLayout& types(
        std::uint8_t key, std::uint8_t modifiers, char16_t character, std::uint32_t deadKeyState = 0) {
        m_table[{key, modifiers, deadKeyState}] = {character, 0};
        return *this;
    }
    TableLayout& typesNothing(std::uint8_t key, std::uint8_t modifiers, std::uint32_t nextDeadKeyState = 0) {
        m_table[{key, modifiers, 0}] = {std::nullopt, nextDeadKeyState};
        return *this;
    }

    [[nodiscard]] KeyTranslation translate(
        std::uint8_t key, std::uint8_t modifiers, std::uint32_t& deadKeyState) const override {
        const auto found = m_table.find({key, modifiers, deadKeyState});
        if (found == m_table.end())
            return {};
        deadKeyState = found->second.nextDeadKeyState;
        return {true, found->second.character};
    }

  private:
    struct Output {
        std::optional<char16_t> character;
        std::uint32_t nextDeadKeyState = 0;
    };
    std::map<std::tuple<std::uint8_t, std::uint8_t, std::uint32_t>, Output> m_table;
};

} // namespace quorvi::test
