// A mouse, a wheel and a keyboard whose events take the way of a display server's: through the window, past
// modal sheets and open menus, to the focused control. They are handled by the event loop, so an action may
// open a nested loop.
#pragma once

#include <QEvent>
#include <QPoint>
#include <QWidget>

#include <vector>

namespace quorvi::test {

/// A key of the keyboard.
struct Key {
    Qt::Key key;
    quint32 scanCode; ///< of the input layer plus 8
    const char* text; ///< what it types alone
};

namespace handkeys {
inline constexpr Key escape{Qt::Key_Escape, 9, ""}, enter{Qt::Key_Return, 36, "\r"},
    tab{Qt::Key_Tab, 23, "\t"}, space{Qt::Key_Space, 65, " "}, deleteKey{Qt::Key_Delete, 119, ""},
    end{Qt::Key_End, 115, ""};
}

/// All keys that are pressed by chance, the modifiers among them.
[[nodiscard]] const std::vector<Key>& allKeys();

class Hands {
  public:
    void press(const QWidget& widget, QPoint place, Qt::MouseButton button = Qt::LeftButton);
    void moveTo(const QWidget& widget, QPoint place);
    void release(const QWidget& widget, QPoint place, Qt::MouseButton button = Qt::LeftButton);
    void click(const QWidget& widget, QPoint place, Qt::MouseButton button = Qt::LeftButton);
    void wheel(const QWidget& widget, QPoint place, int angle) const;

    void down(const Key& key);
    void up(const Key& key);
    void tap(const Key& key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Types with an input method, into whatever takes text now.
    static void type(const QString& text);

    [[nodiscard]] Qt::MouseButtons held() const { return m_buttons; }
    /// Lets go of all buttons and keys; the buttons over the widget.
    void letGo(const QWidget& widget);

  private:
    void sendMouse(const QWidget& widget, QPoint place, Qt::MouseButton button, QEvent::Type type) const;
    void sendKey(QEvent::Type type, const Key& key) const;

    Qt::MouseButtons m_buttons;
    Qt::KeyboardModifiers m_modifiers;
    std::vector<Key> m_down;
};

} // namespace quorvi::test
