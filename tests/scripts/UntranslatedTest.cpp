// scripts/untranslated: marks the texts of a language that are still the English ones.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "support/ChildProcess.h"
#include "support/TemporaryFolder.h"

namespace quorvi::test {
namespace {

namespace fs = std::filesystem;

using Texts = std::map<std::string, std::string>;

/// A build folder with two tables, and a program that prints its language and the table that it gets.
class Untranslated : public testing::Test {
  protected:
    void SetUp() override {
        writeTable("en", {{"Stop", "Stop"}, {"tab", "Tab"}, {"^1 DPI", "^1 DPI"}, {"&amp;Help", "&amp;Help"},
                             {"Undo ^1", "Undo ^1"}});
        writeTable(
            "de", {{"Stop", "Stoppen"}, {"tab", "Tab"}, {"^1 DPI", "^1 DPI"}, {"&amp;Help", "&amp;Help"}});
        m_build.write(
            "bin/quorvi-settings", "#!/bin/sh\necho $LC_ALL\ncat $1/Contents/Resources/de.lproj/*\n");
        fs::permissions(m_build / "bin/quorvi-settings", fs::perms::owner_all);
    }

    static std::string tableOf(const std::string& language) {
        return "KyvarQuorvi.prefPane/Contents/Resources/" + language + ".lproj/Localizable.strings";
    }

    void writeTable(const std::string& language, const Texts& texts) const {
        std::string table = "<plist version=\"1.0\"><dict>";
        for (const auto& [key, text] : texts)
            table += "<key>" + key + "</key><string>" + text + "</string>";
        m_build.write(tableOf(language), table + "</dict></plist>");
    }

    [[nodiscard]] ProgramResult run(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), QUORVI_SOURCE "/scripts/untranslated");
        return runProgram(arguments, {"QUORVI_BUILD=" + m_build.path("")});
    }

    static void expectMarks(const std::string& table) {
        for (const char* text : {"<string>⟦Tab⟧<", "<string>⟦&amp;Help⟧<", "<string>⟦Undo ^1⟧<",
                 "<string>Stoppen<", "<string>^1 DPI<"})
            EXPECT_NE(table.find(text), table.npos) << text;
    }

    TemporaryFolder m_build;
};

TEST_F(Untranslated, TextsAreListedOnceTheyHaveWords) {
    const auto done = run({"--list", "de"});
    EXPECT_EQ(done.exitCode, 0) << done.error;
    EXPECT_EQ(done.output, "'&Help'\n'Tab'\n'Undo ^1'\n");
}

TEST_F(Untranslated, TextsAreMarkedInACopyOfTheBundle) {
    const std::string before = m_build.read(tableOf("de"));
    const auto done = run({"--into", m_build.path("copy"), "de"});
    EXPECT_EQ(done.exitCode, 0) << done.error;
    expectMarks(m_build.read("copy/" + tableOf("de")));
    EXPECT_EQ(m_build.read(tableOf("de")), before);
}

TEST_F(Untranslated, ThePanelIsStartedWithTheMarksInItsLanguage) {
    const auto done = run({"de"});
    EXPECT_EQ(done.exitCode, 0) << done.error;
    EXPECT_TRUE(done.output.starts_with("de.UTF-8\n")) << done.output;
    expectMarks(done.output);
}

TEST_F(Untranslated, AnUnknownLanguageIsAnError) {
    const auto done = run({"xx"});
    EXPECT_EQ(done.exitCode, 1);
    EXPECT_EQ(done.error, "There is no table for xx. There are: de, en\n");
}

} // namespace
} // namespace quorvi::test
