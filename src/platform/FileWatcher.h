// Watches one file for changes by other programs.
#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <filesystem>
#include <memory>
#include <string>

namespace quorvi {

/// Watches the folder of a file, and that of its target when it is a symbolic link, for the file being
/// written and closed or replaced by any process, including this one. Causes no wake-ups while idle and does
/// not poll: without a kernel watch it reports nothing.
class FileWatcher : public QObject {
    Q_OBJECT

  public:
    explicit FileWatcher(QObject* parent = nullptr);
    ~FileWatcher() override;

    /// Watches this file from now on. While its folder does not exist, watches the nearest existing one above
    /// it. Cheap if the file is already watched.
    void watch(const std::filesystem::path& file);
    void stop();
    /// Whether all necessary folders are watched.
    [[nodiscard]] bool isWatching() const { return m_watching; }

  signals:
    /// Emitted once for all changes since the event loop last ran.
    void fileChanged();

  private:
    [[nodiscard]] bool addFolderOf(const std::filesystem::path& file) const;
    void awaitFolder();
    void readEvents();

    int m_inotify = -1;
    int m_above = -1; ///< the watch of a folder above the missing one
    bool m_watching = false;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::filesystem::path m_file;
    std::string m_name;       ///< of the file
    std::string m_targetName; ///< the same unless the file is a link
};

} // namespace quorvi
