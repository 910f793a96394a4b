// The profile for an application, by the data that the panel stored.
#include "helper/front/FollowedProfile.h"

#include <gtest/gtest.h>

#include "model/Trees.h"

namespace quorvi::test {
namespace {

using front::FollowedProfile;
using front::FrontApplication;
using front::profileFor;

plist::Dictionary bound(const char16_t* application, const char16_t* identifier, const char16_t* executable,
    bool automatic = true) {
    return dict({{"name", u"Any"},
        {"driver", dict({{"application", application}, {"identifier", identifier}, {"signature", u""},
                       {"executable", executable}, {"autoswitch", automatic}})}});
}

FrontApplication drawing() {
    FrontApplication application;
    application.shownName = "Zeichnen";
    application.identifier = "org.example.Drawing";
    application.name = "Drawing";
    application.executable = "drawing";
    application.windowClass = "Drawing";
    application.programs = {"drawing-bin"};
    return application;
}

FrontApplication program(const std::string& name) {
    FrontApplication application;
    application.shownName = "Window";
    application.windowClass = "Window";
    application.programs = {name};
    return application;
}

TEST(ProfileThatFollows, IsBoundToTheApplicationsEntry) {
    const auto profiles = list({bound(u"Writing", u"org.example.Writing", u"writing"),
        bound(u"Drawing", u"org.example.Drawing", u"drawing")});
    EXPECT_EQ(profileFor(profiles, drawing()), (FollowedProfile{1, "Zeichnen"}));
}

TEST(ProfileThatFollows, SwitchesByItself) {
    const auto profiles = list({bound(u"Drawing", u"org.example.Drawing", u"drawing", false)});
    EXPECT_EQ(profileFor(profiles, drawing()), FollowedProfile{});
}

TEST(ProfileThatFollows, IsNoneForAnApplicationThatNobodyBound) {
    const auto profiles =
        list({bound(u"Writing", u"org.example.Writing", u"writing"), dict({{"name", u"Unbound"}})});
    EXPECT_EQ(profileFor(profiles, drawing()), FollowedProfile{});
    EXPECT_EQ(profileFor(profiles, FrontApplication{}), FollowedProfile{});
    EXPECT_EQ(profileFor(plist::Array(), drawing()), FollowedProfile{});
}

TEST(ProfileThatFollows, IsStillFoundWhenItsEntryGotAnotherNameOrProgram) {
    const auto profiles = list({bound(u"Drawing 2", u"org.example.Drawing", u"drawing-2")});
    EXPECT_EQ(profileFor(profiles, drawing()).profile, 0);
}

TEST(ProfileThatFollows, IsNotTakenForAnotherEntryOfTheSameProgram) {
    auto other = drawing();
    other.identifier = "org.example.Other";
    other.name = "Other";
    other.executable = "flatpak";
    other.programs = {"flatpak", "bwrap"};
    const auto profiles = list({bound(u"Drawing", u"org.example.Drawing", u"flatpak")});
    EXPECT_EQ(profileFor(profiles, other), FollowedProfile{});
    other.identifier = "org.example.Drawing";
    EXPECT_EQ(profileFor(profiles, other).profile, 0);
}

TEST(ProfileThatFollows, MayBeBoundToAProgramWithoutAnEntry) {
    const auto profiles = list({bound(u"solver", u"", u"solver")});
    EXPECT_EQ(profileFor(profiles, program("solver")), (FollowedProfile{0, "solver"}));
    EXPECT_EQ(profileFor(profiles, program("solver2")), FollowedProfile{});
    auto entry = drawing(); // a file was chosen although it has an entry
    entry.programs = {"solver"};
    EXPECT_EQ(profileFor(profiles, entry), (FollowedProfile{0, "Zeichnen"}));
}

TEST(ProfileThatFollows, IsKnownByTheProgramOfAnEntryThatIsGone) {
    const auto profiles = list({bound(u"Solver", u"org.example.Solver", u"solver")});
    EXPECT_EQ(profileFor(profiles, program("solver")), (FollowedProfile{0, "Solver"}));
}

TEST(ProfileThatFollows, IsNotFoundByAProgramThatRunsOthers) {
    const auto profiles = list({bound(u"Solver", u"org.example.Solver", u"sh")});
    EXPECT_EQ(profileFor(profiles, program("sh")), FollowedProfile{});
}

TEST(ProfileThatFollows, MayBeBoundToAFileThatTheWindowIsNamedAfter) {
    auto window = program("");
    window.windowName = "solver";
    EXPECT_EQ(profileFor(list({bound(u"solver", u"", u"solver")}), window).profile, 0);
    window.windowName = "";
    window.windowClass = "solver";
    EXPECT_EQ(profileFor(list({bound(u"solver", u"", u"solver")}), window).profile, 0);
}

TEST(ProfileThatFollows, IsThatOfAGameWhateverItsProgramIs) {
    auto game = program("reaper");
    game.games = {"steam_app_440"};
    const auto profiles =
        list({bound(u"Race", u"steam_app_44", u"steam"), bound(u"Hats", u"steam_app_440", u"steam")});
    EXPECT_EQ(profileFor(profiles, game), (FollowedProfile{1, "Hats"}));
}

TEST(ProfileThatFollows, IsThatOfAGameThatRunsUnderWine) {
    auto game = program("Race.exe");
    game.windowClass = "race.exe";
    const auto profiles = list({bound(u"Race", u"lutris-race", u"Race.exe")});
    EXPECT_EQ(profileFor(profiles, game), (FollowedProfile{0, "Race"}));
}

TEST(ProfileThatFollows, IsTheOneThatAgreesOnMore) {
    const auto profiles =
        list({bound(u"Drawing", u"", u""), bound(u"Drawing", u"org.example.Drawing", u"drawing")});
    EXPECT_EQ(profileFor(profiles, drawing()).profile, 1);
}

} // namespace
} // namespace quorvi::test
