// The verbs for the mice of this computer, with the real helper and a stand-in for the system's service.
#include "helper/support/StandInService.h"
#include "support/EnvironmentVariable.h"
#include "support/WaitUntil.h"
#include "tools/PrintedJson.h"
#include "tools/RunningHelper.h"

namespace quorvi::test {
namespace {

class Mice : public RunningHelper {
  protected:
    PrivateBus systemBus;
    EnvironmentVariable session{"DBUS_SESSION_BUS_ADDRESS", privateBus.address()};
    EnvironmentVariable system{"DBUS_SYSTEM_BUS_ADDRESS", systemBus.address()};
};

TEST_F(Mice, AreListedUsedAndForgotten) {
    const StandInService service(
        {{"1e7d:2dcb:one"}, {.id = "1e7d:2dcc:two", .name = "Other", .product = 0x2dcc, .dpi = 3200}});
    const auto preferences = home / "Library/Preferences";
    std::filesystem::create_directories(preferences);
    std::filesystem::copy_file(
        QUORVI_TEST_DATA "/vectors/case-000.plist", preferences / "com.kyvar.quorvi.settings.plist");
    startHelper();
    expectDone({"mice"}, "1e7d:2dcb:one\tunused\t-\t-\tTest mouse\n1e7d:2dcc:two\tunused\t-\t3200\tOther\n");
    expectJson({"mice", "--json"},
        R"({"mice":[{"id":"1e7d:2dcb:one","state":"unused","connection":null,"dpi":null,"name":"Test mouse"},
                    {"id":"1e7d:2dcc:two","state":"unused","connection":null,"dpi":3200,"name":"Other"}]})");
    expectDone({"use", "1e7d:2dcb:one"}, "");
    EXPECT_TRUE(waitUntil(
        [&] { return quorvictl({"mice"}).output.starts_with("1e7d:2dcb:one\tdriven\t-\t-\tTest mouse\n"); }));
    expectDone({"forget", "1e7d:2dcb:one"}, "");
    EXPECT_TRUE(waitUntil([&] { return service.countOf("Forget 1e7d:2dcb:one") == 1; }));
    expectRefused({"use", "three"}, "there is no mouse three; quorvictl mice lists them");
    expectMisused({"use"}, "use takes MOUSE");
    expectMisused({"mice", "1"}, "mice takes no arguments");
}

TEST_F(Mice, AreNoneWithoutTheService) {
    startHelper();
    expectDone({"mice"}, "");
    expectRefused({"forget", "1e7d:2dcb:one"}, "there is no mouse 1e7d:2dcb:one; quorvictl mice lists them");
}

TEST_F(Mice, NeedARunningHelper) {
    for (const auto& verb : {std::vector<std::string>{"mice"}, {"use", "one"}, {"forget", "one"}})
        expectRefused(verb, "KyvarQuorviHelper is not running");
}

} // namespace
} // namespace quorvi::test
