// Profiles chosen with a mouse button, while others follow the application in front.
#include "events/HelperCalls.h"
#include "helper/front/FollowingHelper.h"
#include "helper/front/X11Display.h"
#include "model/Trees.h"
#include "plist/Reader.h"
#include "plist/Writer.h"
#include "support/Files.h"

namespace quorvi::test {
namespace {

constexpr std::uint8_t kSideButton = 4;
constexpr int kNextProfile = 32;

class ChosenOnMouse : public FollowingHelper {
  protected:
    ChosenOnMouse() {
        surroundings = {"DISPLAY=" + display.name()};
        letSideButtonChooseTheNextProfile();
        start();
    }
    void chooseNext() {
        EXPECT_EQ(pressSimulatedMouse(*bus, psn, kSideButton), noErr);
        EXPECT_EQ(releaseSimulatedMouse(*bus, psn, kSideButton), noErr);
    }

    /// Why the profile runs, as the panel says it.
    [[nodiscard]] std::string reason() const {
        HelperState state;
        EXPECT_EQ(getHelperState(*bus, psn, state), noErr);
        return state.frontReason;
    }

    X11Display display{folder.path()};

  private:
    void letSideButtonChooseTheNextProfile() const {
        const auto file = plist::readPropertyListFile(userSettings).value;
        const auto profiles = file.dictionary().dictionary("quorvi").array("profiles");
        for (std::size_t i = 0; i < profiles.size(); ++i)
            profiles.dictionary(i).dictionary("buttons").set("04", assignment(kNextProfile, 0, 0));
        writeFile(userSettings, plist::writeXml(file).value());
    }
};

TEST_F(ChosenOnMouse, IsRunAgainWhenTheApplicationInFrontHasNone) {
    chooseNext();
    EXPECT_TRUE(comesToRun(ofDrawing));
    (void)display.windows().open(writing);
    EXPECT_TRUE(comesToRun(ofWriting));
    (void)display.windows().open(other);
    EXPECT_TRUE(comesToRun(ofDrawing));
}

TEST_F(ChosenOnMouse, HoldsOverTheOneThatFollowsUntilAnotherApplicationComesToTheFront) {
    const auto window = display.windows().open(drawing);
    EXPECT_TRUE(comesToRun(ofDrawing));
    EXPECT_EQ(reason(), "Drawing");
    chooseNext();
    EXPECT_TRUE(comesToRun(ofWriting));
    EXPECT_EQ(reason(), "") << "its user has chosen it";
    const auto another = display.windows().open(other);
    EXPECT_TRUE(comesToSay("FrontApplication", "Other"));
    EXPECT_EQ(profile(), ofWriting);
    display.windows().close(another);
    display.windows().bringToFront(window);
    EXPECT_TRUE(comesToRun(ofDrawing));
    EXPECT_EQ(reason(), "Drawing");
}

TEST_F(ChosenOnMouse, IsSaidToFollowOnceItsApplicationIsInFront) {
    chooseNext();
    EXPECT_TRUE(comesToRun(ofDrawing));
    int news = 0;
    const auto listener = HelperListener::listen(*bus, psn, {{}, [&] { ++news; }, {}, {}});
    ASSERT_NE(listener, nullptr);
    (void)display.windows().open(drawing);
    EXPECT_TRUE(waitFor(*bus, [&] { return news > 0; }));
    EXPECT_EQ(reason(), "Drawing");
    EXPECT_EQ(profile(), ofDrawing);
}

} // namespace
} // namespace quorvi::test
