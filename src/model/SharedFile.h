// Replacing a file that other programs replace as well, so that nobody's work is written over unseen.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "base/AtomicFile.h"
#include "plist/Value.h"

namespace quorvi {

/// What is under a file's name.
struct Found {
    enum class Kind : std::uint8_t {
        nothing,
        readable,
        unreadable, ///< a regular file that may not or cannot be read, or is too large to be a property list
    };
    Kind kind = Kind::nothing;
    plist::Data bytes; ///< of a readable one
};

/// What is to take the file's place, and what becomes of the one that is there.
struct NewContent {
    std::string bytes;
    bool keepsOld = false; ///< the old file gets the name of a copy (KeptCopies.h) instead of being removed
    /// What was taken in is kept as a copy after all: not all of it is in the bytes.
    bool keepsTakenIn = false;
};

/// Says what the file is to hold.
class ContentSource {
  public:
    virtual ~ContentSource() = default;

    /// The content to put over what is there; asked again whenever something else is there by the time it is
    /// to be replaced. Nothing to give up.
    virtual std::optional<NewContent> contentOver(const Found& there) = 0;

    /// Somebody put this there between the last look and the replacement, so the content given last has taken
    /// its place. What is in it has to be in the next content, which is asked for now. False when it cannot
    /// be, wholly: then it is kept as a copy.
    virtual bool takeIn(const Found& between) = 0;
};

struct Replacement {
    int error = 0; ///< 0 when the file was replaced, else as errno; ECANCELED when the source gave up
    std::optional<std::filesystem::path> kept; ///< the last copy that was kept, whatever the error
};

/// Replaces the file. The new one is written and brought to the disk first. Then, under the lock that all
/// take who replace it (FolderLock), the file is looked at again, the two exchange their names, and what came
/// out is looked at. On file systems without such an exchange it is replaced right after the look. When
/// another file was there than the content was for, the source is asked again.
///
/// Links, mode and owner as replaceFileAtomically; a new file has mode 0600 whatever the process's mask, and
/// so has one that takes the place of an unreadable one. A folder in its place is EISDIR, what is neither
/// file nor folder ENXIO. With an error the old file is as it was, but for one in bringing the folder to the
/// disk.
[[nodiscard]] Replacement replaceSharedFile(const std::filesystem::path& path, ContentSource& source,
    FileCalls& calls = systemFileCalls(), Durability durability = Durability::now);

} // namespace quorvi
