// The bus object for the application in front.
#include "events/FrontInterface.h"
#include "events/Introspection.h"
#include "helper/front/FollowingHelper.h"

namespace quorvi::test {
namespace {

using TellingHelper = FollowingHelper;

TEST_F(TellingHelper, OffersWhatItsDescriptionSays) {
    start();
    EXPECT_EQ(
        interfaceElement(fileText(QUORVI_EVENTS_SOURCE "/com.kyvar.Front1.xml"), frontinterface::kInterface),
        interfaceElement(introspect(psn, frontinterface::kPath), frontinterface::kInterface));
}

TEST_F(TellingHelper, NamesADesktopThatDoesNotTell) {
    surroundings = {"XDG_CURRENT_DESKTOP=Shelf:Board", "XDG_SESSION_TYPE=wayland", "DISPLAY=:0"};
    start();
    EXPECT_EQ(said("Desktop"), "Shelf");
    EXPECT_EQ(said("FrontSource"), "");
    EXPECT_EQ(said("FrontApplication"), "");
}

TEST_F(TellingHelper, TakesNoReportsOfAnybodyButTheDesktop) {
    surroundings = {"XDG_SESSION_TYPE=wayland"};
    start();
    const auto forged = runProgram({"busctl", "--user", "call", "com.kyvar.KyvarQuorviHelper",
        "/com/kyvar/Front", "com.kyvar.FrontReport1", "Window", "sssi", writing, "", "", "0"});
    EXPECT_EQ(forged.exitCode, 1);
    EXPECT_NE(forged.error.find("Access denied"), std::string::npos) << forged.error;
    EXPECT_EQ(said("FrontApplication"), "");
    EXPECT_EQ(profile(), usersOwn);
}

} // namespace
} // namespace quorvi::test
