// How the bus starts the helper: by itself, and through systemd if that runs the session.
#include "install/Installed.h"

namespace quorvi::test {

namespace {

/// Names that the readers of the two files would take for something else, if they could. CMake installs to no
/// path with a backslash, and systemd starts nothing with a quote in its path.
constexpr const char* kAwkwardName = "50 % off $HOME %h";
constexpr const char* kAwkwardNameForTheBus = "it's \"50 % off\" $HOME";

class HelperServices : public Installed {
  protected:
    void installIn(const std::string& name) {
        prefix = m_folder / name;
        std::filesystem::create_directory(prefix);
        const auto done =
            runProgram({QUORVI_CMAKE, "--install", QUORVI_BUILD, "--prefix", prefix, "--component", "panel"});
        ASSERT_EQ(done.exitCode, 0) << done.error;
        unit = prefix / "share/systemd/user/kyvar-quorvi-helper.service";
        service = prefix / "share/dbus-1/services/com.kyvar.KyvarQuorviHelper.service";
    }
    /// The lines of the unit of that key, without it.
    [[nodiscard]] std::set<std::string> unitLines(const std::string& key) const {
        std::ifstream file(unit);
        std::set<std::string> values;
        for (std::string line; std::getline(file, line);)
            if (line.starts_with(key + "="))
                values.insert(line.substr(key.size() + 1));
        return values;
    }

    std::filesystem::path prefix;
    std::filesystem::path unit;
    std::filesystem::path service;
};

} // namespace

TEST_F(HelperServices, StartTheHelperWhereverItIsInstalled) {
    installIn(kAwkwardNameForTheBus);
    std::filesystem::create_directory(m_folder / "home");
    const auto session =
        runProgram({"dbus-run-session", "--", "busctl", "--user", "call", "com.kyvar.KyvarQuorviHelper",
                       "/com/kyvar/SimulatedMouse", "com.kyvar.SimulatedMouse", "Attach"},
            {"HOME=" + m_folder.path("home"), "XDG_DATA_HOME=" + (prefix / "share").string(),
                "XDG_RUNTIME_DIR=" + m_folder.path("home")});
    EXPECT_EQ(session.exitCode, 0) << session.error << readFile(service);
}

TEST_F(HelperServices, NameEachOther) {
    installIn(kAwkwardName);
    EXPECT_NE(
        readFile(service).find("\nSystemdService=" + unit.filename().string() + "\n"), std::string::npos);
    EXPECT_EQ(unitLines("Type"), std::set<std::string>{"dbus"});
    EXPECT_EQ(unitLines("BusName"), std::set<std::string>{"com.kyvar.KyvarQuorviHelper"});
}

/// The checker finds programs that are not there, which shows that the path is read as it is meant.
TEST_F(HelperServices, AreInOrderForSystemd) {
    installIn(kAwkwardName);
    const auto result = runProgram({"systemd-analyze", "--user", "--man=no", "verify", unit},
        {"HOME=" + m_folder.path(""), "XDG_RUNTIME_DIR=" + m_folder.path("")});
    EXPECT_EQ(result.exitCode, 0) << result.error;
    EXPECT_EQ(result.error.find("kyvar-quorvi-helper"), std::string::npos) << result.error;
}

TEST_F(HelperServices, TakeWhatTheHelperDoesNotNeed) {
    installIn(kAwkwardName);
    for (const auto& [key, value] : std::initializer_list<std::pair<const char*, const char*>>{
             {"NoNewPrivileges", "yes"}, {"ProtectSystem", "strict"}, {"ProtectHome", "read-only"},
             {"ConfigurationDirectory", "kyvar-quorvi"}, {"ReadWritePaths", "-%E/kyvar-quorvi"},
             {"RestrictAddressFamilies", "AF_UNIX"}, {"MemoryMax", "256M"}})
        EXPECT_EQ(unitLines(key), std::set<std::string>{value}) << key;
    // The judge takes it for a service of the system, which has capabilities; one from which nothing is taken
    // has 96.
    EXPECT_TRUE(succeeds({"systemd-analyze", "security", "--offline=true", "--threshold=65", unit}));
}

/// systemd would have to take a capability for each, and starts no service of a user where it cannot.
TEST_F(HelperServices, AskForNothingThatAUsersSystemdCannotDo) {
    installIn(kAwkwardName);
    for (const char* key : {"CapabilityBoundingSet", "PrivateDevices", "ProtectClock", "ProtectKernelLogs",
             "ProtectKernelModules", "User", "PrivateUsers"})
        EXPECT_EQ(unitLines(key), std::set<std::string>()) << key;
}

} // namespace quorvi::test
