// The program without a mouse, and its installed files.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "events/InputdInterface.h"
#include "events/Introspection.h"
#include "support/ChildProcess.h"
#include "support/TemporaryFolder.h"

namespace quorvi::inputd {
namespace {

using test::runProgram;

TEST(Inputd, SaysHowItIsUsedWhenItIsUsedInAnotherWay) {
    const std::vector<std::vector<std::string>> wrong{{"--device"}, {"--device", "/dev/null"},
        {"--record", "x"}, {"--device", "/dev/null", "--record", "x", "--sensor-dpi", "99"},
        {"--device", "/dev/null", "--record", "x", "--sensor-dpi", "64001"},
        {"--device", "/dev/null", "--record", "x", "--sensor-dpi", "many"}, {"--unheard", "x"}, {"x"}};
    for (auto arguments : wrong) {
        arguments.insert(arguments.begin(), QUORVI_INPUTD);
        const auto result = runProgram(arguments);
        EXPECT_EQ(result.exitCode, 2) << arguments.back();
        EXPECT_TRUE(result.error.starts_with("usage: quorvi-inputd")) << result.error;
    }
}

TEST(Inputd, SaysInOneLineThatADeviceOrARecordCannotBeHad) {
    const test::TemporaryFolder folder;
    const auto record = folder.path("record");
    std::ofstream(record) << "too short";
    auto result = runProgram({QUORVI_INPUTD, "--device", "/dev/null", "--record", record});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(
        result.error, "quorvi-inputd: " + record + ": it is not a record of 13232 bytes with a profile\n");
    // Of 13232 bytes, with profile 1 alone: the names of the others are all 0xFF.
    std::string bytes(13232, '\0');
    for (std::size_t slot = 0; slot < 5; ++slot) {
        bytes[212 + 56 * slot] = static_cast<char>(slot + 1);
        if (slot > 0)
            bytes.replace(8 + 41 * slot, 40, 40, '\xFF');
    }
    std::ofstream(record, std::ios::binary) << bytes;
    result = runProgram({QUORVI_INPUTD, "--device", "/nonexistent", "--record", record});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.error, "quorvi-inputd: /nonexistent: No such file or directory\n");
    result = runProgram({QUORVI_INPUTD, "--device", "/dev/null", "--record", record});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.error, "quorvi-inputd: /dev/null: it is not an input device\n");
}

TEST(Inputd, EndsWithOneLineWhereThereIsNoSystemBus) {
    const auto result = runProgram({QUORVI_INPUTD}, {"DBUS_SYSTEM_BUS_ADDRESS=unix:path=/nonexistent"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.error, "quorvi-inputd: there is no system bus\n");
}

/// The unit, as an installation would have it, with a program that is there.
std::string unitIn(const test::TemporaryFolder& folder) {
    auto unit = test::fileText(QUORVI_INPUTD_SYSTEM "/quorvi-inputd.service.in");
    const std::string placeholder = "@QUORVI_INPUTD@";
    unit.replace(unit.find(placeholder), placeholder.size(), QUORVI_INPUTD);
    auto path = folder.path("quorvi-inputd.service");
    std::ofstream(path) << unit;
    return path;
}

TEST(InputdUnit, IsExposedToLessThanTwoOfTenBySystemdsOwnMeasure) {
    const test::TemporaryFolder folder;
    const auto result =
        runProgram({"systemd-analyze", "security", "--offline=true", "--threshold=19", unitIn(folder)});
    EXPECT_EQ(result.exitCode, 0) << result.output << result.error;
    EXPECT_NE(result.output.find("Overall exposure level"), std::string::npos);
}

TEST(InputdUnit, IsOneThatSystemdUnderstands) {
    const test::TemporaryFolder folder;
    const auto result = runProgram({"systemd-analyze", "verify", "--man=false", unitIn(folder)});
    EXPECT_EQ(result.error.find("quorvi-inputd.service:"), std::string::npos) << result.error;
}

TEST(InputdFiles, OfTheBusAndOfPolkitAreWellFormedAndNameTheService) {
    for (const char* file : {"com.kyvar.Inputd1.conf", "com.kyvar.inputd.policy"})
        EXPECT_EQ(runProgram({"xmllint", "--nonet", "--noout", std::string(QUORVI_INPUTD_SYSTEM "/") + file})
                      .exitCode,
            0)
            << file;
    EXPECT_NE(test::fileText(QUORVI_INPUTD_SYSTEM "/com.kyvar.inputd.policy")
                  .find(std::string("\"") + kPolkitAction + "\""),
        std::string::npos);
    EXPECT_NE(test::fileText(QUORVI_INPUTD_SYSTEM "/com.kyvar.Inputd1.service")
                  .find(std::string("Name=") + kName + "\n"),
        std::string::npos);
}

TEST(InputdFiles, NameTheUnitsUserAsTheOwnerOfTheActionWithoutWhomPolkitRefusesToAnswer) {
    EXPECT_NE(test::fileText(QUORVI_INPUTD_SYSTEM "/quorvi-inputd.service.in").find("\nUser=quorvi-inputd\n"),
        std::string::npos);
    EXPECT_NE(
        test::fileText(QUORVI_INPUTD_SYSTEM "/com.kyvar.inputd.policy")
            .find("<annotate key=\"org.freedesktop.policykit.owner\">unix-user:quorvi-inputd</annotate>"),
        std::string::npos);
}

TEST(InputdFiles, AskInEveryLanguageOfThePanel) {
    const auto policy = test::fileText(QUORVI_INPUTD_SYSTEM "/com.kyvar.inputd.policy");
    int languages = 0;
    for (const auto& entry : std::filesystem::directory_iterator(QUORVI_RESOURCES)) {
        if (entry.path().extension() != ".lproj" || entry.path().stem() == "en")
            continue;
        ++languages;
        for (const char* element : {"description", "message"})
            EXPECT_NE(policy.find(
                          std::string("<") + element + " xml:lang=\"" + entry.path().stem().string() + "\">"),
                std::string::npos)
                << element << " in " << entry.path().stem();
    }
    EXPECT_EQ(languages, 9);
}

TEST(InputdFiles, MakeTheServicesUserAMemberOfTheGroupOfInputDevices) {
    const test::TemporaryFolder root;
    std::filesystem::create_directories(root.path("etc"));
    std::ofstream(root.path("etc/group")) << "root:x:0:\ninput:x:110:\n";
    const auto result = runProgram({"systemd-sysusers", "--root=" + root.path().string(),
        QUORVI_INPUTD_SYSTEM "/kyvar-quorvi-inputd.sysusers.conf"});
    EXPECT_EQ(result.exitCode, 0) << result.error;
    EXPECT_NE(test::fileText(root.path("etc/group")).find("input:x:110:quorvi-inputd\n"), std::string::npos);
    const auto users = test::fileText(root.path("etc/passwd"));
    EXPECT_NE(users.find("quorvi-inputd:x:"), std::string::npos) << users;
    EXPECT_NE(users.find(":/usr/sbin/nologin"), std::string::npos) << users;
}

} // namespace
} // namespace quorvi::inputd
