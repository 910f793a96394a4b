// The engine's settings besides the record: properties of the mouse and of its user's keyboard.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include <linux/input-event-codes.h>

#include "model/Limits.h"

namespace quorvi::engine {

/// Inputs 1 to 7 are buttons; 8 and 9 are the wheel, away from its user and back.
inline constexpr std::size_t buttonInputs = 7;

/// The inputs' codes of the Linux input layer (EV_KEY), input 1 first.
using ButtonCodes = std::array<std::uint16_t, buttonInputs>;

/// The codes of most mice.
inline constexpr ButtonCodes usualButtonCodes{
    BTN_LEFT, BTN_RIGHT, BTN_MIDDLE, BTN_SIDE, BTN_EXTRA, BTN_FORWARD, BTN_BACK};

/// The key of the Linux input layer that types the letter, a to z, while Control, Alt or Super is held.
using LetterKeys = std::array<std::uint16_t, 26>;

inline constexpr LetterKeys usLetterKeys{KEY_A, KEY_B, KEY_C, KEY_D, KEY_E, KEY_F, KEY_G, KEY_H, KEY_I, KEY_J,
    KEY_K, KEY_L, KEY_M, KEY_N, KEY_O, KEY_P, KEY_Q, KEY_R, KEY_S, KEY_T, KEY_U, KEY_V, KEY_W, KEY_X, KEY_Y,
    KEY_Z};

inline constexpr std::uint16_t lowestSensorDpi = 100;
inline constexpr std::uint16_t highestSensorDpi = 64000;

/// Any value is accepted: one out of range counts as the default.
struct Options {
    /// Counts that the mouse reports for an inch, 100 to 64000.
    std::uint16_t sensorDpi = 1600;

    /// The acceleration factor of each profile slot, 0.1 to 2.0; 1 is off. It is the settings' "acceleration"
    /// where "enableaccel" is set.
    std::array<float, limits::profiles> acceleration{1, 1, 1, 1, 1};

    /// The code of each input; 0 for an input that the mouse does not have. If two inputs have the same code,
    /// the first one wins. A button or key that is not an input passes unchanged.
    ButtonCodes buttonCodes = usualButtonCodes;

    /// 0, or a key that the keyboard does not offer (Devices.h): the US layout's key.
    LetterKeys letterKeys = usLetterKeys;

    /// Keeps macros from starting while the panel records one. Running macros finish.
    bool macrosAreQuiet = false;
};

} // namespace quorvi::engine
