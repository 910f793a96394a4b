// Dated copies of the settings in a folder of the user's state, each a backup of everything (see Backup.h).
//
// It keeps today's first copy and its newest nine others; the first copy, from the start of the day, of each
// of the newest thirty days with copies; of older ones the first of each month, for a year. Together they
// take at most kHistoryBytes; the oldest are removed first. Days and months are in the user's time zone.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "base/FileCalls.h"
#include "history/Backup.h"
#include "plist/Value.h"

namespace quorvi {

inline constexpr std::size_t kCopiesOfToday = 10;
inline constexpr std::size_t kDaysWithCopies = 30;
inline constexpr int kMonthsWithCopies = 12;
inline constexpr std::uint64_t kHistoryBytes = std::uint64_t{16} << 20U;

/// Why a copy was made.
enum class CopyReason : std::uint8_t {
    firstChangeOfDay,
    beforeDeletion, ///< of a profile
    beforeRestore,  ///< or before another action that replaces everything
};

struct DatedCopy {
    std::string name;                           ///< of the file in the folder
    std::chrono::system_clock::time_point time; ///< in whole milliseconds
    CopyReason reason = CopyReason::firstChangeOfDay;
    bool operator==(const DatedCopy&) const = default;
};

/// The user's folder of copies: "kyvar-quorvi/history" below $XDG_STATE_HOME, if that is an absolute path,
/// else below ".local/state" of the home folder. Empty if there is neither.
[[nodiscard]] std::filesystem::path historyFolder(const std::filesystem::path& home);

class History {
  public:
    /// The folder need not exist; the first copy creates it, closed to other users. With an empty path no
    /// copy is ever due or kept. The calls must outlive this object.
    explicit History(std::filesystem::path folder, FileCalls& calls = systemFileCalls())
        : m_folder(std::move(folder)), m_calls(calls) {}

    /// Whether the user's present day has no copy yet. Cheap once it has one.
    [[nodiscard]] bool isDue(std::chrono::system_clock::time_point now);

    /// Writes and syncs a copy of the tree, and only then removes copies that are no longer kept. Returns 0,
    /// or an errno if there is no new copy; all older ones then stay. EFBIG for a tree that is too large for
    /// a backup, EINVAL for nil, ENOENT without a folder.
    [[nodiscard]] int keep(const plist::Dictionary& tree, CopyReason reason,
        std::chrono::system_clock::time_point now = std::chrono::system_clock::now());

    /// The copies, newest first. Opens no file, and skips everything that is not a regular file.
    [[nodiscard]] std::vector<DatedCopy> list() const;

    /// Reads the copy. Does not follow links.
    [[nodiscard]] ReadBackup read(const DatedCopy& copy) const;

  private:
    std::filesystem::path m_folder;
    FileCalls& m_calls;
    std::optional<std::chrono::sys_days> m_dayWithCopy; ///< the last day known to have one
    std::optional<std::chrono::sys_time<std::chrono::minutes>> m_minuteWithCopy; ///< its last minute
};

} // namespace quorvi
