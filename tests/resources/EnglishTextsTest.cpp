// Compares the English table with the sources: it has exactly the texts that they look up.
#include <gtest/gtest.h>

#include <algorithm>

#include "resources/InterfaceFiles.h"
#include "resources/SourceTexts.h"
#include "resources/StringTables.h"
#include "support/Files.h"

namespace quorvi::test {

namespace fs = std::filesystem;

namespace {

// Functions that look a text up, and tables whose texts are looked up.
const std::set<std::string, std::less<>> kTakersOfTexts{"locString", "interfaceText", "KeyNamesLocStr",
    "lookup", "text", "m_text", "Question", "filePanel", "Entry", "Command", "TableColumn", "patternPhrase",
    "subject", "addEach", "compareSwitch", "compareLight"};

// Every UTF-16 text in it is a name of a key.
constexpr std::string_view kNamesOfKeys = "KeyNames.cpp";

// Texts that are asked for by locString() from outside, to be followed by a blank and a name. The panel
// itself uses the patterns, such as "Press ^1".
const std::set<std::string, std::less<>> kForOthers{"Press", "Release", "Press button", "Profile:", "Macro:"};

struct Source {
    std::string name;
    std::string content;
};

std::vector<Source> sources() {
    std::vector<Source> found;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(QUORVI_SOURCE_ROOT))
        if (entry.path().extension() == ".cpp" || entry.path().extension() == ".h")
            found.push_back({entry.path().filename(), readFile(entry.path())});
    return found;
}

// The panel looks up names of Info.plist by functions of the same name.
bool isText(const std::string& literal) {
    return !literal.empty() && !literal.starts_with("CFBundle");
}

} // namespace

TEST(EnglishTexts, ofTheInterfaceFilesAreInTheTable) {
    const StringTable english = readStringTable("en");
    const auto texts = textsOfInterfaceFiles();
    EXPECT_GT(texts.size(), 200U);
    for (const std::string& text : texts)
        EXPECT_TRUE(english.contains(text)) << text;
}

TEST(EnglishTexts, ofTheSourcesAreInTheTable) {
    const StringTable english = readStringTable("en");
    int count = 0;
    for (const Source& source : sources()) {
        auto literals = literalsGivenTo(kTakersOfTexts, source.content);
        if (source.name == kNamesOfKeys)
            std::ranges::copy_if(literalsIn(source.content), std::back_inserter(literals), &Literal::isUtf16);
        for (const Literal& literal : literals) {
            if (!isText(literal.text))
                continue;
            EXPECT_TRUE(english.contains(literal.text)) << source.name << ": " << literal.text;
            ++count;
        }
    }
    EXPECT_GT(count, 130);
}

TEST(EnglishTexts, areUsed) {
    std::set<std::string> used;
    for (const std::string& text : textsOfInterfaceFiles())
        used.insert(text);
    for (const Source& source : sources())
        for (const Literal& literal : literalsIn(source.content))
            used.insert(literal.text);
    for (const auto& [key, text] : readStringTable("en"))
        EXPECT_TRUE(used.contains(key) || kForOthers.contains(key)) << key << " is not used";
}

TEST(SourceTexts, areReadAsTheCompilerReadsThem) {
    const auto literals = literalsIn(R"(f("a\r\"b" "c"); // "comment"
        /* "comment" */ g(u"d", '"', 10'000, "½…");)");
    ASSERT_EQ(literals.size(), 3U);
    EXPECT_EQ(literals[0].text, "a\r\"bc");
    EXPECT_FALSE(literals[0].isUtf16);
    EXPECT_EQ(literals[1].text, "d");
    EXPECT_TRUE(literals[1].isUtf16);
    EXPECT_EQ(literals[2].text, "½…");
}

TEST(SourceTexts, areGivenToANameByItsParentheses) {
    const auto literals = literalsGivenTo(
        {"text", "Entry"}, R"(text(b ? Q("x") : Q("y")) + "n"; setText("n"); Entry{1, "z"};)");
    ASSERT_EQ(literals.size(), 3U);
    EXPECT_EQ(literals[0].text, "x");
    EXPECT_EQ(literals[1].text, "y");
    EXPECT_EQ(literals[2].text, "z");
}

} // namespace quorvi::test
