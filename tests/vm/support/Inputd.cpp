#include "vm/support/Inputd.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include <unistd.h>

namespace quorvi::test {

namespace {

constexpr uid_t kServiceUser = 101; // tests/vm/image
constexpr char kStateFolder[] = "/run/quorvi-inputd";

} // namespace

std::unique_ptr<ChildProcess> startInputd(const std::vector<std::string>& arguments) {
    std::filesystem::create_directories(kStateFolder);
    EXPECT_EQ(chown(kStateFolder, kServiceUser, 0), 0);
    std::vector<std::string> command{"/bin/setpriv", "--reuid=quorvi-inputd", "--regid=quorvi-inputd",
        "--groups=input", "--no-new-privs", "--bounding-set=-all", "/quorvi/quorvi-inputd"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return std::make_unique<ChildProcess>(
        command, std::vector<std::string>{std::string("STATE_DIRECTORY=") + kStateFolder});
}

std::unique_ptr<ChildProcess> startInputd(const std::string& node, const TestRecord& record) {
    return startInputd({"--device", node, "--record", fileOf(record)});
}

std::string fileOf(const TestRecord& record) {
    std::string path = "/tmp/test.record";
    const auto bytes = record.bytes();
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return path;
}

TestRecord busyRecord() {
    // A down, 20 ms, A up, 20 ms, B down, B up.
    constexpr std::uint8_t wait = 17;
    TestRecord record;
    record.function(1, 4, kSingleKey, kUsageA, kShiftBit);
    record.function(1, 5, kSingleKey, kUsageLeftControl);
    record.function(1, 6, kRunMacro, 3, 1)
        .macro(0, 3, {1, kUsageA, wait, 20, 0, kUsageA, wait, 20, 1, kUsageB, 0, kUsageB});
    record.function(1, 7, kSwitchToProfile, 2);
    record.profile(2)
        .stages(2, {{1600, 1600}})
        .function(2, 4, kSingleKey, kUsageB)
        .function(2, 7, kSwitchToProfile, 1);
    return record.active(1, 1);
}

} // namespace quorvi::test
