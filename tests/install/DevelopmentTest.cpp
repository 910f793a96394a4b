// Programs for the device side build against the installed files alone.
#include "install/Installed.h"

namespace quorvi::test {

namespace {

constexpr const char* kSettings = QUORVI_SOURCE "/src/resources/Defaults.plist";
/// The mouse as it is delivered.
constexpr const char* kShown = "13232 bytes, profile 1, stage 2, 800 x 800 DPI\n"
                               "button 1: command 1, 0, 0\n"
                               "button 2: command 2, 0, 0\n"
                               "button 3: command 3, 0, 0\n"
                               "button 4: command 5, 0, 0\n"
                               "button 5: command 6, 0, 0\n"
                               "button 6: command 16, 0, 0\n"
                               "button 7: command 17, 0, 0\n"
                               "button 8: command 8, 0, 0\n"
                               "button 9: command 9, 0, 0\n";

} // namespace

class Development : public Installed {
  protected:
    void SetUp() override { install("development"); }
};

TEST_F(Development, TheExampleBuildsWithTheInstalledCMakePackageAndShowsARecord) {
    const auto build = m_folder.path("example");
    ASSERT_TRUE(succeeds({QUORVI_CMAKE, "-S", QUORVI_SOURCE "/examples/device-side", "-B", build,
        "-DCMAKE_PREFIX_PATH=" + m_folder.path().string()}));
    ASSERT_TRUE(succeeds({QUORVI_CMAKE, "--build", build}));
    const auto shown = runProgram({build + "/show-record", kSettings});
    EXPECT_EQ(shown.exitCode, 0) << shown.error;
    EXPECT_EQ(shown.output, kShown);
}

TEST_F(Development, TheExampleRefusesWhatHoldsNoSettings) {
    const auto program = m_folder.path("show-record");
    ASSERT_TRUE(succeeds(
        {"sh", "-c",
            std::string(QUORVI_COMPILER " -o \"$0\" " QUORVI_SOURCE "/examples/device-side/show-record.cpp "
                                        "$(pkg-config --cflags --libs kyvar-quorvi)"),
            program},
        {"PKG_CONFIG_PATH=" + m_folder.path("lib/pkgconfig")}));
    EXPECT_EQ(runProgram({program, "/dev/null"}).exitCode, 1);
    EXPECT_EQ(runProgram({program, kSettings}).exitCode, 0);
}

TEST_F(Development, OnlyPublicHeadersAreInstalled) {
    for (const auto* header : {"plist/Value.h", "model/ConfigMapping.h", "keyboard/KeyNames.h"})
        EXPECT_TRUE(files().contains(std::string("include/kyvar-quorvi/") + header)) << header;
    for (const auto* header : {"plist/Node.h", "model/SharedFile.h", "keyboard/KeyTables.h"})
        EXPECT_FALSE(files().contains(std::string("include/kyvar-quorvi/") + header)) << header;
}

TEST_F(Development, EveryInstalledHeaderFindsWhatItIncludes) {
    std::string source;
    for (const auto& file : files())
        if (file.ends_with(".h"))
            source += "#include \"" + file.substr(std::string("include/kyvar-quorvi/").size()) + "\"\n";
    ASSERT_NE(source, "");
    const auto all = m_folder.write("all.cpp", source);
    EXPECT_TRUE(succeeds(
        {QUORVI_COMPILER, "-std=c++20", "-fsyntax-only", "-I", m_folder.path("include/kyvar-quorvi"), all}));
}

} // namespace quorvi::test
