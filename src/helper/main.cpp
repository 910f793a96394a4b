#include <cstdio>
#include <string_view>

#include "events/EventLoop.h"
#include "helper/Helper.h"
#include "helper/ProfileFollower.h"

namespace {

int fail(const char* reason) {
    std::fprintf(stderr, "KyvarQuorviHelper: %s\n", reason);
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 2 && std::string_view(argv[1]) == "--version") {
        std::puts("KyvarQuorviHelper " QUORVI_VERSION);
        return 0;
    }
    quorvi::EventLoop loop;
    const auto bus = quorvi::EventBus::connect();
    if (!bus)
        return fail("there is no session bus, or it does not answer");
    quorvi::Helper helper(*bus, loop, quorvi::SettingsFiles::ofThisProcess(), quorvi::chosenMicePath());
    quorvi::ProfileFollower follower(*bus, loop, helper);
    switch (helper.start()) {
    case quorvi::NameResult::owned:
        follower.start();
        loop.run(*bus);
        return 0;
    case quorvi::NameResult::taken:
        return 0; // another helper is running
    default:
        return fail("the session bus does not let it take its name");
    }
}
