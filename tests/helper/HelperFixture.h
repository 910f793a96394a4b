// The real helper in its own bundle on a private bus, and panels that use it.
#pragma once

#include "events/BusFixture.h"
#include "events/DeviceList.h"
#include "events/SimulatedMouse.h"
#include "support/Files.h"

namespace quorvi::test {

/// A connection that does what a panel does.
class Panel {
  public:
    Panel() : bus(EventBus::connect()) {
        bus->installHandler(kEventClassQuorvi, kEventDeviceList,
            [this](const Event& event, const ProcessSerialNumber&, Event&) {
                DeviceList list;
                EXPECT_TRUE(getDeviceList(event, list));
                lists.push_back(list);
                return noErr;
            });
    }
    [[nodiscard]] Status command(FourCharCode message, std::int32_t parameter) {
        ProcessSerialNumber helper;
        const Status found = bus->findProcessByName("KyvarQuorviHelper", &helper);
        return found == noErr ? bus->send(helper, makeCommand(message, parameter)) : found;
    }
    /// Waits until this many lists have come in all, and says what the last one's count is; -1 if they do
    /// not.
    [[nodiscard]] int countAfterLists(std::size_t number) {
        return waitFor(*bus, [&] { return lists.size() >= number; }) ? lists.back().count : -1;
    }
    /// Takes in all that the bus has passed on by now.
    void catchUp() {
        EXPECT_EQ(bus->findProcessByName("nobody", nullptr), procNotFound);
        bus->process();
    }

    std::unique_ptr<EventBus> bus;
    std::vector<DeviceList> lists;
};

class HelperTest : public BusTest {
  protected:
    HelperTest() {
        std::filesystem::create_directories(m_program.parent_path());
        std::filesystem::copy_file(QUORVI_HELPER, m_program);
        const auto contents = std::filesystem::path(QUORVI_HELPER).parent_path().parent_path();
        std::filesystem::copy(contents / "Resources", m_program.parent_path().parent_path() / "Resources",
            std::filesystem::copy_options::recursive);
        std::filesystem::create_directories(userSettings.parent_path());
    }

    [[nodiscard]] std::unique_ptr<ChildProcess> launch() const {
        return std::make_unique<ChildProcess>(std::vector{m_program.string()}, environment());
    }
    [[nodiscard]] ProgramResult runToItsEnd() const {
        return runProgram({m_program.string()}, environment());
    }
    /// Starts it and waits until it has loaded the settings and serves the bus.
    void start() {
        helper = launch();
        ASSERT_TRUE(
            waitFor(*bus, [&] { return bus->findProcessByName("KyvarQuorviHelper", &psn) == noErr; }));
        // It can be found a moment before it serves.
        ASSERT_TRUE(waitFor(*bus, [&] {
            bool attached = false;
            return getSimulatedMouseAttached(*bus, psn, attached) == noErr;
        }));
    }
    /// Sends a command and gives the number in the reply; -1 when there is none.
    [[nodiscard]] int ask(FourCharCode message, std::int32_t parameter) {
        Event reply;
        std::int32_t value = -1;
        EXPECT_EQ(
            bus->send(psn, makeCommand(message, parameter), SendMode::waitReply, &reply, kPatience), noErr);
        return reply.getInteger(keyDirectObject, value) == noErr ? value : -1;
    }
    [[nodiscard]] std::string record() {
        EventBytes bytes;
        EXPECT_EQ(getSimulatedMouseRecord(*bus, psn, bytes), noErr);
        return {bytes.begin(), bytes.end()};
    }
    [[nodiscard]] bool isAttached() {
        bool attached = false;
        EXPECT_EQ(getSimulatedMouseAttached(*bus, psn, attached), noErr);
        return attached;
    }

    /// More of its environment, "NAME=value". It has no display unless one is named here: what goes on on the
    /// test's own would wake it.
    std::vector<std::string> surroundings;
    TemporaryFolder folder;
    std::filesystem::path resources = folder / "Kyvar.prefPane/Contents/Resources";
    std::filesystem::path defaults = resources / "Defaults.plist";
    std::filesystem::path userSettings = folder / "Library/Preferences/com.kyvar.quorvi.settings.plist";
    std::filesystem::path configuration = folder / "configuration";
    std::filesystem::path chosenMice = configuration / "kyvar-quorvi/mice.plist";
    std::unique_ptr<ChildProcess> helper;
    ProcessSerialNumber psn;

  private:
    [[nodiscard]] std::vector<std::string> environment() const {
        std::vector<std::string> all{"HOME=" + folder.path().string(),
            "XDG_CONFIG_HOME=" + configuration.string(), "XDG_DATA_HOME", "XDG_DATA_DIRS=/nonexistent",
            "XDG_CURRENT_DESKTOP", "XDG_SESSION_TYPE", "DISPLAY", "WAYLAND_DISPLAY"};
        all.insert(all.end(), surroundings.begin(), surroundings.end());
        return all;
    }
    std::filesystem::path m_program = resources / "KyvarQuorviHelper.app/Contents/Linux/KyvarQuorviHelper";
};

} // namespace quorvi::test
