// KDE's programs that show settings modules, with the panel installed for them.
#pragma once

#include <QString>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/Session.h"
#include "host/ShownAndHidden.h"
#include "support/ScreenReader.h"

namespace quorvi::test {

/// The name that the module is opened by.
inline const std::string kModule = "kcm_kyvar_quorvi";

/// Another module, which comes with the hosts; how it is opened and how it is called.
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
inline const std::string kOtherModule = "kcm_filetypes";
inline const QString kOtherTitle = QStringLiteral("File Associations");
#else
inline const std::string kOtherModule = "proxy";
inline const QString kOtherTitle = QStringLiteral("Proxy");
#endif

class KdeHost {
  public:
    /// On a display other than the test's, that is what makes its programs find it, "NAME=value".
    explicit KdeHost(std::vector<std::string> display = {});

    Session session;
    ShownAndHidden panel{session};
    std::unique_ptr<ChildProcess> program;

    /// Runs a program of KDE to its end.
    [[nodiscard]] ProgramResult run(
        const std::vector<std::string>& command, const std::string& locale = "C.UTF-8") const;
    /// Starts it as the program of the test.
    void start(const std::vector<std::string>& command, const std::string& locale = "C.UTF-8");
    /// Starts System Settings where it shows no module: in Plasma 5 with the pages as icons, which is the
    /// view that a screen reader can follow, and where pages are hidden and shown; in Plasma 6, which has no
    /// other, with the list beside them.
    void startAtOverview(const std::string& locale = "C.UTF-8");
    /// Looks there for the words; where words are there from before, these replace them.
    void search(const std::string& words) const;
    /// Waits until the panel is found by the keyword, or is not; false when it stays otherwise.
    [[nodiscard]] bool isFound(const QString& keyword, bool found = true) const;
    /// Opens what has been found.
    void openFound(const QString& keyword) const;
    /// Goes from the panel to where it is not shown.
    void leavePanel() const;
    /// And back.
    void returnToPanel() const;
    /// Starts System Settings as it comes, at the panel. There, pages are destroyed and made again.
    void startAtPanel();
    /// Shows another module there, as menu entries and searches do while the program runs.
    void goTo(const std::string& module) const;
    /// Waits for the program's window and puts it in front.
    void activate() const;
    /// Waits for the sheet of that title and puts it in front.
    void activateSheet(const std::string& title) const;
    /// Waits until the panel shows the mouse; on the test's display, in a window that has been placed and has
    /// the focus.
    [[nodiscard]] bool showsPanel();
    /// Ends the program as the window manager does.
    [[nodiscard]] bool close();
    /// Presses the button of the title bar that closes the window.
    [[nodiscard]] bool closeByTitleBar();
    /// Ends it as the end of the user's session does.
    [[nodiscard]] bool quit();

    /// Whether that is on the screen now.
    [[nodiscard]] bool shows(const QString& spoken) const { return !find(spoken).isNull(); }
    /// What is spoken so, "push button 'Help'"; waits for it.
    [[nodiscard]] Accessible thing(const QString& spoken) const;
    /// Clicks there with the mouse pointer.
    void click(const QString& spoken) const;
    /// Does that with it as a screen reader does: "Press", "Toggle", "SetFocus".
    void perform(const std::string& action, const QString& spoken) const;

    /// Waits until the helper has been told these commands, "KyRO 1 KyPR 0", since this was asked before;
    /// gives those that it has been told.
    [[nodiscard]] std::string commands(const std::string& expected);

    /// What the program has opened in others: documents and addresses, one a line.
    [[nodiscard]] std::string opened() const;
    /// Waits until it opens something; false when that is no page of the panel's own help.
    [[nodiscard]] bool opensOwnHelp() const;

  private:
    [[nodiscard]] std::vector<std::string> environment(const std::string& locale) const;
    [[nodiscard]] Accessible find(const std::function<bool(const std::string&)>& isSpokenSo) const;
    [[nodiscard]] Accessible find(const QString& spoken) const;
    void clickInList(const Accessible& wanted) const;

    const std::vector<std::string> m_display;
    ScreenReader m_reader;
    EventMonitor m_monitor{qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS").toStdString()};
};

} // namespace quorvi::test
