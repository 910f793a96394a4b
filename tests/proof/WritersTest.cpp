// Several panels, and panels with quorvictl, write one settings file at the same moment, on disks of several
// speeds: every change that one of them has reported as saved is in the file at the end.
//
// By hand: QUORVI_CLICKS=500 build/bin/quorvi-writers-tests

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>

#include "base/Unicode.h"
#include "model/ConfigFile.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "model/SettingsDocument.h"
#include "support/ChildProcess.h"
#include "support/Files.h"

namespace quorvi {
namespace {

using namespace test;
using plist::Dictionary;
namespace fs = std::filesystem;

constexpr int kUsualClicks = 40;

/// A check box of the panel, and what it says in the current profile.
struct Control {
    const char* name;
    bool (*isOn)(const Dictionary& profile);
};

bool driverSays(const Dictionary& profile, std::string_view key) {
    return profile.dictionary(keys::driver).boolean(key);
}

constexpr std::array kControls{
    Control{
        "quorviBoxLightOnWheel", [](const Dictionary& p) { return (p.integer(keys::ledState) & 1) != 0; }},
    Control{
        "quorviBoxLightOnBattery", [](const Dictionary& p) { return (p.integer(keys::ledState) & 2) != 0; }},
    Control{"quorviBoxSensitivityOSD",
        [](const Dictionary& p) { return driverSays(p, keys::sensitivityDisplay); }},
    Control{"quorviBoxProfileOSD", [](const Dictionary& p) { return driverSays(p, keys::profileDisplay); }},
    Control{
        "quorviBoxAcceleration", [](const Dictionary& p) { return driverSays(p, keys::enableAcceleration); }},
};

std::vector<std::string> onADiskThatTakes(int milliseconds) {
    if (milliseconds == 0)
        return {};
    return {"LD_PRELOAD=" QUORVI_SLOW_SYNC, "QUORVI_SYNC_MS=" + std::to_string(milliseconds)};
}

class Panel {
  public:
    Panel(const fs::path& home, const Control& control, const fs::path& fifo, int milliseconds)
        : m_control(control) {
        if (::mkfifo(fifo.c_str(), 0600) != 0)
            throw std::runtime_error("no fifo");
        m_fifo = ::open(fifo.c_str(), O_RDWR | O_CLOEXEC);
        m_program = std::make_unique<ChildProcess>(
            std::vector<std::string>{QUORVI_CLICKING_PANEL, home, control.name, fifo},
            onADiskThatTakes(milliseconds));
    }
    ~Panel() {
        tell('q');
        static_cast<void>(m_program->wait());
        ::close(m_fifo);
    }
    Panel(const Panel&) = delete;
    Panel& operator=(const Panel&) = delete;

    [[nodiscard]] bool isReady() { return m_program->readLine() == "ready"; }
    void click() const { tell('c'); }
    /// Waits until the click is saved; whether the box is checked now.
    [[nodiscard]] bool wasChecked() { return m_program->readLine() == "1"; }
    [[nodiscard]] bool isIn(const Dictionary& tree, bool checked) const {
        const auto current = tree.dictionary(keys::settings).integer(keys::profileId) - 1;
        return m_control.isOn(tree.array(keys::profiles).dictionary(std::size_t(current))) == checked;
    }

  private:
    void tell(char byte) const { ASSERT_EQ(::write(m_fifo, &byte, 1), 1); }

    const Control& m_control;
    int m_fifo = -1;
    std::unique_ptr<ChildProcess> m_program;
};

struct Setting {
    int panels;
    int tools; ///< quorvictl, as often at a time
    int milliseconds;
};

void PrintTo(const Setting& setting, std::ostream* stream) {
    *stream << setting.panels << " panels, " << setting.tools << " quorvictl, " << setting.milliseconds
            << " ms";
}

int clicksOfATest() {
    const char* number = std::getenv("QUORVI_CLICKS");
    return number ? std::atoi(number) : kUsualClicks;
}

class Writers : public testing::TestWithParam<Setting> {
  protected:
    Writers() {
        fs::create_directories(settings.parent_path());
        fs::copy_file(QUORVI_TEST_DATA "/everyday-settings.plist", settings);
        makeRoomForMacros();
        writeFile(macro, "<plist version=\"1.0\"><dict><key>macroid</key><integer>40</integer><key>name</key>"
                         "<string>Jump</string><key>steps</key><array/></dict></plist>");
    }
    /// As a user deletes macros; the panels take it over like any other change.
    void makeRoomForMacros() const {
        EXPECT_EQ(changeConfigFile(keys::storage, settings,
                      [](const Dictionary& tree) {
                          tree.array(keys::macros).removeAll();
                          return true;
                      }),
            0);
    }
    [[nodiscard]] Dictionary tree() const { return getDefaultSettings(settings); }
    [[nodiscard]] bool hasMacro(const std::string& name) const {
        const auto macros = tree().array(keys::macros);
        for (const auto& item : macros.items())
            if (toUtf8(item.dictionary().string(keys::name)) == name)
                return true;
        return false;
    }

    TemporaryFolder home;
    fs::path settings = userSettingsPath(home.path());
    fs::path macro = home / "macro";
};

TEST_P(Writers, loseNothingOfEachOther) {
#ifdef __SANITIZE_ADDRESS__
    if (GetParam().milliseconds != 0)
        GTEST_SKIP() << "the sanitizer wants to be loaded before what makes the disk slow";
#endif
    const auto [count, tools, milliseconds] = GetParam();
    std::vector<std::unique_ptr<Panel>> panels;
    for (int i = 0; i < count; ++i)
        panels.push_back(std::make_unique<Panel>(
            home.path(), kControls[std::size_t(i)], home / ("fifo" + std::to_string(i)), milliseconds));
    for (const auto& panel : panels)
        ASSERT_TRUE(panel->isReady());

    int written = 0;
    int missing = 0;
    const int clicks = clicksOfATest();
    const auto start = std::chrono::steady_clock::now();
    for (int round = 0; written < clicks; ++round) {
        std::vector<std::unique_ptr<ChildProcess>> imports;
        for (const auto& panel : panels)
            panel->click();
        for (int i = 0; i < tools; ++i)
            imports.push_back(std::make_unique<ChildProcess>(
                std::vector<std::string>{QUORVI_QUORVICTL, "import", settings, macro},
                onADiskThatTakes(milliseconds)));
        std::vector<bool> checked;
        for (const auto& panel : panels)
            checked.push_back(panel->wasChecked());
        std::vector<std::string> names;
        for (const auto& import : imports) {
            names.push_back(import->readLine().value_or("nothing was said"));
            EXPECT_EQ(import->wait(), 0) << import->readError();
        }
        const auto saved = tree();
        for (std::size_t i = 0; i < panels.size(); ++i)
            missing += panels[i]->isIn(saved, checked[i]) ? 0 : 1;
        for (const auto& name : names)
            missing += hasMacro(name) ? 0 : 1;
        written += count + tools;
        if (tools > 0 && (round + 1) % (limits::macros / tools) == 0)
            makeRoomForMacros();
    }
    const std::chrono::duration<double> duration = std::chrono::steady_clock::now() - start;
    int copies = 0;
    for (const auto& entry : fs::directory_iterator(settings.parent_path()))
        copies += entry.path().filename() == settings.filename() ? 0 : 1;
    std::printf("%d panels, %d quorvictl, sync %d ms: of %d writes %d missing, %d copies kept, %.1f s\n",
        count, tools, milliseconds, written, missing, copies, duration.count());
    EXPECT_EQ(missing, 0);
    EXPECT_EQ(copies, 0);
}

INSTANTIATE_TEST_SUITE_P(OnDisksOfSeveralSpeeds, Writers,
    testing::Values(Setting{2, 0, 0}, Setting{2, 0, 20}, Setting{2, 0, 100}, Setting{5, 0, 0},
        Setting{5, 0, 20}, Setting{5, 0, 100}, Setting{1, 1, 0}, Setting{1, 1, 20}, Setting{1, 1, 100},
        Setting{0, 4, 0}, Setting{0, 4, 20}));

} // namespace
} // namespace quorvi
