#include <csignal>

#include "events/DeviceList.h"
#include "tools/PrintedJson.h"
#include "tools/RunningHelper.h"

namespace quorvi::test {
namespace {

using Devices = RunningHelper;

constexpr char kMouse[] =
    "0: vendor 0x1209, product 0x0001, release 1.00, interface 0, power 100 mA, location 0x00100000\n";

TEST_F(Devices, ArePrintedAsTheHelperReportsThem) {
    startHelper();
    expectDone({"devices"}, kMouse);
    expectDone({"detach"}, "");
    expectDone({"devices"}, "");
    expectDone({"detach"}, "");
    expectDone({"attach"}, "");
    expectDone({"devices"}, kMouse);
}

TEST_F(Devices, AreAnObjectForScripts) {
    startHelper();
    expectJson({"devices", "--json"},
        R"({"devices":[{"index":0,"vendor":4617,"product":1,"release":"1.00","interface":0,"power":100,
                        "location":1048576}]})");
    expectDone({"detach"}, "");
    expectJson({"--json", "devices"}, R"({"devices":[]})");
}

TEST_F(Devices, ArePrintedEightAtMost) {
    const Participant many("KyvarQuorviHelper", [](EventBus& own) {
        own.installHandler(kEventClassQuorvi, kEventCommand,
            [&own](const Event&, const ProcessSerialNumber& sender, Event&) {
                DeviceList list;
                list.count = 65535;
                list.device[7].locationID = 0x80000001;
                return own.send(sender, makeDeviceListEvent(list));
            });
    });
    const auto result = quorvictl({"devices"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(std::count(result.output.begin(), result.output.end(), '\n'), 8);
    EXPECT_TRUE(result.output.ends_with("location 0x80000001\n"));
}

TEST_F(Devices, NeedARunningHelper) {
    for (const char* verb : {"devices", "attach", "detach"})
        expectRefused({verb}, "KyvarQuorviHelper is not running");
    EXPECT_EQ(
        printedJson({"devices", "--json"}, 1), jsonObject(R"({"error":"KyvarQuorviHelper is not running"})"));
}

TEST_F(Devices, NeedABus) {
    setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus", 1);
    for (const char* verb : {"devices", "attach", "detach"})
        expectRefused({verb}, "there is no session bus, or it does not answer");
}

TEST_F(Devices, NeedAHelperThatHasASimulatedMouse) {
    const Participant other("KyvarQuorviHelper");
    for (const char* verb : {"attach", "detach"})
        expectRefused({verb}, "KyvarQuorviHelper has no simulated mouse");
}

TEST_F(Devices, NeedAHelperThatAnswers) {
    startHelper();
    helper->signal(SIGSTOP);
    for (const char* verb : {"devices", "attach", "detach"}) {
        const auto result = quorvictl({verb});
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.error, "quorvictl: KyvarQuorviHelper does not answer\n");
        EXPECT_GE(result.duration, std::chrono::seconds(1));
        EXPECT_LT(result.duration, std::chrono::seconds(3));
    }
    helper->signal(SIGCONT);
    expectDone({"attach"}, "");
}

} // namespace
} // namespace quorvi::test
