#include "vm/support/Serviced.h"

#include <algorithm>
#include <csignal>
#include <filesystem>

namespace quorvi::test {

void ServicedTest::SetUp() {
    std::filesystem::remove("/run/quorvi-inputd/users");
    startService();
}

void ServicedTest::startService() {
    inputd = startInputd();
    std::vector<ListedMouse> mice;
    ASSERT_TRUE(waitUntil([&] { return anna.list(mice).empty() || !inputd->isRunning(); }));
    ASSERT_TRUE(inputd->isRunning()) << inputd->readError();
}

void ServicedTest::TearDown() {
    if (inputd->isRunning()) {
        inputd->signal(SIGTERM);
        EXPECT_EQ(inputd->wait(), 0) << inputd->readError();
    }
    EXPECT_TRUE(desk.waitForNoDevice("Quorvi virtual pointer"));
    EXPECT_TRUE(desk.waitForNoDevice("Quorvi virtual keyboard"));
    EXPECT_TRUE(desk.held().empty());
}

void ServicedTest::use(FakeMouse& fake, const TestRecord& record, const std::string& name) {
    const auto id = anna.mouseNamed(name);
    ASSERT_NE(id, "");
    ASSERT_EQ(anna.use(id, record), "");
    ASSERT_TRUE(waitUntil([&] { return stateOf(id) == "driven"; })) << stateOf(id);
    ASSERT_TRUE(waitUntilDriven(fake, desk));
}

std::string ServicedTest::stateOf(const std::string& id) {
    Status status;
    const auto error = anna.status(id, status);
    return error.empty() ? status.state : error;
}

bool ServicedTest::isPlainAgain(FakeMouse& fake, const std::string& name) {
    return desk.waitUntil([&] {
        fake.move(1, 0);
        fake.move(-1, 0);
        desk.look();
        return std::ranges::any_of(desk.events(),
            [&](const Desk::Event& event) { return event.device == name && event.type == EV_REL; });
    });
}

} // namespace quorvi::test
