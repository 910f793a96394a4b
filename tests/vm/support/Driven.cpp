#include "vm/support/Driven.h"

#include <algorithm>

namespace quorvi::test {

bool waitUntilDriven(FakeMouse& mouse, Desk& desk) {
    const bool driven = desk.waitUntil([&] {
        mouse.move(2, 0);
        mouse.move(-2, 0);
        desk.look();
        return std::ranges::any_of(
            desk.events(), [](const Desk::Event& event) { return event.device == "Quorvi virtual pointer"; });
    });
    // What was moved is behind us when this notch has come.
    mouse.send({{FakeMouse::Part{EV_REL, REL_HWHEEL, 1}}});
    const bool arrived = desk.waitUntil([&] { return desk.sum(REL_HWHEEL) == 1; });
    desk.forget();
    return driven && arrived;
}

} // namespace quorvi::test
