// The object that says which application is in front.
#include "events/Introspection.h"
#include "helper/front/FollowingHelper.h"
#include "platform/events/FrontInterface.h"

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

} // namespace
} // namespace quorvi::test
