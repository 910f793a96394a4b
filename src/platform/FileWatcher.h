// Hears of what other programs write into one file.
#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <filesystem>
#include <memory>
#include <string>

namespace quorvi {

/// Watches the folder of a file, and that of its target when it is a symbolic link, for the file being
/// written and closed or replaced, by anybody, the own process included. Nothing wakes up while nothing
/// happens there, and nothing is asked again and again: where the kernel gives no watch, nothing is heard.
class FileWatcher : public QObject {
    Q_OBJECT

  public:
    explicit FileWatcher(QObject* parent = nullptr);
    ~FileWatcher() override;

    /// Watches this file from now on. While its folder is not there, the nearest one above it is watched for
    /// its coming. Watching what is being watched costs next to nothing.
    void watch(const std::filesystem::path& file);
    void stop();
    /// Whether all folders that there are to be watched are.
    [[nodiscard]] bool isWatching() const { return m_watching; }

  signals:
    /// Once for all that happened since the event loop ran last.
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
