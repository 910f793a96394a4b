#include "model/SharedFile.h"

#include <cerrno>
#include <string>
#include <tuple>
#include <vector>

#include <fcntl.h>

#include "base/FolderLock.h"
#include "base/KeptCopies.h"
#include "base/TemporaryFile.h"
#include "model/Sighting.h"

namespace quorvi {

namespace {

namespace fs = std::filesystem;

constexpr mode_t kOwnerOnly = 0600;

/// Limits the attempts against a program that writes continuously without the lock.
constexpr int kAttempts = 50;
constexpr int kCopyNames = 100;

bool isUnknownCall(int error) {
    return error == EINVAL || error == ENOSYS || error == EOPNOTSUPP;
}

class Replacing {
  public:
    Replacing(const fs::path& target, const Folder& folder, FileCalls& calls, Durability durability)
        : m_target(target), m_name(target.filename().string()), m_folder(folder), m_calls(calls),
          m_lock(calls, folder.file()), m_now(durability == Durability::now) {}

    Replacement run(ContentSource& source) {
        Replacement result;
        result.error = replace(source);
        m_lock.release();
        if (!m_takenIn.empty())
            m_copy = m_takenIn.back(); // no content includes all of it
        if (!m_copy.empty()) {
            makeCopyOneOwns();
            removeOldestCopies(m_target, m_copy, m_calls);
            result.kept = m_target.parent_path() / m_copy;
        }
        const bool synced = !m_placed || !(m_now || result.kept) || syncToDisk(m_calls, m_folder.file());
        if (result.error == 0 && !synced)
            result.error = errno;
        return result;
    }

  private:
    enum class Step : std::uint8_t { done, failed, somethingElseWasThere, somethingElseCameOut };

    int replace(ContentSource& source) {
        for (int attempt = 0; attempt < kAttempts; ++attempt) {
            // After one lost race write under the lock, so that no other writer that takes it can be first
            // again.
            if (attempt > 0)
                m_lock.take();
            m_there = Sighting::of(m_folder.file(), m_name);
            if (m_there.error != 0)
                return m_there.error;
            const auto content = source.contentOver(m_there.found);
            if (!content)
                return ECANCELED;
            switch (put(*content)) {
            case Step::done:
                if (!content->keepsTakenIn)
                    forgetTakenIn();
                return 0;
            case Step::failed:
                return errno;
            case Step::somethingElseWasThere:
                break;
            case Step::somethingElseCameOut:
                takeIn(source, *content);
                break;
            }
        }
        return EBUSY;
    }

    Step put(const NewContent& content) {
        TemporaryFile temporary(m_calls, m_folder, kOwnerOnly);
        if (!write(temporary, content.bytes) || (content.keepsOld && !syncOld()))
            return Step::failed;
        m_lock.take();
        // What comes out by the exchange is looked at as well, and byte by byte.
        if (!m_there.isProbablyAt(m_folder.file(), m_name))
            return Step::somethingElseWasThere;
        const Step step = m_there.found.kind == Found::Kind::nothing ? putWhereNothingIs(temporary)
                          : content.keepsOld                         ? putAndKeepOld(temporary)
                                                                     : putOverOld(temporary);
        m_placed = m_placed || step == Step::done || step == Step::somethingElseCameOut;
        return step;
    }

    [[nodiscard]] bool write(TemporaryFile& temporary, std::string_view bytes) const {
        const bool takesOver = m_there.found.kind == Found::Kind::readable;
        if (!temporary.isOpen() || !temporary.write(bytes) ||
            !(takesOver ? temporary.takeOwnerAndMode(m_there.status) : temporary.takeMode(kOwnerOnly)))
            return false;
        if (m_now) {
            if (!temporary.sync())
                return false;
        } else {
            // File systems that do this on their own when a file is replaced do not do it when names are
            // exchanged.
            temporary.beginSync();
        }
        return temporary.close();
    }

    /// Syncs the kept file before its name changes.
    [[nodiscard]] bool syncOld() const {
        const int file = uninterrupted([&] {
            return ::openat(
                m_folder.file(), m_name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
        });
        if (file < 0)
            return true; // a file that cannot be read cannot be synced either
        const bool synced = syncToDisk(m_calls, file);
        const int error = errno;
        m_calls.close(file);
        errno = error;
        return synced;
    }

    Step putWhereNothingIs(TemporaryFile& temporary) {
        if (temporary.takeFreeName(m_name)) {
            temporary.letGo();
            return Step::done;
        }
        if (errno == EEXIST)
            return Step::somethingElseWasThere;
        return isUnknownCall(errno) ? putInPlaceOf(temporary) : lost(errno);
    }

    Step putOverOld(TemporaryFile& temporary) {
        if (!temporary.exchangeWith(m_name))
            return isUnknownCall(errno) ? putOverUnlooked(temporary) : lost(errno);
        if (m_there.isAt(m_folder.file(), temporary.name()))
            return Step::done; // the old file goes away with the temporary one's name
        return keepWhatCameOut(temporary);
    }

    /// Where names cannot be exchanged, so that no old file comes out.
    Step putOverUnlooked(TemporaryFile& temporary) {
        return m_there.isAt(m_folder.file(), m_name) ? putInPlaceOf(temporary) : Step::somethingElseWasThere;
    }

    /// The file that came out must not be removed with the temporary file, whatever happens next.
    Step keepWhatCameOut(TemporaryFile& temporary) {
        m_cameOut = Sighting::of(m_folder.file(), temporary.name());
        static_cast<void>(takeNameOfCopy(temporary));
        m_cameOutAs = temporary.name();
        temporary.letGo();
        return Step::somethingElseCameOut;
    }

    // The new file gets the copy's name before the exchange: so the old file always has a permanent name.
    Step putAndKeepOld(TemporaryFile& temporary) {
        if (!takeNameOfCopy(temporary))
            return Step::failed;
        const std::string copy = temporary.name();
        if (!temporary.exchangeWith(m_name))
            return isUnknownCall(errno) ? moveOldAndPut(temporary) : lost(errno);
        temporary.letGo();
        if (m_there.isAt(m_folder.file(), copy)) {
            m_copy = copy;
            return Step::done;
        }
        m_cameOut = Sighting::of(m_folder.file(), copy);
        m_cameOutAs = copy;
        return Step::somethingElseCameOut;
    }

    /// For file systems that cannot exchange names. Uses a hard link if possible, so that the old file always
    /// has a name.
    Step moveOldAndPut(TemporaryFile& temporary) {
        const auto copy = nameOfNextCopy(m_target);
        if (!copy)
            return Step::failed;
        const bool linked = ::linkat(m_folder.file(), m_name.c_str(), m_folder.file(), copy->c_str(), 0) == 0;
        if (!linked && m_calls.renameat(m_folder.file(), m_name.c_str(), copy->c_str()) != 0)
            return lost(errno);
        if (putInPlaceOf(temporary) == Step::done) {
            m_copy = *copy;
            return Step::done;
        }
        const int error = errno;
        if (linked)
            m_calls.unlinkat(m_folder.file(), copy->c_str());
        else
            m_calls.renameat(m_folder.file(), copy->c_str(), m_name.c_str());
        errno = error;
        return Step::failed;
    }

    Step putInPlaceOf(TemporaryFile& temporary) const {
        return temporary.takePlaceOf(m_name) ? Step::done : Step::failed;
    }

    /// What a failed change of names means: if one of the two no longer exists, another program was faster.
    static Step lost(int error) { return error == ENOENT ? Step::somethingElseWasThere : Step::failed; }

    /// Another process may choose the same name for a copy.
    [[nodiscard]] bool takeNameOfCopy(TemporaryFile& temporary) const {
        for (int attempt = 0; attempt < kCopyNames; ++attempt) {
            const auto copy = nameOfNextCopy(m_target);
            if (!copy)
                return false;
            if (temporary.takeFreeName(*copy))
                return true;
            if (isUnknownCall(errno))
                return temporary.takeName(*copy);
            if (errno != EEXIST)
                return false;
        }
        return false;
    }

    void takeIn(ContentSource& source, const NewContent& content) {
        const bool isReadable = m_cameOut.error == 0 && m_cameOut.found.kind == Found::Kind::readable;
        if (isReadable && source.takeIn(m_cameOut.found) && !content.keepsOld)
            m_takenIn.push_back(m_cameOutAs);
        else
            m_copy = m_cameOutAs;
    }

    /// Other programs' content is now in the file.
    void forgetTakenIn() {
        for (const std::string& name : m_takenIn)
            m_calls.unlinkat(m_folder.file(), name.c_str());
        m_takenIn.clear();
    }

    /// Makes the copy private, unless it belongs to another user.
    void makeCopyOneOwns() const {
        struct stat status {};
        if (::fstatat(m_folder.file(), m_copy.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 &&
            S_ISREG(status.st_mode) && status.st_nlink == 1)
            std::ignore = ::fchmodat(m_folder.file(), m_copy.c_str(), kOwnerOnly, 0);
    }

    fs::path m_target;
    std::string m_name;
    const Folder& m_folder;
    FileCalls& m_calls;
    FolderLock m_lock;
    bool m_now;
    bool m_placed = false; ///< the file has been replaced, if perhaps not for the last time
    Sighting m_there;
    Sighting m_cameOut;
    std::string m_cameOutAs;
    std::vector<std::string> m_takenIn; ///< copies of files that the next content will include
    std::string m_copy;                 ///< the copy that stays; empty for none
};

} // namespace

Replacement replaceSharedFile(
    const fs::path& path, ContentSource& source, FileCalls& calls, Durability durability) {
    const auto target = followLinks(path);
    if (!target)
        return {errno, std::nullopt};
    if (!target->has_filename())
        return {EISDIR, std::nullopt};
    const Folder folder(target->parent_path());
    if (!folder.isOpen())
        return {errno, std::nullopt};
    return Replacing(*target, folder, calls, durability).run(source);
}

} // namespace quorvi
