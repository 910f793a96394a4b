// Settings as one file, ".quorviSettings": everything, or a single profile with the macros that it runs.
//
// The file is a property list with three keys: "format" is the number of the format, "contents" says which of
// the two it is, and "quorvi" holds a tree as a settings file does.
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
/// A larger file is not read, and none is written. A full configuration has some 60 KB and 2,000 values.
inline constexpr std::uint64_t kBackupBytes = std::uint64_t{4} << 20U;
inline constexpr std::uint64_t kBackupValues = std::uint64_t{1} << 16U; ///< with the keys

enum class BackupContents : std::uint8_t {
    everything, ///< for restoreEverything()
    oneProfile, ///< for addProfile(): the one profile in the tree's "profiles", and the macros that it runs
};

struct Backup {
    plist::Dictionary tree; ///< shares nothing with the tree that it was made of
    BackupContents contents = BackupContents::everything;

    explicit operator bool() const { return static_cast<bool>(tree); }
};

/// Of the whole tree as it stands. Without one in it for a tree that no property list can hold, and for nil.
[[nodiscard]] Backup backupOf(const plist::Dictionary& tree);

/// Of the profile at the index, from 0, with the macros that its inputs run. Without a tree when there is no
/// such profile.
[[nodiscard]] Backup backupOfProfile(const plist::Dictionary& tree, std::size_t profile);

/// Whether reading the file that the backup is written into gives a backup again: it holds valid settings
/// with a whole profile at least.
[[nodiscard]] bool canBeRestored(const Backup& backup);

/// The bytes of the file; nothing without a tree, and for one beyond kBackupBytes or kBackupValues.
[[nodiscard]] std::optional<std::string> backupBytes(const Backup& backup);

/// Writes the file as writeItemFile does: atomically, and through no link that another user has put into a
/// folder where everybody may. No error when all went well; invalid_argument when there are no bytes of it.
[[nodiscard]] std::error_code writeBackup(const Backup& backup, const std::filesystem::path& path);

/// Why a file gives no backup.
enum class BackupFault : std::uint8_t {
    none,
    noSuchFile,
    notReadable, ///< not permitted, or no regular file
    tooLarge,    ///< beyond kBackupBytes, of which none is read then, or kBackupValues
    damaged,     ///< no property list, or not a whole one
    newerFormat, ///< written by a later version
    noSettings,  ///< a property list without valid settings: no backup, or one without a whole profile
};

struct ReadBackup {
    Backup backup; ///< without a tree when there is a fault
    BackupFault fault = BackupFault::none;

    explicit operator bool() const { return static_cast<bool>(backup); }
};

/// The backup in the file. Never waits for anybody: a folder, a FIFO or a device is not read.
[[nodiscard]] ReadBackup readBackup(const std::filesystem::path& path);

/// The backup that the bytes of a file hold; never noSuchFile or notReadable.
[[nodiscard]] ReadBackup backupIn(const plist::Data& bytes);

/// Something of a backup that is not in the tree, and why.
struct LeftOut {
    enum class What : std::uint8_t {
        damagedProfile,   ///< not even KyvarValidateProfile takes it
        profileBeyond,    ///< there is room for limits::profiles
        damagedMacro,     ///< without name or steps
        macroOfManySteps, ///< more than limits::macroSteps
        macroBeyond,      ///< there is room for limits::macros, each with an identifier of its own
        inputsMacro,      ///< what the input ran is not there, so it does nothing now
        inputsProfile,    ///< the same, of the profile that it switched to
    };
    What what = What::damagedProfile;
    std::u16string name;    ///< of the profile or macro, of the input's profile; may be empty
    std::size_t number = 0; ///< of that one in the backup's list, from 1
    int input = 0;          ///< of an input, 1 to 9
    bool operator==(const LeftOut&) const = default;
};

/// Makes the live tree what the backup holds, in place (see bringTo), as far as there is room and it is
/// whole; cleaned up (see cleanUpSettings), so that it can be shown and saved at once. Profiles behind one
/// that is left out move up, and the inputs that switch to them and the current profile follow. Gives what
/// was left out, in the order of the file. Takes a backup of everything that was read or made by the
/// functions above; does nothing with another or without a tree (nil).
std::vector<LeftOut> restoreEverything(const plist::Dictionary& tree, const Backup& backup);

struct AddedProfile {
    std::optional<std::size_t> index; ///< of the profile in the tree, from 0; nothing when there is no room
    std::vector<LeftOut> leftOut;
};

/// The names of what has none.
struct DefaultNames {
    std::u16string profile;
    std::u16string macro;
};

/// Appends the backup's profile to the live tree, under a name of its own, and the macros that it runs. A
/// macro that is there already with the same content, whatever its identifier and name, is used again;
/// another gets a free identifier and a name of its own, and the profile's inputs follow. Inputs that switch
/// to a number without a profile are cleared. Nothing is changed when there is no room for the profile.
/// Takes a backup of one profile, or of everything: then it is the first one.
AddedProfile addProfile(const plist::Dictionary& tree, const Backup& backup, const DefaultNames& names);

} // namespace quorvi
