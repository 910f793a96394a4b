#include "host/UserHome.h"

#include <QDirIterator>
#include <QFileInfo>

#include <fstream>
#include <iterator>

#include "model/SettingsDocument.h"

namespace quorvi::test {

namespace {

constexpr std::int32_t kSensitivityInForce = 1200; // the defaults' second stage, the current one, has 800

/// What the name of the folder begins with.
QString templateIn(Storage storage) {
    const QFileInfo memory(QStringLiteral("/dev/shm"));
    const bool inMemory = storage == Storage::memory && memory.isDir() && memory.isWritable();
    return (inMemory ? memory.filePath() : QDir::tempPath()) + QStringLiteral("/quorvi-home-XXXXXX");
}

} // namespace

UserHome::UserHome(Storage storage) : m_folder(templateIn(storage)) {
    if (!m_folder.isValid())
        qFatal("no home folder");
}

std::filesystem::path UserHome::settingsFile() const {
    return userSettingsPath(path());
}

QStringList UserHome::files() const {
    QStringList result;
    const QDir home(m_folder.path());
    for (QDirIterator file(
             home.path(), QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
         file.hasNext();)
        result << home.relativeFilePath(file.next());
    result.sort();
    return result;
}

std::string UserHome::contentOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

plist::Dictionary UserHome::savedSettings() const {
    return loadSettings(settingsFile(), {});
}

std::int32_t UserHome::savedLights() const {
    return savedSettings().array("profiles").dictionary(0).integer("ledstate");
}

std::int32_t UserHome::savedPollingRate() const {
    return savedSettings().dictionary("settings").integer("pollingrate");
}

void UserHome::writeSettings(const plist::Dictionary& tree) const {
    if (!saveSettings(tree, settingsFile()))
        qFatal("the settings cannot be written");
}

plist::Dictionary UserHome::defaults() {
    auto tree = getDefaultSettings(QUORVI_BUNDLE "/Contents/Resources/Defaults.plist");
    if (!tree)
        qFatal("the bundle has no defaults");
    return tree;
}

void UserHome::awaitDeviceList() const {
    const auto tree = defaults();
    tree.dictionary("settings").set("dpix", kSensitivityInForce);
    tree.dictionary("settings").set("dpiy", kSensitivityInForce);
    writeSettings(tree);
}

bool UserHome::deviceListHasCome() const {
    const auto stages = savedSettings().array("profiles").dictionary(0).array("stages");
    return stages.dictionary(1).integer("dpix") == kSensitivityInForce;
}

} // namespace quorvi::test
