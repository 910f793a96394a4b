// The settings application as a separate program, with the mouse plugged in, used without the mouse pointer:
// with the display's keys, or through a screen reader's interface.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

#include "host/Session.h"
#include "support/EventMonitor.h"
#include "support/ScreenReader.h"

namespace quorvi::test {

/// The places of the tabs in the window.
enum Tab : int { kButtonsTab, kSensitivityTab, kProfilesTab, kMacrosTab, kDeviceTab, kTabCount };

/// How the program starts: in the language of a locale, with the mouse plugged in or not, and by what one
/// hears that it has.
struct WalkStart {
    const char* locale = "C.UTF-8";
    bool attached = true;
    const char* heardThen = "label 'Connected'";
    /// Is done in the new session, before the program starts.
    std::function<void()> before = {};
};

class Walk {
  public:
    /// Starts the program with these settings and waits until it shows the mouse and has the focus. The
    /// session has the applications "Byte Editor" and "Terminal".
    explicit Walk(const plist::Dictionary& settings = UserHome::defaults(), const WalkStart& start = {});
    ~Walk();
    Walk(const Walk&) = delete;
    Walk& operator=(const Walk&) = delete;

    [[nodiscard]] const Session& session() const { return m_session; }
    [[nodiscard]] ScreenReader& reader() { return m_reader; }
    [[nodiscard]] const Accessible& window() const { return m_window; }

    // Keys

    /// Presses the keys, by their X names, "shift+Tab".
    void press(const QStringList& keys);
    void type(const QString& text) const;
    /// What has the focus and can be seen with it, as "push button 'Add profile'"; otherwise what is wrong.
    [[nodiscard]] QString focus();
    /// Waits until that has the focus, and gives what has it.
    [[nodiscard]] QString focusBecomes(const QString& expected);
    /// Presses the key and does the same.
    [[nodiscard]] QString focusAfter(const char* key, const QString& expected);
    /// Presses the key, waits until the focus is elsewhere, and gives where.
    [[nodiscard]] QString focusMovedBy(const char* key);
    /// Presses the key again and again until that has the focus; false when it never has.
    [[nodiscard]] bool moveTo(const QString& wanted, const char* key = "Tab");
    /// Goes from the tabs' titles, which have the focus at first, to the tab and from there to its first
    /// control.
    [[nodiscard]] bool enterTab(Tab tab);
    /// Goes to the item of the menu that is open, and chooses it.
    [[nodiscard]] bool chooseItem(const QString& title);

    // What a screen reader is offered

    /// The thing on the screen that is spoken so, wherever it is; waits for it.
    [[nodiscard]] Accessible thing(const QString& wanted) const;
    /// Does that with the thing; false when there is none or it cannot be done.
    [[nodiscard]] bool perform(const QString& wanted, const char* action = "Press") const;

    /// Brings the tab to the front; false when it does not come.
    [[nodiscard]] bool openTab(const char* title) const;

    // The program's end

    /// Sends the program the signal, waits for its end and gives the exit code, as ChildProcess::wait() does.
    [[nodiscard]] std::optional<int> endBy(int signal);

    // What comes of it

    /// Waits until the settings file holds profiles or macros of these names, in that order; gives those that
    /// it holds.
    [[nodiscard]] QStringList savedNames(const char* array, const QStringList& expected) const;
    [[nodiscard]] plist::Dictionary savedItem(const char* array, std::size_t index) const;
    /// The helper has been told of new settings, in which that profile is the current one, since keys were
    /// last pressed; waits for that.
    [[nodiscard]] bool helperIsTold(int profile);

    /// The commands that the helper was sent since keys were last pressed, up to that one; waits for it.
    [[nodiscard]] QStringList commandsUntil(const char* last);

  private:
    /// Ends the test with what there is instead of the window.
    [[noreturn]] void failToStart();

    Session m_session;
    ScreenReader m_reader;
    EventMonitor m_monitor{qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS").toStdString()};
    std::unique_ptr<ChildProcess> m_program;
    Accessible m_window;
};

/// The default settings with two further profiles, "Game" and "Work", and the macros "Hello" and "Greet" of
/// three steps each.
[[nodiscard]] plist::Dictionary settingsToWalkIn();

/// How a test names what a reader speaks.
[[nodiscard]] inline QString heard(const Accessible& thing) {
    return QString::fromStdString(spoken(thing));
}

} // namespace quorvi::test
