#include "support/Keyboard.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QTest>

#include <cstdlib>

#include <xcb/xcb.h>

#include "support/ChildProcess.h"
#include "support/WindowTools.h"

namespace quorvi::test {

namespace {

constexpr std::int16_t kWindowPlace = 900;
constexpr std::uint16_t kWindowSize = 100;

template <typename Reply>
using Owned = std::unique_ptr<Reply, decltype(&std::free)>;

template <typename Reply>
Owned<Reply> owned(Reply* reply) {
    return {reply, std::free};
}

/// As xdotool takes it: without the zeros the codes up to 9 would be the keys of these digits.
std::string keyName(int keycode) {
    return "00" + std::to_string(keycode);
}

} // namespace

std::optional<std::string> xdotool(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "xdotool");
    const auto result = runProgram(arguments);
    return result.exitCode == 0 ? std::optional(result.output) : std::nullopt;
}

std::string visibleWindow(std::vector<std::string> terms) {
    terms.insert(terms.begin(), {"search", "--sync", "--onlyvisible"});
    std::optional<std::string> found;
    // A search fails when some other window goes while xdotool looks at it.
    const auto search = [&] { return (found = xdotool(terms)).has_value(); };
    if (!QTest::qWaitFor(search, kWindowPatienceMs))
        qFatal("no window of %s comes", terms.back().c_str());
    return found->substr(0, found->find('\n'));
}

std::string visibleWindowOf(pid_t program) {
    return visibleWindow({"--pid", std::to_string(program)});
}

bool hasDisplay() {
    return !qEnvironmentVariableIsEmpty("DISPLAY") &&
           QGuiApplication::platformName() == QLatin1String("xcb") && xdotool({"version"});
}

void clickAt(QPoint spot) {
    if (!xdotool({"mousemove", std::to_string(spot.x()), std::to_string(spot.y()), "click", "1"}))
        qFatal("the mouse cannot be clicked");
}

Keyboard::Keyboard() {
    QCoreApplication::instance()->installEventFilter(this);
}

Keyboard::~Keyboard() {
    for (const int keycode : m_down)
        (void)xdotool({"keyup", keyName(keycode)});
}

void Keyboard::down(int keycode) {
    const int before = m_seen;
    downUnseen(keycode);
    awaitEvents(before + 1);
}

void Keyboard::up(int keycode) {
    const int before = m_seen;
    upUnseen(keycode);
    awaitEvents(before + 1);
}

void Keyboard::tap(int keycode) {
    down(keycode);
    up(keycode);
}

void Keyboard::downUnseen(int keycode) {
    m_down.push_back(keycode);
    if (!xdotool({"keydown", keyName(keycode)}))
        qFatal("a key cannot be pressed");
}

void Keyboard::upUnseen(int keycode) {
    std::erase(m_down, keycode);
    if (!xdotool({"keyup", keyName(keycode)}))
        qFatal("a key cannot be released");
}

void Keyboard::awaitEvents(int count) const {
    if (!QTest::qWaitFor([&] { return m_seen >= count; }, kWindowPatienceMs))
        QTest::qFail("a key does not come to the program", __FILE__, __LINE__);
}

bool Keyboard::eventFilter(QObject* watched, QEvent* event) {
    // This filter came last, so that it comes first: before anybody takes the event.
    if (watched->isWindowType() &&
        (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) &&
        !static_cast<QKeyEvent*>(event)->isAutoRepeat())
        ++m_seen;
    return QObject::eventFilter(watched, event);
}

void OtherProgram::Disconnect::operator()(xcb_connection_t* connection) const {
    xcb_disconnect(connection);
}

OtherProgram::OtherProgram() : m_connection(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(m_connection.get()))
        qFatal("the display takes no second program");
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root;
}

OtherProgram::~OtherProgram() = default;

bool OtherProgram::takeKeyboard() {
    const auto reply = owned(xcb_grab_keyboard_reply(m_connection.get(),
        xcb_grab_keyboard(
            m_connection.get(), 0, m_root, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
        nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

void OtherProgram::giveKeyboardBack() {
    if (const auto* error = xcb_request_check(
            m_connection.get(), xcb_ungrab_keyboard_checked(m_connection.get(), XCB_CURRENT_TIME)))
        qFatal("the keyboard cannot be given back: %d", error->error_code);
}

bool OtherProgram::canTakeKeyboard() {
    const bool taken = takeKeyboard();
    if (taken)
        giveKeyboardBack();
    return taken;
}

void OtherProgram::bindKey(int keycode) {
    if (const auto* error = xcb_request_check(
            m_connection.get(), xcb_grab_key_checked(m_connection.get(), 0, m_root, 0, xcb_keycode_t(keycode),
                                    XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)))
        qFatal("the key %d cannot be bound: %d", keycode, error->error_code);
}

int OtherProgram::keyPresses() {
    constexpr int kSentEvent = 0x80;
    while (const auto event = owned(xcb_poll_for_event(m_connection.get())))
        m_keyPresses += (event->response_type & ~kSentEvent) == XCB_KEY_PRESS;
    return m_keyPresses;
}

bool OtherProgram::isCapsLockOn() const {
    const auto reply = owned(
        xcb_query_pointer_reply(m_connection.get(), xcb_query_pointer(m_connection.get(), m_root), nullptr));
    return reply && (reply->mask & XCB_MOD_MASK_LOCK) != 0;
}

QPoint OtherProgram::showWindow() {
    m_window = xcb_generate_id(m_connection.get());
    const std::uint32_t events = XCB_EVENT_MASK_KEY_PRESS;
    xcb_create_window(m_connection.get(), XCB_COPY_FROM_PARENT, m_window, m_root, kWindowPlace,
        kWindowPlace / 2, kWindowSize, kWindowSize, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
        XCB_CW_EVENT_MASK, &events);
    xcb_map_window(m_connection.get(), m_window);
    xcb_flush(m_connection.get());
    if (!xdotool({"windowmove", "--sync", std::to_string(m_window), "1000", "600"}))
        qFatal("the other program's window cannot be placed");
    return {1000 + kWindowSize / 2, 600 + kWindowSize / 2};
}

void OtherProgram::activateWindow() {
    if (!xdotool({"windowactivate", "--sync", std::to_string(m_window)}))
        qFatal("the other program's window cannot be activated");
}

} // namespace quorvi::test
