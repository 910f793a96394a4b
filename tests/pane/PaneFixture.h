// The real controller with its real window, file and bus; external pages are recorded, not opened.
#pragma once

#include <QTemporaryDir>
#include <QWidget>

#include <functional>
#include <memory>

#include "pane/KyvarQuorviPane.h"
#include "pane/RecordingHelper.h"
#include "support/WindowTools.h"

namespace quorvi::test {

class RecordingWorkspace final : public Workspace {
  public:
    explicit RecordingWorkspace(QStringList& log) : m_log(log) {}
    bool launchApplication(const QString& bundlePath, std::function<void()> ended) override {
        m_log << QStringLiteral("launch ") + bundlePath;
        m_ended = std::move(ended);
        return canLaunch;
    }
    /// The application that was launched last has ended.
    void endLaunched() const { m_ended(); }

    bool canLaunch = true; ///< applications start, and do not end by themselves

    void openUrl(const QString& address) override { m_log << QStringLiteral("url ") + address; }
    void openFile(const QString& path) override { m_log << QStringLiteral("file ") + path; }

  private:
    QStringList& m_log;
    std::function<void()> m_ended;
};

/// What the fixture is made with; the rest is as the plug-in makes it.
struct PaneOptions {
    bool helper = true;    ///< a recording helper runs before the panel is made
    bool bus = true;       ///< there is a session bus
    bool canLaunch = true; ///< a helper that is launched starts, and does nothing
    /// Makes what the panel follows the keyboard layout by; without one, no layout is known.
    std::function<std::unique_ptr<KeyboardLayoutWatcher>()> watchKeyboardLayout = nullptr;
    std::string bundlePath = QUORVI_BUNDLE; ///< the pane's bundle
    FileCalls& files = systemFileCalls();   ///< the panel writes its settings file by these
    bool keepsCopies = false;               ///< dated copies, in "history" of the home folder
    std::function<double()> clock = steadySeconds;
    std::function<void(double, QObject*, std::function<void()>)> callLater = callAfterSeconds;
};

class PaneFixture {
  public:
    explicit PaneFixture(const PaneOptions& options = {});
    ~PaneFixture();

    /// A tree with two profiles and two macros to spoil in one place; a fresh one with every call.
    [[nodiscard]] static plist::Dictionary sampleTree();
    /// Puts the tree into the user's settings file.
    void writeSettings(const plist::Dictionary& tree) const;
    /// The tree that the user's settings file holds now; nil when there is no file.
    [[nodiscard]] plist::Dictionary savedSettings() const;
    [[nodiscard]] std::filesystem::path settingsFile() const;
    /// The applications registered for log-in, as their entry files say.
    [[nodiscard]] QStringList autostartEntries() const;

    /// Loads the view in a shown and active window, without selecting the pane.
    void load();
    /// Loads and selects the pane.
    void select();
    /// Sends the list and waits until the panel has dealt with it.
    void connectDevices(std::uint16_t count);
    /// Loads, selects, connects a mouse with these settings, and forgets the messages so far.
    void openWith(const plist::Dictionary& tree);

    template <typename Widget>
    [[nodiscard]] Widget* find(const char* name) const {
        return outlet<Widget>(window.get(), name);
    }
    [[nodiscard]] QString text(const char* label) const;
    [[nodiscard]] bool isEnabled(const char* control) const;
    /// Clicks the control with the mouse; a control that is disabled or hidden is an error.
    void click(const char* control) const;
    void selectTab(int index) const;
    void selectRow(const char* table, int row) const;
    [[nodiscard]] int selectedRow(const char* table) const;

    /// Waits until the commands are exactly these.
    [[nodiscard]] bool commandsBecome(const QStringList& expected) const;

    QTemporaryDir home;
    QStringList opened;
    RecordingWorkspace* workspace = nullptr; ///< the pane's
    std::unique_ptr<RecordingHelper> helper;
    std::unique_ptr<QWidget> window;
    std::unique_ptr<KyvarQuorviPane> pane;
};

} // namespace quorvi::test
