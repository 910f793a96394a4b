// A watcher's notifications when the kernel's event queue overflows.

#include "platform/FileWatcher.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

#include <fstream>

#include "support/TemporaryFolder.h"
#include "support/WaitUntil.h"

namespace quorvi::test {

namespace {

namespace fs = std::filesystem;

void write(const fs::path& file) {
    std::ofstream(file) << 'x';
}

/// The events that the kernel keeps for a watcher; what comes then is lost.
int keptEvents() {
    int count = 0;
    std::ifstream("/proc/sys/fs/inotify/max_queued_events") >> count;
    return count;
}

class FileWatching : public testing::Test {
  protected:
    FileWatching() {
        fs::create_directory(folder);
        write(file);
        watcher.watch(file);
        QObject::connect(&watcher, &FileWatcher::fileChanged, [this] { ++changes; });
    }
    /// Whether it is told of a change; forgets those before.
    [[nodiscard]] bool hears() {
        const bool heard = waitUntil([this] {
            QCoreApplication::processEvents();
            return changes > 0;
        });
        changes = 0;
        return heard;
    }
    /// Fills the kernel's queue with events that are none of the file's. Equal ones on end would count once.
    void writeOthers() const {
        const int count = keptEvents();
        for (int i = 0; i <= count / 2; ++i) {
            write(folder / "a");
            write(folder / "b");
        }
    }

    int arguments = 0;
    QCoreApplication application{arguments, nullptr};
    TemporaryFolder home;
    fs::path folder = home / "folder";
    fs::path file = folder / "file";
    FileWatcher watcher;
    int changes = 0;
};

} // namespace

TEST_F(FileWatching, TellsOfAWrittenFile) {
    write(file);
    EXPECT_TRUE(hears());
}

TEST_F(FileWatching, TakesLostEventsForAChange) {
    writeOthers();
    EXPECT_TRUE(hears());
}

TEST_F(FileWatching, GoesOnInAFolderThatWasExchangedWhileEventsWereLost) {
    writeOthers();
    fs::remove_all(folder);
    fs::create_directory(folder);
    ASSERT_TRUE(hears());
    write(file);
    EXPECT_TRUE(hears());
}

} // namespace quorvi::test
