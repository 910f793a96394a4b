// The installed panel and helper, and the document for authors of other helpers.
#include <sstream>

#include "install/Installed.h"

namespace quorvi::test {

namespace {

/// The lines of the document that a reader is asked to type.
std::string typedLines(const std::string& document) {
    std::istringstream lines(readFile(document));
    std::string typed;
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with("busctl "))
            typed += line + "\n";
    return typed;
}

} // namespace

class Panel : public Installed {
  protected:
    void SetUp() override { install("panel"); }

    /// Runs the script in a session whose bus finds the installed services.
    [[nodiscard]] ProgramResult runInSession(const std::string& script) const {
        std::filesystem::create_directories(m_folder / "home");
        return runProgram({"dbus-run-session", "--", "bash", "-euc", script},
            {"HOME=" + m_folder.path("home"), "XDG_STATE_HOME", "XDG_DATA_HOME=" + m_folder.path("share"),
                "XDG_RUNTIME_DIR=" + m_folder.path("home"), "QT_QPA_PLATFORM=offscreen",
                "PATH=" + m_folder.path("bin") + ":" + std::getenv("PATH")});
    }
};

TEST_F(Panel, HoldsTheBundleTheProgramsAndTheirPapers) {
    const auto installed = files();
    for (const std::string file :
        {"bin/quorvi-settings", "bin/quorvictl", "share/bash-completion/completions/quorvictl",
            "share/fish/vendor_completions.d/quorvictl.fish", "share/zsh/site-functions/_quorvictl",
            "share/dbus-1/services/com.kyvar.KyvarQuorviHelper.service",
            "share/systemd/user/kyvar-quorvi-helper.service", "share/man/man1/quorvictl.1.gz",
            "share/man/man1/quorvi-settings.1.gz"})
        EXPECT_TRUE(installed.contains(file)) << file;
    for (const std::string file : {"Info.plist", "Linux/KyvarQuorvi.so", "Resources/Defaults.plist",
             "Resources/en.lproj/Localizable.strings", "Resources/Help/index.html", "Resources/Help/help.css",
             "Resources/Help/macros.png", "Resources/ar.lproj/Help/device.html",
             "Resources/KyvarQuorviHelper.app/Contents/Info.plist",
             "Resources/KyvarQuorviHelper.app/Contents/Linux/KyvarQuorviHelper"})
        EXPECT_TRUE(installed.contains(kBundle + file)) << file;
}

TEST_F(Panel, TheCallsOfTheDocumentWorkAndTheBusStartsTheHelperForThem) {
    const auto session = runInSession(typedLines(QUORVI_SOURCE "/docs/DEVICE-SIDE.md"));
    EXPECT_EQ(session.exitCode, 0) << session.error;
    // The settings were taken over, the mouse has its record, the recording is known.
    const std::string yes = "a(ssv) 1 \"----\" \"long\" i 1\n";
    const auto first = session.output.find(yes);
    EXPECT_NE(session.output.find(yes, first + 1), std::string::npos) << session.output;
    EXPECT_NE(session.output.find("\nay 13232 "), std::string::npos);
    EXPECT_NE(session.output.find("\nb true\n"), std::string::npos);
}

TEST_F(Panel, InstalledAtTwoPlacesAtOnceEachServiceNamesItsOwnHelper) {
    const auto done = runProgram({"bash", "-euc",
        "for n in {1..8}; do \"$0\" --install \"$1\" --prefix \"$2/$n\" --component panel >&2 & done; wait\n"
        "for n in {1..8}; do grep -r \"^Exec='$2/$n/\" \"$2/$n/share/dbus-1\"; done",
        QUORVI_CMAKE, QUORVI_BUILD, m_folder.path()});
    EXPECT_EQ(done.exitCode, 0) << done.output;
}

TEST_F(Panel, TheInstalledProgramShowsThePanelAndStartsItsHelper) {
    const auto session = runInSession("quorvi-settings & panel=$!\n"
                                      "until quorvictl devices 2>/dev/null; do sleep 0.02; done\n"
                                      "kill $panel; wait $panel || true");
    EXPECT_EQ(session.exitCode, 0) << session.error;
    EXPECT_NE(session.output.find("0: vendor 0x1209, product 0x0001"), std::string::npos) << session.output;
}

} // namespace quorvi::test
