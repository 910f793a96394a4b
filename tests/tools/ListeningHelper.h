// A user's settings, with the test as the helper, to check the messages to it.
#pragma once

#include "events/BusFixture.h"
#include "events/EventTypes.h"
#include "plist/Reader.h"
#include "support/EnvironmentVariable.h"
#include "tools/ToolFixture.h"

namespace quorvi::test {

class ListeningHelper : public BusTest {
  protected:
    ListeningHelper() {
        std::filesystem::create_directories(settings.parent_path());
        writeFile(settings, readFile(QUORVI_TEST_DATA "/everyday-settings.plist"));
    }
    /// What the helper has been told by now: the parameter of each message of a save.
    [[nodiscard]] std::vector<std::int32_t> news() {
        EXPECT_EQ(bus->findProcessByName("nobody", nullptr), procNotFound); // behind what was sent
        bus->process();
        return m_news;
    }
    void beTheHelper() {
        ASSERT_EQ(bus->ownName("KyvarQuorviHelper"), NameResult::owned);
        bus->installHandler(
            kEventClassQuorvi, kEventCommand, [this](const Event& event, const ProcessSerialNumber&, Event&) {
                FourCharCode message = 0;
                std::int32_t parameter = 0;
                EXPECT_EQ(event.getMagnitude(keyDirectObject, message), noErr);
                EXPECT_EQ(event.getInteger(kKeyCommandParameter, parameter), noErr);
                EXPECT_EQ(message, kMessageSettingsSaved);
                m_news.push_back(parameter);
                return noErr;
            });
    }
    [[nodiscard]] static plist::Dictionary treeIn(const std::filesystem::path& file) {
        return plist::readPropertyListFile(file).value.dictionary().dictionary("quorvi");
    }
    [[nodiscard]] int profileIndex() const {
        return treeIn(settings).dictionary("settings").integer("profileid") - 1;
    }

    TemporaryFolder folder;
    EnvironmentVariable home{"HOME", folder.path()};
    EnvironmentVariable stateHome{"XDG_STATE_HOME", folder / "state"};
    std::filesystem::path settings = folder / "Library/Preferences/com.kyvar.quorvi.settings.plist";

  private:
    std::vector<std::int32_t> m_news;
};

} // namespace quorvi::test
