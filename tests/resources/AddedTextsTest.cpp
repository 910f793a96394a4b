// Texts for the user are not made by adding texts: the order of the parts would be that of English.
#include "resources/AddedTexts.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "support/Files.h"

namespace quorvi::test {
namespace {

namespace fs = std::filesystem;

using Found = std::vector<std::string>;

// They speak English only, and do not look texts up.
const std::set<std::string> kInEnglish{"engine", "host", "inputd", "tools"};
// Qt reads the filters of a panel for files in this form.
const std::set<std::string> kOfFixedForm{"FilePanels.cpp"};

TEST(AddedTexts, areNoneInTheSources) {
    int count = 0;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(QUORVI_SOURCE_ROOT)) {
        const fs::path path = fs::relative(entry.path(), QUORVI_SOURCE_ROOT);
        if (path.extension() != ".cpp" || kInEnglish.contains(path.begin()->string()) ||
            kOfFixedForm.contains(path.filename()))
            continue;
        ++count;
        for (const std::string& added : addedTextsIn(readFile(entry.path())))
            ADD_FAILURE() << path << ": " << added << " needs a pattern in the string tables";
    }
    EXPECT_GT(count, 200);
}

TEST(AddedTexts, areFoundOnEitherSide) {
    EXPECT_EQ(addedTextsIn(R"(return lookup(u"Press") + u' ' + name;)"), Found{"lookup Press"});
    EXPECT_EQ(addedTextsIn(R"(return title + m_context.text("missing");)"), Found{"text missing"});
    EXPECT_EQ(addedTextsIn(R"(line += m_text("More");)"), Found{"m_text More"});
    EXPECT_EQ(addedTextsIn(R"(a + filledText(pattern, {b}))"), Found{"filledText"});
}

TEST(AddedTexts, areFoundInVariables) {
    EXPECT_EQ(addedTextsIn(R"(void f() { const QString title = text("Profile:"); return title + name; })"),
        Found{"title"});
    EXPECT_EQ(addedTextsIn(R"(void f() { QString last = a ? text("x") : text("y"); line += last; })"),
        (Found{"last", "last"}));
    EXPECT_EQ(addedTextsIn(R"(void f() { auto title = text("x"); } int g() { return title + 1; })"), Found{});
}

TEST(AddedTexts, areFoundInPatternsOfTheSource) {
    EXPECT_EQ(addedTextsIn(R"(QStringLiteral("%1: %2").arg(text("Undo"), keys))"), Found{"text Undo"});
    EXPECT_EQ(addedTextsIn(R"(text("Stage %1").arg(text("Undo")))"), Found{"text Undo"});
}

TEST(AddedTexts, areNotWhatIsCountedOrPutIntoAPattern) {
    EXPECT_EQ(addedTextsIn(R"(const auto said = text("x"); return 2 + said.size() + n;)"), Found{});
    EXPECT_EQ(addedTextsIn(R"(filledText(text("^1 ^2"), {text("a"), QString::number(n + 1)});)"), Found{});
    EXPECT_EQ(addedTextsIn(R"(joinedText(text("^1, ^2"), names); // text("a") + text("b"))"), Found{});
}

} // namespace
} // namespace quorvi::test
