// The memory protections compiled into the programs, read from the installed files.
#include <sstream>

#include "install/Installed.h"

namespace quorvi::test {

namespace {

class Hardening : public Installed {
  protected:
    void SetUp() override { install("panel"); }

    /// Every file that the system runs or loads.
    [[nodiscard]] std::vector<std::string> binaries() const {
        std::vector<std::string> found;
        for (const auto& file : files())
            if (m_folder.read(file).starts_with("\x7F"
                                                "ELF"))
                found.push_back(file);
        return found;
    }
    [[nodiscard]] std::string said(const std::string& binary, const std::vector<std::string>& options) const {
        std::vector<std::string> command{"readelf", "--wide"};
        command.insert(command.end(), options.begin(), options.end());
        command.push_back(m_folder.path(binary));
        const auto result = runProgram(command, {"LC_ALL=C"});
        EXPECT_EQ(result.exitCode, 0) << result.error;
        return result.output;
    }
};

bool holds(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

} // namespace

TEST_F(Hardening, TheProgramsAndThePlugInAreLookedAt) {
    const auto found = binaries();
    EXPECT_EQ(std::set<std::string>(found.begin(), found.end()),
        (std::set<std::string>{"bin/quorvi-settings", "bin/quorvictl", kBundle + "Linux/KyvarQuorvi.so",
            kBundle + "Resources/KyvarQuorviHelper.app/Contents/Linux/KyvarQuorviHelper"}));
}

TEST_F(Hardening, EveryAddressIsKnownAtTheStartAndWrittenToNoMore) {
    for (const auto& binary : binaries()) {
        EXPECT_TRUE(holds(said(binary, {"--program-headers"}), "GNU_RELRO")) << binary;
        const std::string dynamic = said(binary, {"--dynamic"});
        EXPECT_TRUE(holds(dynamic, "BIND_NOW") || holds(dynamic, "Flags: NOW")) << binary;
    }
}

TEST_F(Hardening, NoPlaceInMemoryIsFixedAndNoneIsBothWrittenToAndRun) {
    for (const auto& binary : binaries()) {
        EXPECT_TRUE(holds(said(binary, {"--file-header"}), "DYN (")) << binary;
        std::istringstream headers(said(binary, {"--program-headers"}));
        for (std::string line; std::getline(headers, line);)
            if (holds(line, "LOAD") || holds(line, "GNU_STACK")) {
                EXPECT_FALSE(holds(line, "RWE")) << binary << line;
            }
    }
}

TEST_F(Hardening, TheStackIsGuarded) {
    for (const auto& binary : binaries())
        EXPECT_TRUE(holds(said(binary, {"--dyn-syms"}), "__stack_chk_fail")) << binary;
}

#ifdef QUORVI_FORTIFIED
TEST_F(Hardening, CallsOfTheCLibraryLookAtTheRoomThatTheyHave) {
    for (const auto& binary : binaries())
        EXPECT_TRUE(holds(said(binary, {"--dyn-syms"}), "_chk@GLIBC")) << binary;
}
#endif

#ifdef __CET__
// The file's note says it only where the C library's own start files are marked as well, so the code is
// looked at.
TEST_F(Hardening, FunctionsAreEnteredAtTheirBeginning) {
    const std::string endbr64 = "\xF3\x0F\x1E\xFA";
    for (const auto& binary : binaries()) {
        const std::string code = m_folder.read(binary);
        int marks = 0;
        for (auto at = code.find(endbr64); at != std::string::npos; at = code.find(endbr64, at + 1))
            ++marks;
        EXPECT_GT(marks, 20) << binary; // a handful come with the compiler's own parts
    }
}
#endif

} // namespace quorvi::test
