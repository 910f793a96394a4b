#include "platform/FileWatcher.h"

#include <array>

#include <sys/inotify.h>
#include <unistd.h>

namespace quorvi {

namespace {

namespace fs = std::filesystem;

/// Not each write, but its end; not what is created, but what has taken the name.
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
    m_name = file.filename();
    m_targetName = error ? m_name : target.filename().string();
    m_watching = addFolderOf(file) && (error || addFolderOf(target));
}

bool FileWatcher::addFolderOf(const fs::path& file) const {
    return ::inotify_add_watch(m_inotify, file.parent_path().c_str(), kMask) >= 0;
}

void FileWatcher::stop() {
    m_notifier.reset();
    if (m_inotify >= 0)
        ::close(m_inotify);
    m_inotify = -1;
    m_watching = false;
}

void FileWatcher::readEvents() {
    alignas(inotify_event) std::array<char, kRoom> events{};
    bool changed = false;
    for (ssize_t size = 0; (size = ::read(m_inotify, events.data(), events.size())) > 0;) {
        for (ssize_t at = 0; at < size;) {
            const auto* event = reinterpret_cast<const inotify_event*>(events.data() + at);
            const std::string name = event->len > 0 ? static_cast<const char*>(event->name) : "";
            // Too many at once: then whatever it was, the file may have been among it.
            if ((event->mask & IN_IGNORED) != 0)
                m_watching = false; // the folder has gone
            changed = changed || name == m_name || name == m_targetName || (event->mask & IN_Q_OVERFLOW) != 0;
            at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
        }
    }
    if (changed)
        emit fileChanged();
}

} // namespace quorvi
