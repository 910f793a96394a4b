// The X display's keyboard and mouse, used like a user, and another program on that display.
#pragma once

#include <QObject>
#include <QPoint>

#include <memory>
#include <optional>
#include <string>
#include <vector>

struct xcb_connection_t;

namespace quorvi::test {

/// Runs xdotool; returns its output, or std::nullopt if it fails.
std::optional<std::string> xdotool(std::vector<std::string> arguments);

/// The id of the first visible window that xdotool finds by these terms of its search, "--pid" and a number
/// or
/// "--name" and a pattern: waits for one, and ends the test program when none comes.
[[nodiscard]] std::string visibleWindow(std::vector<std::string> terms);
[[nodiscard]] std::string visibleWindowOf(pid_t program);

/// Whether there is an X display that Qt uses, and xdotool.
[[nodiscard]] bool hasDisplay();

/// Puts the pointer there and clicks the left button.
void clickAt(QPoint spot);

/// Key codes of the X keyboard, which are those of the input layer plus 8.
namespace keycodes {
constexpr int escape = 9, tab = 23, q = 24, enter = 36, leftControl = 37, a = 38, shift = 50, rightShift = 62,
              alt = 64, capsLock = 66, f1 = 67, f4 = 70, f11 = 95, f12 = 96, print = 107, altGr = 108,
              leftSuper = 133, rightSuper = 134, f13 = 191;
} // namespace keycodes

/// Presses keys, and waits until this process has received each event. Keys that a test leaves down are
/// released at its end.
class Keyboard : public QObject {
  public:
    Keyboard();
    ~Keyboard() override;

    void down(int keycode);
    void up(int keycode);
    void tap(int keycode);
    /// The same without waiting, for keys that may go to others.
    void downUnseen(int keycode);
    void upUnseen(int keycode);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void awaitEvents(int count) const;

    int m_seen = 0;
    std::vector<int> m_down;
};

/// Another program on the display, with its own connection and, if needed, window.
class OtherProgram {
  public:
    OtherProgram();
    ~OtherProgram();
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    /// Grabs the whole keyboard; returns false if another program has it.
    [[nodiscard]] bool takeKeyboard();
    void giveKeyboardBack();
    [[nodiscard]] bool canTakeKeyboard();
    /// Grabs this key, pressed alone, wherever the focus is, like a desktop.
    void bindKey(int keycode);
    /// Key presses that it got so far.
    [[nodiscard]] int keyPresses();
    [[nodiscard]] bool isCapsLockOn() const;

    /// Shows a window in the lower right corner; where to click into it.
    QPoint showWindow();
    void activateWindow();

  private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const;
    };
    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    std::uint32_t m_root = 0;
    std::uint32_t m_window = 0;
    int m_keyPresses = 0;
};

} // namespace quorvi::test
