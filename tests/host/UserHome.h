// The home folder of a user who has never opened the panel.
#pragma once

#include <QStringList>
#include <QTemporaryDir>

#include <filesystem>

#include "plist/Value.h"

namespace quorvi::test {

enum class Storage : bool {
    disk,
    memory, ///< where there is one: what a disk takes for others' writes is not in the times that a test
            ///< measures
};

class UserHome {
  public:
    explicit UserHome(Storage storage = Storage::disk);

    [[nodiscard]] std::string path() const { return m_folder.path().toStdString(); }
    [[nodiscard]] std::filesystem::path settingsFile() const;
    /// Every file below the folder, by its path from there, in order.
    [[nodiscard]] QStringList files() const;

    /// The bytes of a file; none when there is none.
    [[nodiscard]] static std::string contentOf(const std::filesystem::path& file);

    /// The tree of the settings file; nil unless there is a file and it is valid.
    [[nodiscard]] plist::Dictionary savedSettings() const;
    [[nodiscard]] std::int32_t savedLights() const;      ///< of the first profile
    [[nodiscard]] std::int32_t savedPollingRate() const; ///< in Hz
    /// Puts the tree into the settings file.
    void writeSettings(const plist::Dictionary& tree) const;
    /// A copy of the tree that the panel's bundle comes with.
    [[nodiscard]] static plist::Dictionary defaults();

    /// Puts settings there whose current stage differs from the sensitivity in force. A panel puts that right
    /// and saves it as soon as a device list comes in, which is how one sees from outside that it has dealt
    /// with it.
    void awaitDeviceList() const;
    [[nodiscard]] bool deviceListHasCome() const;

  private:
    QTemporaryDir m_folder;
};

} // namespace quorvi::test
