#include "proof/Hands.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QWindow>
#include <qpa/qwindowsysteminterface.h>

#include <algorithm>

namespace quorvi::test {

namespace {

Qt::KeyboardModifier modifierOf(Qt::Key key) {
    switch (key) {
    case Qt::Key_Shift:
        return Qt::ShiftModifier;
    case Qt::Key_Control:
        return Qt::ControlModifier;
    case Qt::Key_Alt:
        return Qt::AltModifier;
    case Qt::Key_Meta:
        return Qt::MetaModifier;
    default:
        return Qt::NoModifier;
    }
}

/// The modifiers as the X server's state has them.
quint32 nativeState(Qt::KeyboardModifiers modifiers) {
    return (modifiers & Qt::ShiftModifier ? 1U : 0U) | (modifiers & Qt::ControlModifier ? 4U : 0U) |
           (modifiers & Qt::AltModifier ? 8U : 0U) | (modifiers & Qt::MetaModifier ? 0x40U : 0U);
}

QWindow* windowForKeys() {
    const QWidget* popUp = QApplication::activePopupWidget();
    return popUp ? popUp->windowHandle() : QGuiApplication::focusWindow();
}

} // namespace

const std::vector<Key>& allKeys() {
    using namespace handkeys;
    static const std::vector<Key> keys{escape, enter, tab, space, deleteKey, end, {Qt::Key_Backtab, 23, ""},
        {Qt::Key_Up, 111, ""}, {Qt::Key_Down, 116, ""}, {Qt::Key_Left, 113, ""}, {Qt::Key_Right, 114, ""},
        {Qt::Key_Home, 110, ""}, {Qt::Key_PageUp, 112, ""}, {Qt::Key_PageDown, 117, ""},
        {Qt::Key_Backspace, 22, "\b"}, {Qt::Key_Insert, 118, ""}, {Qt::Key_F1, 67, ""}, {Qt::Key_F2, 68, ""},
        {Qt::Key_F4, 70, ""}, {Qt::Key_F10, 76, ""}, {Qt::Key_Menu, 135, ""}, {Qt::Key_Enter, 104, "\r"},
        {Qt::Key_A, 38, "a"}, {Qt::Key_B, 56, "b"}, {Qt::Key_C, 54, "c"}, {Qt::Key_V, 55, "v"},
        {Qt::Key_X, 53, "x"}, {Qt::Key_Z, 52, "z"}, {Qt::Key_1, 10, "1"}, {Qt::Key_5, 14, "5"},
        {Qt::Key_9, 18, "9"}, {Qt::Key_Shift, 50, ""}, {Qt::Key_Shift, 62, ""}, {Qt::Key_Control, 37, ""},
        {Qt::Key_Alt, 64, ""}, {Qt::Key_Meta, 133, ""}, {Qt::Key_CapsLock, 66, ""}, {Qt::Key_Print, 107, ""},
        {Qt::Key_VolumeUp, 123, ""}, {Qt::Key_unknown, 0, ""}};
    return keys;
}

void Hands::sendMouse(const QWidget& widget, QPoint place, Qt::MouseButton button, QEvent::Type type) const {
    const QWidget* top = widget.window();
    if (!top->windowHandle())
        return;
    const QPoint local = widget.mapTo(top, place);
    QWindowSystemInterface::handleMouseEvent(top->windowHandle(), QPointF(local),
        QPointF(top->mapToGlobal(local)), m_buttons, button, type, m_modifiers);
}

void Hands::press(const QWidget& widget, QPoint place, Qt::MouseButton button) {
    if (m_buttons & button)
        return;
    m_buttons |= button;
    sendMouse(widget, place, button, QEvent::MouseButtonPress);
}

void Hands::moveTo(const QWidget& widget, QPoint place) {
    sendMouse(widget, place, Qt::NoButton, QEvent::MouseMove);
}

void Hands::release(const QWidget& widget, QPoint place, Qt::MouseButton button) {
    if (!(m_buttons & button))
        return;
    m_buttons &= ~Qt::MouseButtons(button);
    sendMouse(widget, place, button, QEvent::MouseButtonRelease);
}

void Hands::click(const QWidget& widget, QPoint place, Qt::MouseButton button) {
    press(widget, place, button);
    release(widget, place, button);
}

void Hands::wheel(const QWidget& widget, QPoint place, int angle) const {
    const QWidget* top = widget.window();
    const QPoint local = widget.mapTo(top, place);
    if (top->windowHandle())
        QWindowSystemInterface::handleWheelEvent(top->windowHandle(), QPointF(local),
            QPointF(top->mapToGlobal(local)), QPoint(), QPoint(0, angle), m_modifiers);
}

void Hands::sendKey(QEvent::Type type, const Key& key) const {
    if (QWindow* window = windowForKeys())
        QWindowSystemInterface::handleExtendedKeyEvent(window, type, key.key, m_modifiers, key.scanCode, 0,
            nativeState(m_modifiers), QString::fromLatin1(key.text));
}

void Hands::down(const Key& key) {
    const auto sameKey = [&](const Key& other) { return other.scanCode == key.scanCode; };
    if (std::ranges::any_of(m_down, sameKey))
        return;
    m_down.push_back(key);
    sendKey(QEvent::KeyPress, key);
    m_modifiers |= modifierOf(key.key);
}

void Hands::up(const Key& key) {
    if (std::erase_if(m_down, [&](const Key& other) { return other.scanCode == key.scanCode; }) == 0)
        return;
    sendKey(QEvent::KeyRelease, key);
    m_modifiers &= ~Qt::KeyboardModifiers(modifierOf(key.key));
}

void Hands::tap(const Key& key, Qt::KeyboardModifiers modifiers) {
    const Qt::KeyboardModifiers before = std::exchange(m_modifiers, m_modifiers | modifiers);
    down(key);
    up(key);
    m_modifiers = before;
}

void Hands::type(const QString& text) {
    QObject* const object = QGuiApplication::focusObject();
    if (!object)
        return;
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(object, &event);
}

void Hands::letGo(const QWidget& widget) {
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton, Qt::BackButton,
             Qt::ForwardButton, Qt::ExtraButton3})
        release(widget, widget.rect().center(), button);
    while (!m_down.empty())
        up(Key(m_down.back()));
}

} // namespace quorvi::test
