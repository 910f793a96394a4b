// scripts/house: compares the includes of src with the table of folders in docs/ARCHITECTURE.md.
#include <gtest/gtest.h>

#include <filesystem>

#include "support/ChildProcess.h"
#include "support/TemporaryFolder.h"

namespace quorvi::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* kArchitecture = "## Folders\n"
                                      "| Folder | What it holds | May include |\n"
                                      "|---|---|---|\n"
                                      "| `src/base` | values | – |\n"
                                      "| `src/views` | windows | `base` |\n"
                                      "### Known exceptions\n"
                                      "- `base` → `views/Window.h`: not yet.\n"
                                      "- Circle: `base`, `views`\n"
                                      "### A click, to the base\n"
                                      "1. `views/Window.cpp`: `click()` takes it.\n"
                                      "## Decisions\n";
constexpr const char* kHeaders = "## For other programs\n"
                                 "| `src/base` | `Value` |\n"
                                 "## For other folders\n"
                                 "| `src/views` | `Window` |\n";

/// A small house in which everything is in order, one exception and its circle included.
class House : public testing::Test {
  protected:
    void SetUp() override {
        m_house.write("docs/ARCHITECTURE.md", kArchitecture);
        m_house.write("docs/HEADERS.md", kHeaders);
        m_house.write("docs/images/house.svg", "");
        m_house.write("src/base/Value.h", "#pragma once\n");
        m_house.write("src/base/Value.cpp", "#include \"base/Value.h\"\n#include \"views/Window.h\"\n");
        m_house.write("src/views/Window.h", "#include <vector>\n");
        m_house.write(
            "src/views/Window.cpp", "#include \"Window.h\"\n#include \"base/Value.h\"\nvoid click() {}\n");
        fs::create_directory(m_house / "scripts");
        fs::copy_file(QUORVI_SOURCE "/scripts/house", m_house / "scripts/house");
        draw();
        ASSERT_EQ(faults(), "");
    }

    void draw() const {
        const auto drawn = runProgram({m_house.path("scripts/house"), "draw"});
        EXPECT_EQ(drawn.exitCode, 0) << drawn.error;
    }

    /// What the script says; it says so by its exit code as well.
    [[nodiscard]] std::string faults() const {
        const auto done = runProgram({m_house.path("scripts/house")});
        EXPECT_EQ(done.error, "");
        EXPECT_EQ(done.exitCode, done.output.empty() ? 0 : 1);
        return done.output;
    }

    void replace(const std::string& file, const std::string& text, const std::string& by) const {
        std::string content = m_house.read(file);
        const auto at = content.find(text);
        ASSERT_NE(at, std::string::npos) << text;
        m_house.write(file, content.replace(at, text.size(), by));
    }

    TemporaryFolder m_house;
};

TEST(TheHouse, IsBuiltAsItsTableSays) {
    const auto done = runProgram({QUORVI_SOURCE "/scripts/house"});
    EXPECT_EQ(done.exitCode, 0) << done.error;
    EXPECT_EQ(done.output, "");
}

TEST_F(House, AnIncludeThatTheRowDoesNotPermitIsAFault) {
    replace("docs/ARCHITECTURE.md", "windows | `base` |", "windows | – |");
    EXPECT_EQ(faults(),
        "src/views/Window.cpp includes base/Value.h: views may not include base "
        "(docs/ARCHITECTURE.md)\ndocs/images/house.svg is not what `scripts/house draw` draws\n");
}

TEST_F(House, AnotherHeaderOfAFolderThatHasAnExceptionIsAFault) {
    replace("docs/HEADERS.md", "`Window`", "`Window`, `Menu`");
    m_house.write("src/views/Menu.h", "");
    m_house.write("src/base/Other.cpp", "  #  include \"views/Menu.h\"\n");
    EXPECT_EQ(faults(),
        "src/base/Other.cpp includes views/Menu.h: base may not include views (docs/ARCHITECTURE.md)\n");
}

TEST_F(House, AHeaderThatIsNotPublicIsAFaultInAnotherFolderOnly) {
    m_house.write("src/base/Node.h", "");
    m_house.write("src/base/Node.cpp", "#include \"base/Node.h\"\n");
    EXPECT_EQ(faults(), "");
    m_house.write("src/views/Menu.cpp", "#include \"base/Node.h\"\n");
    EXPECT_EQ(
        faults(), "src/views/Menu.cpp includes base/Node.h: it is not a public header (docs/HEADERS.md)\n");
}

TEST_F(House, AFolderWithoutARowIsAFault) {
    m_house.write("src/views/more/Menu.cpp", "");
    EXPECT_EQ(faults(), "src/views/more has no row in the table of docs/ARCHITECTURE.md\n");
}

TEST_F(House, ARowWithoutSourcesIsAFault) {
    m_house.write("src/tools/notes.txt", "no source");
    replace("docs/ARCHITECTURE.md", "### Known", "| `src/tools` | tools | `base` |\n### Known");
    EXPECT_EQ(faults(), "docs/ARCHITECTURE.md has a row for src/tools, which holds no sources\n");
}

TEST_F(House, ARowPermitsOnlyWhatStandsAboveIt) {
    replace("docs/ARCHITECTURE.md", "values | – |", "values | `views` |");
    EXPECT_EQ(faults().substr(0, faults().find('\n')),
        "docs/ARCHITECTURE.md lets base include views, which does not stand above it in the table");
}

TEST_F(House, AnExceptionThatNothingNeedsIsAFault) {
    replace("docs/ARCHITECTURE.md", "`views/Window.h`", "`views/Window.h`, `views/Menu.h`");
    EXPECT_EQ(faults(), "docs/ARCHITECTURE.md: the exception base → views/Menu.h is no longer needed\n");
}

TEST_F(House, ACircleThatIsNotWrittenDownIsAFault) {
    replace("docs/ARCHITECTURE.md", "- Circle: `base`, `views`\n", "");
    EXPECT_EQ(faults(), "a circle of folders that include each other: base, views\n");
}

TEST_F(House, ACircleThatIsBrokenIsTakenOffTheList) {
    m_house.write("src/base/Value.cpp", "#include \"base/Value.h\"\n");
    replace("docs/ARCHITECTURE.md", "- `base` → `views/Window.h`: not yet.\n", "");
    draw();
    EXPECT_EQ(faults(), "docs/ARCHITECTURE.md: there is no such circle any more: base, views\n");
}

TEST_F(House, APublicHeaderThatIsNotThereIsAFault) {
    replace("docs/HEADERS.md", "`Window`", "`Window`, `Door`");
    EXPECT_EQ(faults(), "docs/HEADERS.md lists views/Door.h, which is not there\n");
}

TEST_F(House, AHeaderForOtherProgramsIncludesOnlySuch) {
    m_house.write("src/base/Node.h", "");
    m_house.write("src/base/Value.h", "#include \"base/Node.h\"\n");
    EXPECT_EQ(faults(),
        "src/base/Value.h is a header for other programs and includes base/Node.h, which is none "
        "(docs/HEADERS.md)\n");
}

TEST_F(House, AJourneyPassesFunctionsThatAreThere) {
    m_house.write("src/views/Window.cpp", "#include \"base/Value.h\"\nvoid doubleclick() {}\n");
    EXPECT_EQ(faults(), "docs/ARCHITECTURE.md: a journey passes click(), which is not in that file: "
                        "1. `views/Window.cpp`: `click()` takes it.\n");
    replace("docs/ARCHITECTURE.md", "views/Window.cpp", "views/Door.cpp");
    EXPECT_EQ(faults().substr(0, faults().find('\n')),
        "docs/ARCHITECTURE.md: a journey passes src/views/Door.cpp, which is not there");
}

TEST_F(House, APictureThatIsNotTheOneDrawnIsAFault) {
    replace("docs/images/house.svg", "</svg>", "<text/></svg>");
    EXPECT_EQ(faults(), "docs/images/house.svg is not what `scripts/house draw` draws\n");
    draw();
    EXPECT_EQ(faults(), "");
}

TEST_F(House, ThePictureShowsEachFolderAndEachArrow) {
    const std::string picture = m_house.read("docs/images/house.svg");
    EXPECT_NE(picture.find(">base</text>"), std::string::npos);
    EXPECT_NE(picture.find(">views</text>"), std::string::npos);
    EXPECT_NE(picture.find("class=\"d\" marker-end"), std::string::npos) << "from the windows to the base";
    EXPECT_NE(picture.find("class=\"u\" marker-end"), std::string::npos) << "the exception";
}

} // namespace
} // namespace quorvi::test
