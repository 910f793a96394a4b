// The dated copies of the settings that the session keeps: before the first change of a day, and before what
// an editor is about to do. None that fails is in the way of anything; the user is told.
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
        std::filesystem::path folder; ///< no copies are kept when it is empty
        std::function<std::chrono::system_clock::time_point()> now = std::chrono::system_clock::now;
    };

    /// The calls and the notices must outlive this object.
    DatedCopies(Place place, FileCalls& calls, SaveNotices& notices);

    /// The tree is about to be saved over what the file holds, which is kept when it is another one and the
    /// day has no copy yet.
    void keepBeforeFirstChange(const std::filesystem::path& file, const plist::Dictionary& tree);
    /// Keeps the tree. False when that fails, and without a folder.
    bool keep(const plist::Dictionary& tree, CopyReason reason);

    [[nodiscard]] const History& history() const { return m_history; }

  private:
    Place m_place;
    History m_history;
    SaveNotices& m_notices;
};

} // namespace quorvi
