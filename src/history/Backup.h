// Settings as one file, ".quorviSettings": everything, or a single profile with the macros that it runs.
//
// The file is a property list with three keys: "format" is the number of the format, "contents" is the kind
// of backup, and "quorvi" holds a tree as in a settings file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "plist/Value.h"

namespace quorvi {

/// The extension of the file's name, with its dot.
inline constexpr const char* kBackupExtension = ".quorviSettings";
/// Larger files are neither read nor written. A full configuration has some 60 KB and 2,000 values.
inline constexpr std::uint64_t kBackupBytes = std::uint64_t{4} << 20U;
inline constexpr std::uint64_t kBackupValues = std::uint64_t{1} << 16U; ///< including keys

enum class BackupContents : std::uint8_t {
    everything, ///< for restoreEverything()
    oneProfile, ///< for addProfile(): the one profile in the tree's "profiles", and the macros that it runs
};

struct Backup {
    plist::Dictionary tree; ///< shares no storage with its source
    BackupContents contents = BackupContents::everything;

    explicit operator bool() const { return static_cast<bool>(tree); }
};

/// A backup of the whole tree. Its tree is nil if the given one is nil or cannot be held in a property list.
[[nodiscard]] Backup backupOf(const plist::Dictionary& tree);

/// A backup of the profile at the index, from 0, with the macros that its inputs run. Its tree is nil if
/// there is no such profile.
[[nodiscard]] Backup backupOfProfile(const plist::Dictionary& tree, std::size_t profile);

/// Whether the written file could be read as a backup: it holds valid settings with at least one complete
/// profile.
[[nodiscard]] bool canBeRestored(const Backup& backup);

/// The bytes of the file; std::nullopt without a tree, or beyond kBackupBytes or kBackupValues.
[[nodiscard]] std::optional<std::string> backupBytes(const Backup& backup);

/// Writes the file like writeItemFile: atomically, and not through another user's link in a folder that
/// everybody may write to. Returns invalid_argument if backupBytes() returns std::nullopt.
[[nodiscard]] std::error_code writeBackup(const Backup& backup, const std::filesystem::path& path);

/// Why a backup cannot be read from a file.
enum class BackupFault : std::uint8_t {
    none,
    noSuchFile,
    notReadable, ///< not permitted, or not a regular file
    tooLarge,    ///< beyond kBackupBytes (then nothing is read) or kBackupValues
    damaged,     ///< not a complete property list
    newerFormat, ///< written by a later version
    noSettings,  ///< a property list without valid settings: not a backup, or one without a complete profile
};

struct ReadBackup {
    Backup backup; ///< its tree is nil if there is a fault
    BackupFault fault = BackupFault::none;

    explicit operator bool() const { return static_cast<bool>(backup); }
};

/// Reads the backup in the file. Never blocks: a folder, a FIFO or a device is not read.
[[nodiscard]] ReadBackup readBackup(const std::filesystem::path& path);

/// Reads a backup from a file's bytes; the fault is never noSuchFile or notReadable.
[[nodiscard]] ReadBackup backupIn(const plist::Data& bytes);

/// An item of a backup that was not restored, and why.
struct LeftOut {
    enum class What : std::uint8_t {
        damagedProfile,   ///< KyvarValidateProfile rejects it
        profileBeyond,    ///< beyond limits::profiles
        damagedMacro,     ///< without name or steps
        macroOfManySteps, ///< more than limits::macroSteps
        macroBeyond,      ///< beyond limits::macros, or without a free identifier
        inputsMacro,      ///< the input's macro is missing, so the input does nothing now
        inputsProfile,    ///< the same for the profile that it switched to
    };
    What what = What::damagedProfile;
    std::u16string name;    ///< of the profile or macro, of the input's profile; may be empty
    std::size_t number = 0; ///< its number in the backup's list, from 1
    int input = 0;          ///< of an input, 1 to 9
    bool operator==(const LeftOut&) const = default;
};

/// Replaces the live tree with the backup's content, in place (see bringTo), as far as it is complete and
/// within the limits, and cleans it up (see cleanUpSettings), so that it can be shown and saved at once.
/// Profiles after a left-out one move up; inputs that switch to them and the current profile follow. Returns
/// the left-out items, in the file's order. The backup must be one of everything, read or made by the
/// functions above; does nothing with any other, or if the tree is nil.
std::vector<LeftOut> restoreEverything(const plist::Dictionary& tree, const Backup& backup);

struct AddedProfile {
    std::optional<std::size_t> index; ///< of the profile in the tree, from 0; std::nullopt if there is no
                                      ///< room
    std::vector<LeftOut> leftOut;
};

/// The names for unnamed items.
struct DefaultNames {
    std::u16string profile;
    std::u16string macro;
};

/// Appends the backup's profile, under a unique name, and its macros to the live tree. An existing macro with
/// the same content, whatever its identifier and name, is reused; a new one gets a free identifier and a
/// unique name, and the profile's inputs follow. Inputs that switch to a number without a profile are
/// cleared. Changes nothing if there is no room for the profile. Accepts a backup of one profile, or of
/// everything, of which it uses the first.
AddedProfile addProfile(const plist::Dictionary& tree, const Backup& backup, const DefaultNames& names);

} // namespace quorvi
