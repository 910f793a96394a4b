// The shells' completions for quorvictl, queried from the shells with the installed files.
#include "install/ToolVerbs.h"

namespace quorvi::test {

namespace {

constexpr const char* kBash =
    ". \"$0\"; read -ra COMP_WORDS <<<\"$1\"; [[ $1 != *' ' ]] || COMP_WORDS+=(''); "
    "COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _quorvictl; "
    "printf '%s\\n' \"${COMPREPLY[@]}\"";
constexpr const char* kFish = "source $argv[1]; complete -C $argv[2]";
constexpr const char* kZshFolder = "share/zsh/site-functions";

class Completion : public Installed, public testing::WithParamInterface<std::string> {
  protected:
    void SetUp() override { install("panel"); }

    /// The words that are offered for the line; of paths the last part.
    [[nodiscard]] std::set<std::string> offered(const std::string& line) const {
        const auto answer = runProgram(command(line), {"HOME=" + m_folder.path("home")});
        EXPECT_EQ(answer.exitCode, 0) << answer.error;
        std::set<std::string> words;
        std::istringstream lines(answer.output);
        for (std::string word; std::getline(lines, word);)
            if (!word.empty())
                words.insert(std::filesystem::path(word.substr(0, word.find('\t'))).filename());
        return words;
    }

  private:
    [[nodiscard]] std::vector<std::string> command(const std::string& line) const {
        if (GetParam() == "bash")
            return {"bash", "-c", kBash, m_folder.path("share/bash-completion/completions/quorvictl"), line};
        if (GetParam() == "fish")
            return {"fish", "--no-config", "-c", kFish,
                m_folder.path("share/fish/vendor_completions.d/quorvictl.fish"), line};
        return {"timeout", "30", "zsh", "-f", QUORVI_SOURCE "/tests/install/completions.zsh",
            m_folder.path(kZshFolder), line};
    }
};

using Words = std::set<std::string>;

} // namespace

TEST_P(Completion, OffersEveryVerbAndNoOther) {
    ASSERT_GE(toolVerbs().size(), 10U);
    EXPECT_EQ(offered("quorvictl "), toolVerbs());
    EXPECT_EQ(offered("quorvictl de"), (Words{"decode", "detach", "devices"}));
}

TEST_P(Completion, OffersFilesWhereFilesStand) {
    m_folder.write("settings.plist", "");
    for (const char* words :
        {"encode", "encode x", "decode", "decode x", "check", "match", "profiles", "macros", "import",
            "import x", "export", "export x profile 1", "backup", "backup x", "restore", "restore x",
            "history restore", "apply", "apply x", "apply --check x", "--json check", "--json apply x"})
        EXPECT_EQ(
            offered(std::string("quorvictl ") + words + " " + m_folder.path("sett")), Words{"settings.plist"})
            << words;
    for (const char* words : {"commands", "key-name", "usb-to-adb", "devices", "check x", "export x profile",
             "history", "history show", "--json", "--json check x"})
        EXPECT_EQ(offered(std::string("quorvictl ") + words + " " + m_folder.path("sett")), Words{}) << words;
}

TEST_P(Completion, OffersWhatCanBeExported) {
    EXPECT_EQ(offered("quorvictl export x "), (Words{"macro", "profile"}));
}

TEST_P(Completion, OffersWhatIsDoneWithTheHistory) {
    EXPECT_EQ(offered("quorvictl history "), (Words{"restore", "show"}));
    EXPECT_EQ(offered("quorvictl export x profile 1 y --"), Words{"--with-macros"});
}

TEST_P(Completion, OffersWhatPrintsJson) {
    EXPECT_EQ(offered("quorvictl --json "),
        (Words{"apply", "check", "commands", "devices", "history", "macros", "mice", "profiles"}));
    EXPECT_EQ(offered("quorvictl --json history "), (Words{"restore", "show"}));
    EXPECT_EQ(offered("quorvictl apply x --"), Words{"--check"});
}

TEST_P(Completion, OffersTheInputsOfTheMouse) {
    const Words inputs{"1", "2", "3", "4", "5", "6", "7", "8", "9"};
    EXPECT_EQ(offered("quorvictl press "), inputs);
    EXPECT_EQ(offered("quorvictl release "), inputs);
    EXPECT_EQ(offered("quorvictl watch "), Words{});
}

TEST_P(Completion, OffersTheOptionsOfAMatch) {
    EXPECT_EQ(offered("quorvictl match x --"),
        (Words{"--application", "--auto", "--executable", "--identifier", "--signature"}));
}

INSTANTIATE_TEST_SUITE_P(Shells, Completion, testing::Values("bash", "fish", "zsh"),
    [](const auto& tested) { return tested.param; });

} // namespace quorvi::test
