// Dated copies of the settings in a folder of the user's state, each a backup of everything (see Backup.h).
//
// What stays: of today the first copy and the newest nine others; of each of the newest thirty days that have
// copies the first one, which is what stood when the day began; of older ones the first of each month, for a
// year; and of all no more than kHistoryBytes, the oldest going first. Days and months are the user's.
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
    beforeRestore,  ///< or before anything else that replaces everything
};

struct DatedCopy {
    std::string name;                           ///< of the file in the folder
    std::chrono::system_clock::time_point time; ///< in whole milliseconds
    CopyReason reason = CopyReason::firstChangeOfDay;
    bool operator==(const DatedCopy&) const = default;
};

/// The user's folder of copies: "kyvar-quorvi/history" below $XDG_STATE_HOME, when that is an absolute path,
/// else below ".local/state" of the home folder. Empty when there is neither.
[[nodiscard]] std::filesystem::path historyFolder(const std::filesystem::path& home);

class History {
  public:
    /// The folder need not be there; the first copy makes it, closed to others. With an empty one nothing is
    /// ever due or kept. The calls have to outlive this object.
    explicit History(std::filesystem::path folder, FileCalls& calls = systemFileCalls())
        : m_folder(std::move(folder)), m_calls(calls) {}

    /// Whether the day, as the user's clock has it, has no copy yet. Costs nothing once it has one.
    [[nodiscard]] bool isDue(std::chrono::system_clock::time_point now);

    /// Writes a copy of the tree, brings it to the disk, and only then removes what need not stay any more.
    /// 0, or as errno why there is no new copy: then all older ones are as they were. EFBIG for a tree that
    /// is too large for a backup, EINVAL for nil, ENOENT without a folder.
    [[nodiscard]] int keep(const plist::Dictionary& tree, CopyReason reason,
        std::chrono::system_clock::time_point now = std::chrono::system_clock::now());

    /// The copies, newest first. No file is opened, and what is no regular file is passed over.
    [[nodiscard]] std::vector<DatedCopy> list() const;

    /// What the copy holds. Links are not followed.
    [[nodiscard]] ReadBackup read(const DatedCopy& copy) const;

  private:
    std::filesystem::path m_folder;
    FileCalls& m_calls;
    std::optional<std::chrono::sys_days> m_dayWithCopy; ///< the last day that is known to have one
    std::optional<std::chrono::sys_time<std::chrono::minutes>> m_minuteWithCopy; ///< the last one of it
};

} // namespace quorvi
