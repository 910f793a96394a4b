// Rules for the help pages of every language: they are complete, their links work, and they use the panel's
// names.
#include "resources/HelpPages.h"

#include <QLocale>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "model/Commands.h"
#include "resources/StringTables.h"
#include "support/Files.h"

namespace quorvi::test {

namespace fs = std::filesystem;

namespace {

constexpr std::uintmax_t kLargestPicture = 30 * 1024; // bytes

class HelpPages : public testing::TestWithParam<std::string> {
  protected:
    [[nodiscard]] std::set<std::string> shownTexts() const {
        std::set<std::string> shown;
        for (const auto& [key, text] : m_table)
            shown.insert(shownText(text));
        return shown;
    }
    /// What the language may call what is shown so in English.
    [[nodiscard]] std::set<std::string> translations(const std::string& english) const {
        std::set<std::string> found;
        for (const auto& [key, text] : m_englishTable)
            if (shownText(text) == english)
                found.insert(shownText(m_table.at(key)));
        return found;
    }

    const std::string m_language = GetParam();
    const StringTable m_table = readStringTable(m_language);
    const StringTable m_englishTable = readStringTable("en");
    const std::map<std::string, HelpPage> m_pages = readHelp(m_language);
    const std::map<std::string, HelpPage> m_english = readHelp("en");
};

class TranslatedHelpPages : public HelpPages {};

std::vector<std::string> languagesButEnglish() {
    auto names = languages();
    std::erase(names, "en");
    return names;
}

std::string nameOfTest(const testing::TestParamInfo<std::string>& tested) {
    return testNameOf(tested.param);
}

bool isInline(const HelpElement& element) {
    static const std::set<std::string> names{"a", "b", "bdi", "kbd"};
    return names.contains(element.name);
}

/// The blocks of a page with their marks, "h2 #record", without what stands within lines.
std::vector<std::string> blocksOf(const HelpPage& page) {
    std::vector<std::string> blocks;
    for (const HelpElement& element : page.elements)
        if (!isInline(element))
            blocks.push_back(element.name + " #" + element.attribute("id"));
    return blocks;
}

std::set<std::string> textsOf(const std::vector<HelpElement>& elements) {
    std::set<std::string> texts;
    for (const HelpElement& element : elements)
        texts.insert(element.text);
    return texts;
}

/// Longer than what languages may have in common, such as the name of a control.
bool isSentence(const std::string& text) {
    return std::ranges::count(text, ' ') >= 3;
}

/// The four bytes of a PNG's header from there on: 16 is its width in pixels, 20 its height.
std::string pngNumber(const std::string& png, std::size_t offset) {
    unsigned number = 0;
    for (const char byte : png.substr(offset, 4))
        number = number << 8 | static_cast<unsigned char>(byte);
    return std::to_string(number);
}

std::vector<std::string> targetsOf(const HelpPage& page) {
    std::vector<std::string> targets;
    for (const HelpElement& element : page.elements)
        for (const char* key : {"href", "src"})
            if (element.attributes.contains(key))
                targets.push_back(element.attribute(key));
    return targets;
}

} // namespace

TEST_P(HelpPages, areThoseOfEnglish) {
    EXPECT_GE(m_english.size(), 6U);
    for (const char* extension : {".html", ".png"})
        EXPECT_EQ(helpFiles(m_language, extension), helpFiles("en", extension));
}

TEST_P(HelpPages, areWellFormed) {
    for (const auto& [name, page] : m_pages) {
        EXPECT_EQ(page.error, "") << name;
        EXPECT_TRUE(readFile(helpFolder(m_language) / name).starts_with("<!DOCTYPE html>\n")) << name;
    }
}

TEST_P(HelpPages, sayTheirLanguageAndDirection) {
    const QLocale locale(QString::fromStdString(m_language));
    std::string tag = m_language;
    std::ranges::replace(tag, '_', '-');
    for (const auto& [name, page] : m_pages) {
        const HelpElement& root = page.elements.at(0);
        EXPECT_EQ(root.attribute("lang"), tag) << name;
        EXPECT_EQ(root.attribute("dir") == "rtl", locale.textDirection() == Qt::RightToLeft) << name;
    }
}

// A screen reader goes by these.
TEST_P(HelpPages, haveATitleOneMainHeadingAndOnePlaceInTheNavigation) {
    for (const auto& [name, page] : m_pages) {
        ASSERT_EQ(page.all("h1").size(), 1U) << name;
        EXPECT_NE(page.all("h1")[0].text, "") << name;
        ASSERT_EQ(page.all("title").size(), 1U) << name;
        EXPECT_NE(page.all("title")[0].text, "") << name;
        EXPECT_EQ(page.all("main").size(), 1U) << name;
        std::vector<std::string> current;
        for (const HelpElement& link : page.all("a"))
            if (link.attribute("aria-current") == "page")
                current.push_back(link.attribute("href"));
        EXPECT_EQ(current, std::vector<std::string>{name});
    }
}

TEST_P(HelpPages, sayAsMuchAsEnglish) {
    for (const auto& [name, page] : m_english)
        EXPECT_EQ(blocksOf(m_pages.at(name)), blocksOf(page)) << name;
}

TEST_P(TranslatedHelpPages, leaveNoSentenceInEnglish) {
    for (const auto& [name, page] : m_english)
        for (const char* block : {"p", "dd", "li"})
            for (const std::string& text : textsOf(page.all(block)))
                EXPECT_FALSE(isSentence(text) && textsOf(m_pages.at(name).all(block)).contains(text)) << text;
}

TEST_P(HelpPages, linkToWhatIsThere) {
    for (const auto& [name, page] : m_pages) {
        for (const std::string& target : targetsOf(page)) {
            const std::string file = target.substr(0, target.find('#'));
            const fs::path path = helpFolder(m_language) / (file.empty() ? name : file);
            EXPECT_TRUE(fs::is_regular_file(path)) << name << ": " << target;
            if (target.find('#') == std::string::npos)
                continue;
            const auto ids = readHelpPage(path).ids();
            EXPECT_EQ(std::ranges::count(ids, target.substr(target.find('#') + 1)), 1)
                << name << ": " << target;
        }
        const auto ids = page.ids();
        EXPECT_EQ(std::set<std::string>(ids.begin(), ids.end()).size(), ids.size()) << name;
    }
}

TEST_P(HelpPages, needNeitherNetworkNorScript) {
    for (const auto& [name, page] : m_pages) {
        EXPECT_TRUE(page.all("script").empty()) << name;
        for (const HelpElement& element : page.elements)
            for (const auto& [key, value] : element.attributes) {
                EXPECT_FALSE(key.starts_with("on")) << name << ": " << key;
                EXPECT_EQ(value.find("//"), std::string::npos) << name << ": " << value;
            }
    }
    const std::string style = readFile(helpFolder("en") / "help.css");
    for (const char* call : {"url(", "@import"})
        EXPECT_EQ(style.find(call), std::string::npos) << call;
}

TEST_P(HelpPages, describeTheirPicturesAndGiveThemRoom) {
    for (const auto& [name, page] : m_pages) {
        EXPECT_EQ(page.all("img").size(), name == "index.html" ? 0U : 1U) << name;
        for (const HelpElement& image : page.all("img")) {
            EXPECT_GT(image.attribute("alt").size(), 20U) << name;
            const std::string png = readFile(helpFolder(m_language) / image.attribute("src"));
            EXPECT_EQ(image.attribute("width"), pngNumber(png, 16)) << name;
            EXPECT_EQ(image.attribute("height"), pngNumber(png, 20)) << name;
            EXPECT_LE(png.size(), kLargestPicture) << name;
        }
    }
}

TEST_P(HelpPages, nameControlsAndKeysAsThePanelDoes) {
    auto shown = shownTexts();
    for (const char* key : {"F1", "F2", "C", "D", "V", "X", "+"}) // as they stand on every keyboard
        shown.insert(key);
    for (const auto& [name, page] : m_pages)
        for (const auto& elements : {page.all("b", "ui"), page.all("kbd")})
            for (const HelpElement& element : elements)
                EXPECT_TRUE(shown.contains(element.text)) << name << ": " << element.text;
}

TEST_P(HelpPages, nameEveryControlThatEnglishNames) {
    for (const auto& [name, page] : m_english) {
        const auto named = textsOf(m_pages.at(name).all("b", "ui"));
        for (const std::string& english : textsOf(page.all("b", "ui"))) {
            const auto wanted = translations(english);
            EXPECT_TRUE(std::ranges::any_of(wanted, [&](const auto& text) { return named.contains(text); }))
                << name << ": " << english;
        }
    }
}

TEST_P(HelpPages, areHeadedByTheTitlesOfTheTabs) {
    for (const auto& [file, key] :
        std::map<std::string, std::string>{{"buttons", "&Buttons"}, {"sensitivity", "&Sensitivity"},
            {"profiles", "&Profiles"}, {"macros", "&Macros"}, {"device", "&Device"}})
        EXPECT_EQ(m_pages.at(file + ".html").all("h1").at(0).text, shownText(m_table.at(key)));
}

TEST_P(HelpPages, listTheFunctionsAsTheMenusDo) {
    std::vector<std::string> expected;
    for (const Command& command : commandTable())
        expected.push_back(shownText(m_table.at(command.title)));
    std::vector<std::string> listed;
    for (const HelpElement& function : m_pages.at("index.html").all("bdi"))
        listed.push_back(function.text);
    EXPECT_EQ(listed, expected);
}

TEST_P(HelpPages, groupTheFunctionsAsTheMenusDo) {
    std::map<CommandGroup, std::string> cells;
    for (const Command& command : commandTable()) {
        std::string& cell = cells[command.group];
        if (!cell.empty())
            cell += m_language == "ar" ? "، " : m_language == "ja" || m_language == "zh_CN" ? "、" : ", ";
        cell += shownText(m_table.at(command.title)) + (command.inputs == CommandInputs::Buttons ? "*" : "");
    }
    const auto heads = m_pages.at("index.html").all("th");
    const auto listed = m_pages.at("index.html").all("td");
    ASSERT_EQ(listed.size(), cells.size());
    for (const auto& [group, cell] : cells) {
        const auto row = static_cast<std::size_t>(group);
        EXPECT_EQ(listed[row].text, cell);
        const std::string title = titleOfGroup(group); // of a submenu, or for the help alone
        const std::string translated = m_table.contains(title) ? m_table.at(title) : heads.at(row + 2).text;
        EXPECT_EQ(heads.at(row + 2).text, m_language == "en" ? title : translated);
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, HelpPages, testing::ValuesIn(languages()), nameOfTest);
INSTANTIATE_TEST_SUITE_P(
    Languages, TranslatedHelpPages, testing::ValuesIn(languagesButEnglish()), nameOfTest);

} // namespace quorvi::test
