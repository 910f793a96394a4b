#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tools/ToolFixture.h"

namespace quorvi::test {
namespace {

/// Every verb that reads a settings file refuses it with the same line and writes nothing.
class BadInput : public testing::Test {
  protected:
    void expectRefusedByAll(const std::string& input, const std::string& fault) {
        const std::string output = folder / "output";
        expectRefused({"encode", input, output}, input + ": " + fault);
        expectRefused({"check", input}, input + ": " + fault);
        expectRefused({"match", input, "--auto"}, input + ": " + fault);
        EXPECT_FALSE(std::filesystem::exists(output));
    }
    std::string fileWith(const std::string& bytes) {
        writeFile(folder / "input.plist", bytes);
        return folder / "input.plist";
    }

    TemporaryFolder folder;
};

TEST_F(BadInput, IsAFileThatIsNotThere) {
    expectRefusedByAll(folder / "missing.plist", "there is no such file");
    expectRefusedByAll(folder / "missing/settings.plist", "there is no such file");
}

TEST_F(BadInput, IsAnEmptyFile) {
    expectRefusedByAll(fileWith(""), "it is empty");
}

TEST_F(BadInput, IsNoPropertyList) {
    expectRefusedByAll(fileWith("hello"), "it is not a property list");
    expectRefusedByAll(fileWith(std::string(1000, '\0')), "it is not a property list");
    const std::string good = readFile(vectorPath("case-000.plist"));
    expectRefusedByAll(fileWith(good.substr(0, good.size() / 2)), "it is not a property list");
}

TEST_F(BadInput, IsNestedWithoutEnd) {
    std::string text = "<plist version=\"1.0\">";
    for (int i = 0; i < 200'000; ++i)
        text += "<array>";
    expectRefusedByAll(fileWith(text), "it is not a property list");
    for (int i = 0; i < 200'000; ++i)
        text += "</array>";
    expectRefusedByAll(fileWith(text + "</plist>"), "it is not a property list");
}

TEST_F(BadInput, IsAHugeFile) {
    const std::string path = fileWith("<plist>");
    ASSERT_EQ(truncate(path.c_str(), 1 << 30), 0);
    expectRefusedByAll(path, "it is too large for a property list");
    expectRefused(
        {"decode", path, folder / "output"}, path + ": it has 1073741824 bytes; a record has 13232");
}

TEST_F(BadInput, IsADirectory) {
    expectRefusedByAll(folder.path(), "it is a directory");
    expectRefused(
        {"decode", folder.path(), folder / "output"}, folder.path().string() + ": it is a directory");
}

TEST_F(BadInput, IsAFifoThatNobodyWritesTo) {
    const std::string path = folder / "fifo";
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    expectRefusedByAll(path, "it is not a regular file");
    expectRefused({"decode", path, folder / "output"}, path + ": it is not a regular file");
}

TEST_F(BadInput, HoldsNoTreeUnderTheKey) {
    expectRefusedByAll(
        fileWith("<plist version=\"1.0\"><array/></plist>"), "its property list is not a dictionary");
    expectRefusedByAll(fileWith("<plist version=\"1.0\"><dict><key>Quorvi</key><dict/></dict></plist>"),
        "it has no dictionary under the key \"quorvi\"");
    expectRefusedByAll(fileWith("<plist version=\"1.0\"><dict><key>quorvi</key><array/></dict></plist>"),
        "it has no dictionary under the key \"quorvi\"");
}

TEST_F(BadInput, IsReportedOnOneLineWhateverItsName) {
    expectRefused({"check", "two\nlines"}, "two?lines: there is no such file");
    expectRefused({"check", ""}, "\"\": there is no such file");
    expectRefused({"match", ""}, "\"\": there is no such file");
}

} // namespace
} // namespace quorvi::test
