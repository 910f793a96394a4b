// The dated copies of the settings that the session keeps: before the first change of a day, and before
// certain editor actions. A failed copy prevents nothing; the user is notified.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>

#include "history/History.h"
#include "plist/Value.h"

namespace quorvi {

class SaveNotices;

class DatedCopies {
  public:
    struct Place {
        std::filesystem::path folder; ///< empty: no copies are kept
        std::function<std::chrono::system_clock::time_point()> now = std::chrono::system_clock::now;
    };

    /// The calls and the notices must outlive this object.
    DatedCopies(Place place, FileCalls& calls, SaveNotices& notices);

    /// Call this before saving the tree. Keeps the file's present content if it differs and the day has no
    /// copy yet.
    void keepBeforeFirstChange(const std::filesystem::path& file, const plist::Dictionary& tree);
    /// Keeps the tree. Returns false if that fails, or without a folder.
    bool keep(const plist::Dictionary& tree, CopyReason reason);

    [[nodiscard]] const History& history() const { return m_history; }

  private:
    Place m_place;
    History m_history;
    SaveNotices& m_notices;
};

} // namespace quorvi
