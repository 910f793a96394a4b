// The expected name of every printing key of a layout, from libxkbcommon directly and from the C library.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <memory>

#include <iconv.h>
#include <xkbcommon/xkbcommon.h>

#include "keyboard/KeyNames.h"

namespace quorvi::test {

struct PrintingKey {
    std::uint8_t virtualKey;
    xkb_keycode_t xkbKey;
};

// The main block from the key left of 1 to the one right of the period, the ISO and the Japanese keys, space.
inline constexpr PrintingKey mainKeys[] = {{0x32, 49}, {0x12, 10}, {0x13, 11}, {0x14, 12}, {0x15, 13},
    {0x17, 14}, {0x16, 15}, {0x1A, 16}, {0x1C, 17}, {0x19, 18}, {0x1D, 19}, {0x1B, 20}, {0x18, 21},
    {0x0C, 24}, {0x0D, 25}, {0x0E, 26}, {0x0F, 27}, {0x11, 28}, {0x10, 29}, {0x20, 30}, {0x22, 31},
    {0x1F, 32}, {0x23, 33}, {0x21, 34}, {0x1E, 35}, {0x2A, 51}, {0x00, 38}, {0x01, 39}, {0x02, 40},
    {0x03, 41}, {0x05, 42}, {0x04, 43}, {0x26, 44}, {0x28, 45}, {0x25, 46}, {0x29, 47}, {0x27, 48},
    {0x0A, 94}, {0x06, 52}, {0x07, 53}, {0x08, 54}, {0x09, 55}, {0x0B, 56}, {0x2D, 57}, {0x2E, 58},
    {0x2B, 59}, {0x2F, 60}, {0x2C, 61}, {0x5D, 132}, {0x5E, 97}, {0x31, 65}};

inline constexpr PrintingKey keypadKeys[] = {{0x4B, 106}, {0x43, 63}, {0x4E, 82}, {0x59, 79}, {0x5B, 80},
    {0x5C, 81}, {0x45, 86}, {0x56, 83}, {0x57, 84}, {0x58, 85}, {0x53, 87}, {0x54, 88}, {0x55, 89},
    {0x52, 90}, {0x41, 91}, {0x51, 125}, {0x5F, 129}};

inline const std::map<xkb_keysym_t, std::uint8_t> deadKeys{{XKB_KEY_dead_grave, 0x60},
    {XKB_KEY_dead_acute, 0xAB}, {XKB_KEY_dead_circumflex, 0x5E}, {XKB_KEY_dead_tilde, 0x7E},
    {XKB_KEY_dead_diaeresis, 0xAC}};

/// The C library's Mac Roman, as an independent witness.
inline std::uint8_t macRomanOfCLibrary(std::uint32_t character) {
    const iconv_t converter = iconv_open("MACINTOSH", "UTF-32LE");
    EXPECT_NE(converter, reinterpret_cast<iconv_t>(-1));
    char in[4];
    for (int i = 0; i < 4; ++i)
        in[i] = static_cast<char>(character >> (8 * i));
    char out = 0;
    char* inPosition = in;
    char* outPosition = &out;
    std::size_t inLeft = sizeof in;
    std::size_t outLeft = 1;
    const bool converted =
        iconv(converter, &inPosition, &inLeft, &outPosition, &outLeft) != static_cast<std::size_t>(-1);
    iconv_close(converter);
    return converted ? static_cast<std::uint8_t>(out) : std::uint8_t{'?'};
}

/// A layout by its names.
struct LayoutCase {
    const char* layout;
    const char* variant;
    bool hasLatinLetters; ///< without them its keys are named as those of the US layout
};

inline constexpr LayoutCase layoutCases[] = {{"us", "", true}, {"de", "", true}, {"fr", "", true},
    {"es", "", true}, {"gb", "", true}, {"se", "", true}, {"us", "dvorak", true}, {"jp", "", true},
    {"tr", "", true}, {"ru", "", false}, {"gr", "", false}, {"il", "", false}, {"ara", "", false},
    {"ua", "", false}};

/// The level that a key has by itself, or under Num Lock (Mod2 in every installed layout).
class Witness {
  public:
    explicit Witness(const LayoutCase& layoutCase) {
        const xkb_rule_names names{"evdev", "pc105", layoutCase.hasLatinLetters ? layoutCase.layout : "us",
            layoutCase.hasLatinLetters ? layoutCase.variant : "", ""};
        m_keymap.reset(xkb_keymap_new_from_names(m_context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
        m_state.reset(xkb_state_new(m_keymap.get()));
    }

    std::uint8_t character(xkb_keycode_t key, bool numLock) const {
        const xkb_mod_mask_t locked = numLock ? 1U << xkb_keymap_mod_get_index(m_keymap.get(), "Mod2") : 0;
        xkb_state_update_mask(m_state.get(), 0, 0, locked, 0, 0, 0);
        const xkb_keysym_t symbol = xkb_state_key_get_one_sym(m_state.get(), key);
        const auto dead = deadKeys.find(symbol);
        if (dead != deadKeys.end())
            return dead->second;
        const std::uint32_t unicode = xkb_state_key_get_utf32(m_state.get(), key);
        return unicode == 0 ? std::uint8_t{0} : macRomanOfCLibrary(unicode);
    }

  private:
    std::unique_ptr<xkb_context, decltype(&xkb_context_unref)> m_context{
        xkb_context_new(XKB_CONTEXT_NO_FLAGS), xkb_context_unref};
    std::unique_ptr<xkb_keymap, decltype(&xkb_keymap_unref)> m_keymap{nullptr, xkb_keymap_unref};
    std::unique_ptr<xkb_state, decltype(&xkb_state_unref)> m_state{nullptr, xkb_state_unref};
};

inline void expectMainKeysAreNamedBy(const Witness& witness) {
    int printing = 0;
    for (const PrintingKey& key : mainKeys) {
        const std::uint8_t expected = witness.character(key.xkbKey, false);
        EXPECT_EQ(GetKeyChar(key.virtualKey), expected) << "key " << int{key.virtualKey};
        printing += expected != 0 ? 1 : 0;
    }
    EXPECT_GE(printing, 47); // so that not everything is nothing on both sides
    EXPECT_EQ(GetKeyName(0x31), u"space");
}

inline void expectKeypadKeysAreNamedBy(const Witness& witness) {
    for (const PrintingKey& key : keypadKeys)
        EXPECT_EQ(GetKeyChar(key.virtualKey), witness.character(key.xkbKey, true)) << int{key.virtualKey};
    EXPECT_EQ(GetKeyName(0x57), u"5");
}

} // namespace quorvi::test
