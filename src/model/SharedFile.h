// Replacing a file that other programs replace too, without overwriting changes unseen.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "base/AtomicFile.h"
#include "plist/Value.h"

namespace quorvi {

/// The content found under a file's name.
struct Found {
    enum class Kind : std::uint8_t {
        nothing,
        readable,
        unreadable, ///< a regular file that cannot be read, or is too large for a property list
    };
    Kind kind = Kind::nothing;
    plist::Data bytes; ///< of a readable file
};

/// The new content of the file, and what happens to the old file.
struct NewContent {
    std::string bytes;
    bool keepsOld = false; ///< the old file is renamed to a copy (KeptCopies.h) instead of removed
    /// The file passed to takeIn() is kept as a copy: not all of it is in the bytes.
    bool keepsTakenIn = false;
};

/// Decides the file's new content.
class ContentSource {
  public:
    virtual ~ContentSource() = default;

    /// Returns the content that replaces the given one, or std::nullopt to cancel. Called again whenever the
    /// file has changed before it can be replaced.
    virtual std::optional<NewContent> contentOver(const Found& there) = 0;

    /// Another program wrote this after the last look, and the last content has replaced it. The next
    /// contentOver() must include it. Returns false if it cannot be included completely; it is then kept as a
    /// copy.
    virtual bool takeIn(const Found& between) = 0;
};

struct Replacement {
    int error = 0; ///< 0 if the file was replaced, else an errno; ECANCELED if the source cancelled
    std::optional<std::filesystem::path> kept; ///< the last copy that was kept, whatever the error
};

/// Replaces the file. Writes and syncs the new file first. Then, holding the lock of all our writers
/// (FolderLock), looks at the old file again, exchanges the two names, and looks at the file that came out.
/// On file systems without such an exchange, replaces the file right after the look. If the content was based
/// on another file than was found, calls the source again.
///
/// Treats links, mode and owner like replaceFileAtomically; a new file, or one that replaces an unreadable
/// file, has mode 0600 regardless of the umask. The error is EISDIR for a folder in the file's place, ENXIO
/// for anything else that is not a file. An error leaves the old file unchanged, except an error in syncing
/// the folder.
[[nodiscard]] Replacement replaceSharedFile(const std::filesystem::path& path, ContentSource& source,
    FileCalls& calls = systemFileCalls(), Durability durability = Durability::now);

} // namespace quorvi
