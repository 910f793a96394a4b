#include <algorithm>
#include <set>
#include <sstream>

#include "tools/ToolFixture.h"

namespace quorvi::test {
namespace {

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

TEST(Commands, AreListedInTheOrderOfTheMenus) {
    const auto result = quorvictl({"commands"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.error, "");
    const auto lines = linesOf(result.output);
    ASSERT_EQ(lines.size(), 46u);
    EXPECT_EQ(lines[0], "1\tbuttons\tClicks\tPrimary Click");
    EXPECT_EQ(lines[4], "5\tbuttons and wheel\tClicks\tBack");
    EXPECT_EQ(lines[6], "8\tbuttons and wheel\tScrolling\tScroll Up");
    EXPECT_EQ(lines[13], "19\tbuttons\tSensitivity\tLowest Stage While Held");
    EXPECT_EQ(lines[42], "34\tbuttons and wheel\tYour own\tSwitch to Profile");
    EXPECT_EQ(lines[45], "0\tbuttons and wheel\tOff\tNo Function");
}

TEST(Commands, HaveACodeOfTheirOwnThatFitsAByte) {
    std::set<int> codes;
    for (const std::string& line : linesOf(quorvictl({"commands"}).output)) {
        const int code = std::stoi(line.substr(0, line.find('\t')));
        EXPECT_TRUE(codes.insert(code).second) << line;
        EXPECT_TRUE(code >= 0 && code <= 255) << line;
        EXPECT_EQ(std::count(line.begin(), line.end(), '\t'), 3) << line;
    }
    for (const int known : {0, 1, 34, 49, 65})
        EXPECT_TRUE(codes.contains(known)) << known;
}

TEST(Commands, TakesNoArguments) {
    expectMisused({"commands", "all"}, "commands takes no arguments");
}

} // namespace
} // namespace quorvi::test
