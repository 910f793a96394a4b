#include "tools/ToolFixture.h"

namespace quorvi::test {
namespace {

TEST(CommandLine, WithoutAVerbOrWithAnUnknownOneIsMisused) {
    expectMisused({}, "no command given");
    expectMisused({"explode"}, "unknown command explode");
    expectMisused({"Encode", "a", "b"}, "unknown command Encode");
    expectMisused({"-h"}, "unknown command -h");
}

TEST(CommandLine, WithTooFewOrTooManyArgumentsIsMisused) {
    expectMisused({"encode", "a"}, "encode takes SETTINGS.plist RECORD.bin");
    expectMisused({"encode", "a", "b", "c"}, "encode takes SETTINGS.plist RECORD.bin");
    expectMisused({"decode"}, "decode takes RECORD.bin SETTINGS.plist");
    expectMisused({"check"}, "check takes SETTINGS.plist");
    expectMisused({"check", "a", "b"}, "check takes SETTINGS.plist");
    expectMisused({"devices", "all"}, "devices takes no arguments");
    expectMisused({"attach", "1"}, "attach takes no arguments");
    expectMisused({"detach", "1"}, "detach takes no arguments");
}

TEST(CommandLine, GivesHelpAndVersionOnStandardOutput) {
    const auto help = quorvictl({"--help"});
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_EQ(help.error, "");
    for (const char* line :
        {"usage: quorvictl encode SETTINGS.plist RECORD.bin\n",
            "       quorvictl decode RECORD.bin SETTINGS.plist\n", "       quorvictl check SETTINGS.plist\n",
            "       quorvictl match SETTINGS.plist [--auto] [--application A] [--identifier I]",
            " [--signature S] [--executable E]\n", "       quorvictl commands\n",
            "       quorvictl key-name CODE [MASK]\n", "       quorvictl usb-to-adb USAGE\n",
            "       quorvictl adb-to-usb CODE\n", "       quorvictl devices\n", "       quorvictl attach\n",
            "       quorvictl detach\n", "       quorvictl press INPUT\n", "       quorvictl release INPUT\n",
            "       quorvictl watch\n", "       quorvictl apply FILE [SETTINGS.plist] [--check]\n",
            "       quorvictl --json check|apply|profiles|macros|history|commands|devices|mice ...\n"})
        EXPECT_NE(help.output.find(line), std::string::npos) << line;
    expectDone({"--version"}, "quorvictl " QUORVI_VERSION "\n");
}

TEST(CommandLine, FailsWhenItsOutputCannotBeWritten) {
    const auto result = runProgram({"sh", "-c", "exec \"$0\" --help > /dev/full", QUORVI_QUORVICTL});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.error, "quorvictl: the output cannot be written\n");
}

} // namespace
} // namespace quorvi::test
