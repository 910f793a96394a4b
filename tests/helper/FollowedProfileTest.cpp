// The record while the helper runs another profile than the user's choice.
#include <gtest/gtest.h>

#include <cstring>

#include "helper/DeviceSettings.h"
#include "model/Trees.h"
#include "plist/Writer.h"
#include "support/Files.h"
#include "support/TemporaryFolder.h"

namespace quorvi::test {
namespace {

plist::Dictionary profileInStage(std::u16string name, int defaultStage) {
    auto made = profile(std::move(name));
    made.set("defaultstage", defaultStage);
    made.set("stages", list({stage(400, 400), stage(800, 1600), stage(3200, 3200)}));
    made.set("driver", dict({{"profileosd", true}}));
    return made;
}

class FollowedProfile : public testing::Test {
  protected:
    FollowedProfile() {
        save(1, list({profileInStage(u"One", 1), profileInStage(u"Two", 3)}));
        EXPECT_TRUE(settings.reload());
    }
    void save(int chosen, plist::Array profiles, int pollingRate = 500) const {
        auto made = tree(std::move(profiles), list());
        made.set("settings", dict({{"profileid", chosen}, {"pollingrate", pollingRate}, {"stage", 2},
                                 {"dpix", 800}, {"dpiy", 1600}}));
        writeFile(file, plist::writeXml(dict({{"quorvi", made}})).value());
    }
    [[nodiscard]] ConfigRecord record() const {
        ConfigRecord made{};
        EXPECT_EQ(settings.record().size(), sizeof made);
        std::memcpy(&made, settings.record().data(), std::min(settings.record().size(), sizeof made));
        return made;
    }

    /// "PROFILE STAGE" of the record.
    [[nodiscard]] std::string runs() const {
        return std::to_string(record().settings.profileId) + " " + std::to_string(record().settings.stage);
    }

    TemporaryFolder folder;
    std::filesystem::path file = folder / "settings.plist";
    DeviceSettings settings{{file, {}}};
};

TEST_F(FollowedProfile, RunsInItsDefaultStage) {
    EXPECT_TRUE(settings.follow(1));
    EXPECT_EQ(record().settings.profileId, 2);
    EXPECT_EQ(record().settings.stage, 3);
    EXPECT_EQ(record().settings.dpiXCode, (3200 - 100) / 25);
    EXPECT_EQ(record().settings.dpiYCode, (3200 - 100) / 25);
}

TEST_F(FollowedProfile, LeavesEverythingElseOfTheRecord) {
    auto before = record();
    EXPECT_TRUE(settings.follow(1));
    auto after = record();
    EXPECT_EQ(after.settings.pollingCode, before.settings.pollingCode);
    after.settings = before.settings;
    EXPECT_EQ(std::memcmp(&after, &before, sizeof after), 0);
}

TEST_F(FollowedProfile, GivesWayToTheUsersOwnWithItsStage) {
    const auto before = record();
    EXPECT_TRUE(settings.follow(1));
    EXPECT_TRUE(settings.follow({}));
    const auto after = record();
    EXPECT_EQ(std::memcmp(&after, &before, sizeof after), 0);
    EXPECT_EQ(after.settings.stage, 2) << "not its default one";
    EXPECT_FALSE(settings.follow({})) << "nothing has changed";
}

TEST_F(FollowedProfile, StaysOverASave) {
    EXPECT_TRUE(settings.follow(1));
    save(1, list({profileInStage(u"One", 1), profileInStage(u"Two", 1)}));
    EXPECT_TRUE(settings.reload());
    EXPECT_EQ(record().settings.profileId, 2);
    EXPECT_EQ(record().settings.stage, 1) << "its new default stage";
}

TEST_F(FollowedProfile, ThatIsRemovedGivesWayToTheUsersOwn) {
    EXPECT_TRUE(settings.follow(1));
    save(1, list({profileInStage(u"One", 1)}));
    EXPECT_TRUE(settings.reload());
    EXPECT_EQ(record().settings.profileId, 1);
    EXPECT_EQ(record().settings.stage, 2);
    EXPECT_FALSE(settings.follow(7)) << "nor has it a seventh";
}

TEST_F(FollowedProfile, GivesWayToWhatWasChosenOnTheMouseBefore) {
    settings.noteRunning(2, 1);
    EXPECT_EQ(runs(), "1 2") << "the mouse runs it already";
    EXPECT_TRUE(settings.follow(0));
    EXPECT_EQ(runs(), "1 1");
    EXPECT_TRUE(settings.follow({}));
    EXPECT_EQ(runs(), "2 1");
    EXPECT_EQ(record().settings.dpiXCode, (400 - 100) / 25);
    EXPECT_TRUE(settings.follow(0));
    EXPECT_TRUE(settings.follow({}));
    EXPECT_EQ(runs(), "2 1") << "and again";
}

TEST_F(FollowedProfile, GivesWayToAStageThatWasChosenOnTheMouse) {
    settings.noteRunning(1, 3);
    EXPECT_TRUE(settings.follow(1));
    EXPECT_TRUE(settings.follow({}));
    EXPECT_EQ(runs(), "1 3");
    EXPECT_EQ(record().settings.dpiXCode, (3200 - 100) / 25);
}

TEST_F(FollowedProfile, GivesWayToAnotherThatWasChosenOnTheMouseMeanwhile) {
    EXPECT_TRUE(settings.follow(0));
    settings.noteRunning(2, 3);
    EXPECT_EQ(runs(), "1 1");
    EXPECT_TRUE(settings.follow({}));
    EXPECT_EQ(runs(), "2 3");
}

TEST_F(FollowedProfile, IsNotWhatTheUserChoseByItsOwnStages) {
    EXPECT_TRUE(settings.follow(1));
    settings.noteRunning(2, 3);
    settings.noteRunning(2, 1);
    EXPECT_TRUE(settings.follow({}));
    EXPECT_EQ(runs(), "1 2");
}

TEST_F(FollowedProfile, IsNotWhatTheUserChoseByComingBackToIt) {
    EXPECT_TRUE(settings.follow(1));
    settings.noteRunning(1, 1);
    settings.noteRunning(2, 3);
    EXPECT_TRUE(settings.follow({}));
    EXPECT_EQ(runs(), "1 2");
}

TEST_F(FollowedProfile, GivesWayToWhatThePanelChoseLast) {
    const auto profiles = list({profileInStage(u"One", 1), profileInStage(u"Two", 3)});
    settings.noteRunning(2, 1);
    EXPECT_TRUE(settings.follow(0));
    save(1, profiles, 1000);
    EXPECT_TRUE(settings.reload());
    EXPECT_TRUE(settings.follow({}));
    EXPECT_EQ(runs(), "2 1") << "a polling rate is no choice of a profile";
    EXPECT_EQ(record().settings.pollingCode, 1);
    EXPECT_TRUE(settings.follow(0));
    save(2, profiles);
    EXPECT_TRUE(settings.reload());
    EXPECT_TRUE(settings.follow({}));
    EXPECT_EQ(runs(), "2 2");
}

TEST_F(FollowedProfile, ForgetsAChoiceOfAProfileThatIsRemoved) {
    settings.noteRunning(2, 1);
    EXPECT_TRUE(settings.follow(0));
    save(1, list({profileInStage(u"One", 1)}));
    EXPECT_TRUE(settings.reload());
    EXPECT_TRUE(settings.follow({}));
    EXPECT_EQ(runs(), "1 2");
}

TEST_F(FollowedProfile, WritesNoFile) {
    const auto before = readFile(file);
    EXPECT_TRUE(settings.follow(1));
    EXPECT_TRUE(readFile(file) == before);
}

TEST_F(FollowedProfile, CanBeMatchedByItsIndexInTheRecord) {
    auto withoutButtons = profileInStage(u"None", 1);
    withoutButtons.remove("buttons");
    save(1, list({withoutButtons, profileInStage(u"Two", 3)}));
    ASSERT_TRUE(settings.reload());
    ASSERT_EQ(settings.profiles().size(), 1u);
    EXPECT_EQ(settings.profiles().dictionary(0).string("name"), u"Two");
    EXPECT_TRUE(settings.profiles().dictionary(0).dictionary("driver").boolean("profileosd"));
}

} // namespace
} // namespace quorvi::test
