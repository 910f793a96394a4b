#include "platform/FileWatcher.h"

#include <array>
#include <utility>

#include <sys/inotify.h>
#include <unistd.h>

namespace quorvi {

namespace {

namespace fs = std::filesystem;

/// Not each write, but the closing; not created files, but files renamed to this name.
constexpr std::uint32_t kMask = IN_CLOSE_WRITE | IN_MOVED_TO | IN_ONLYDIR;

/// Room for some events with the longest names.
constexpr std::size_t kRoom = 16 * (sizeof(inotify_event) + 256);

} // namespace

FileWatcher::FileWatcher(QObject* parent) : QObject(parent) {}

FileWatcher::~FileWatcher() {
    stop();
}

void FileWatcher::watch(const fs::path& file) {
    if (m_inotify < 0) {
        m_inotify = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
        if (m_inotify < 0)
            return;
        m_notifier = std::make_unique<QSocketNotifier>(m_inotify, QSocketNotifier::Read);
        connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] { readEvents(); });
    }
    std::error_code error;
    const fs::path target = fs::weakly_canonical(file, error);
    m_file = file;
    m_name = file.filename();
    m_targetName = error ? m_name : target.filename().string();
    m_watching = addFolderOf(file) && (error || addFolderOf(target));
    if (!m_watching)
        awaitFolder();
    else if (m_above >= 0)
        ::inotify_rm_watch(m_inotify, std::exchange(m_above, -1));
}

void FileWatcher::awaitFolder() {
    constexpr std::uint32_t comingFolders = IN_CREATE | IN_MOVED_TO | IN_ONLYDIR;
    const int before = m_above;
    m_above = -1;
    for (fs::path above = m_file.parent_path(); m_above < 0 && above.has_relative_path();) {
        above = above.parent_path();
        m_above = ::inotify_add_watch(m_inotify, above.c_str(), comingFolders);
    }
    if (before >= 0 && before != m_above)
        ::inotify_rm_watch(m_inotify, before);
}

bool FileWatcher::addFolderOf(const fs::path& file) const {
    return ::inotify_add_watch(m_inotify, file.parent_path().c_str(), kMask) >= 0;
}

void FileWatcher::stop() {
    m_notifier.reset();
    if (m_inotify >= 0)
        ::close(m_inotify);
    m_inotify = m_above = -1;
    m_watching = false;
}

void FileWatcher::readEvents() {
    alignas(inotify_event) std::array<char, kRoom> events{};
    bool changed = false;
    const bool waited = m_above >= 0;
    bool lookAgain = waited;
    for (ssize_t size = 0; (size = ::read(m_inotify, events.data(), events.size())) > 0;) {
        for (ssize_t at = 0; at < size;) {
            const auto* event = reinterpret_cast<const inotify_event*>(events.data() + at);
            const std::string name = event->len > 0 ? static_cast<const char*>(event->name) : "";
            // After a queue overflow any of the events below may have been lost.
            const bool lost = (event->mask & IN_Q_OVERFLOW) != 0;
            // A folder may have been removed with its watch.
            lookAgain = lookAgain || lost || (event->mask & IN_IGNORED) != 0;
            changed = changed || lost || name == m_name || name == m_targetName;
            at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
        }
    }
    if (lookAgain)
        watch(m_file);
    changed = changed || (waited && m_watching); // the file may have appeared with its folder
    if (changed)
        emit fileChanged();
}

} // namespace quorvi
