// The configuration of one mouse in the device's format: one image of 13232 bytes with a fixed layout.
//
// It is a wire format: offsets, sizes, byte order and reserved bytes are binding. All fields are bytes and
// byte arrays, so no compiler pads or swaps anything. Integers of several bytes are big-endian, except the
// firmware, which is in the host's own order; names are UTF-16 little-endian on every host.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "model/Limits.h"

namespace quorvi {

/// Up to 20 UTF-16 little-endian units, padded with zeros; a name of 20 units has no terminator.
using KyvarName = std::array<std::uint8_t, limits::nameBytes>;

/// Whether the name marks a record slot as unused: its first two bytes are 0xFF.
[[nodiscard]] constexpr bool isUnusedName(const KyvarName& name) {
    return name[0] == 0xFF && name[1] == 0xFF;
}

/// Device-wide settings. There is no flag for independent X and Y: they are independent if the codes differ.
struct SettingsRecord {
    std::uint8_t profileId;   ///< number of the active profile, 1 to 5
    std::uint8_t pollingCode; ///< see PollingRate.h
    std::uint8_t stage;       ///< active sensitivity stage
    std::uint8_t dpiXCode;    ///< see Sensitivity.h
    std::uint8_t dpiYCode;
};

/// A profile's name. In a slot without a profile all its bytes are 0xFF; readers check the first two.
struct ProfileNameEntry {
    std::uint8_t reserved;
    KyvarName name;
};

struct StageEntry {
    std::uint8_t dpiXCode;
    std::uint8_t dpiYCode;
};

/// Four zero bytes if the button is not assigned.
struct ButtonAssignment {
    std::uint8_t button; ///< 1 to 9
    std::uint8_t command;
    std::uint8_t param1;
    std::uint8_t param2;
};

struct ProfileRecord {
    std::uint8_t number; ///< 1 to 5, the slot's number; set in empty slots too
    std::uint8_t ledState;
    std::uint8_t defaultStage; ///< never above the stage count
    std::uint8_t stageCount;   ///< 0 to 5
    std::array<StageEntry, limits::stages> stages;
    std::array<std::uint8_t, 6> reserved;
    std::array<ButtonAssignment, limits::buttons> buttons;
};

/// Header i belongs to body i. An unused slot is zero in both.
struct MacroHeader {
    std::uint8_t macroId;               ///< 0 to 69
    std::array<std::uint8_t, 2> length; ///< big-endian: meaningful bytes of the body, 50 to 178
    std::uint8_t reserved;
};

struct MacroBody {
    KyvarName name;
    std::array<std::uint8_t, 3> delay; ///< big-endian
    std::array<std::uint8_t, 7> reserved;
    std::array<std::uint8_t, limits::stepBytes> steps; ///< see StepCode.h
};

struct ConfigRecord {
    std::array<std::uint8_t, 2> firmware; ///< the host's byte order
    SettingsRecord settings;
    std::array<ProfileNameEntry, limits::profiles> profileNames;
    std::array<ProfileRecord, limits::profiles> profiles;
    std::array<MacroHeader, limits::macroSlots> macroHeaders;
    std::array<MacroBody, limits::macroSlots> macroBodies;
};

static_assert(sizeof(SettingsRecord) == 5);
static_assert(offsetof(SettingsRecord, profileId) == 0);
static_assert(offsetof(SettingsRecord, pollingCode) == 1);
static_assert(offsetof(SettingsRecord, stage) == 2);
static_assert(offsetof(SettingsRecord, dpiXCode) == 3);
static_assert(offsetof(SettingsRecord, dpiYCode) == 4);

static_assert(sizeof(ProfileNameEntry) == 41);
static_assert(offsetof(ProfileNameEntry, reserved) == 0);
static_assert(offsetof(ProfileNameEntry, name) == 1);

static_assert(sizeof(StageEntry) == 2);
static_assert(offsetof(StageEntry, dpiXCode) == 0);
static_assert(offsetof(StageEntry, dpiYCode) == 1);

static_assert(sizeof(ButtonAssignment) == 4);
static_assert(offsetof(ButtonAssignment, button) == 0);
static_assert(offsetof(ButtonAssignment, command) == 1);
static_assert(offsetof(ButtonAssignment, param1) == 2);
static_assert(offsetof(ButtonAssignment, param2) == 3);

static_assert(sizeof(ProfileRecord) == 56);
static_assert(offsetof(ProfileRecord, number) == 0);
static_assert(offsetof(ProfileRecord, ledState) == 1);
static_assert(offsetof(ProfileRecord, defaultStage) == 2);
static_assert(offsetof(ProfileRecord, stageCount) == 3);
static_assert(offsetof(ProfileRecord, stages) == 4);
static_assert(offsetof(ProfileRecord, reserved) == 14);
static_assert(offsetof(ProfileRecord, buttons) == 20);

static_assert(sizeof(MacroHeader) == 4);
static_assert(offsetof(MacroHeader, macroId) == 0);
static_assert(offsetof(MacroHeader, length) == 1);
static_assert(offsetof(MacroHeader, reserved) == 3);

static_assert(sizeof(MacroBody) == 178);
static_assert(offsetof(MacroBody, name) == 0);
static_assert(offsetof(MacroBody, delay) == 40);
static_assert(offsetof(MacroBody, reserved) == 43);
static_assert(offsetof(MacroBody, steps) == 50);

static_assert(sizeof(ConfigRecord) == 13232);
static_assert(offsetof(ConfigRecord, firmware) == 0);
static_assert(offsetof(ConfigRecord, settings) == 2);
static_assert(offsetof(ConfigRecord, profileNames) == 7);
static_assert(offsetof(ConfigRecord, profiles) == 212);
static_assert(offsetof(ConfigRecord, macroHeaders) == 492);
static_assert(offsetof(ConfigRecord, macroBodies) == 772);

} // namespace quorvi
