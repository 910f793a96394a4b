#include "helper/front/X11Source.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <utility>

#include <xcb/xcbext.h>

namespace quorvi::front {

namespace {

constexpr std::uint32_t kLongestProperty = 256; ///< in units of 4 bytes

std::string_view bytesOf(const xcb_get_property_reply_t* property) {
    if (!property || xcb_get_property_value_length(property) <= 0)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(property)),
        static_cast<std::size_t>(xcb_get_property_value_length(property))};
}

std::uint32_t numberOf(const xcb_get_property_reply_t* property) {
    std::uint32_t number = 0;
    if (const auto bytes = bytesOf(property);
        property && property->format == 32 && bytes.size() >= sizeof number)
        std::memcpy(&number, bytes.data(), sizeof number);
    return number;
}

/// Removes and returns the part up to the next zero, which is removed too.
std::string takePart(std::string_view& parts) {
    const auto end = std::min(parts.find('\0'), parts.size());
    std::string part(parts.substr(0, end));
    parts.remove_prefix(std::min(end + 1, parts.size()));
    return part;
}

/// The socket of a display on this machine; empty for remote ones.
std::filesystem::path socketOf(const std::string& display) {
    char* host = nullptr;
    int number = 0;
    int screen = 0;
    if (!xcb_parse_display(display.c_str(), &host, &number, &screen))
        return {};
    const std::unique_ptr<char, XcbFree> owned(host);
    const bool isHere = !host || *host == '\0' || std::string_view(host) == "unix";
    return isHere ? "/tmp/.X11-unix/X" + std::to_string(number) : std::string();
}

xcb_screen_t* screenOf(xcb_connection_t* connection, int number) {
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screens.rem > 1 && number > 0; --number)
        xcb_screen_next(&screens);
    return screens.data;
}

xcb_atom_t atomOf(xcb_connection_t* connection, xcb_intern_atom_cookie_t question) {
    const std::unique_ptr<xcb_intern_atom_reply_t, XcbFree> answer(
        xcb_intern_atom_reply(connection, question, nullptr));
    return answer ? answer->atom : xcb_atom_t{XCB_NONE};
}

xcb_intern_atom_cookie_t askForAtom(xcb_connection_t* connection, std::string_view name) {
    return xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
}

void listenToProperties(xcb_connection_t* connection, xcb_window_t window, bool listen) {
    const std::uint32_t mask = listen ? XCB_EVENT_MASK_PROPERTY_CHANGE : XCB_EVENT_MASK_NO_EVENT;
    xcb_change_window_attributes(connection, window, XCB_CW_EVENT_MASK, &mask);
}

} // namespace

void XcbFree::operator()(void* memory) const {
    std::free(memory); // NOLINT(cppcoreguidelines-no-malloc): it is malloc's
}

X11Source::X11Source(EventLoop& loop, std::string display) : m_loop(loop), m_display(std::move(display)) {
    if (auto socket = socketOf(m_display); !socket.empty())
        m_return = std::make_unique<ReturningSocket>(m_loop, std::move(socket), [this] { return connect(); });
}

X11Source::~X11Source() {
    if (m_connection)
        m_loop.unwatch(xcb_get_file_descriptor(m_connection.get()));
}

void X11Source::start() {
    if (!connect() && m_return)
        m_return->wait();
}

bool X11Source::connect() {
    int screen = 0;
    std::unique_ptr<xcb_connection_t, Disconnect> made(xcb_connect(m_display.c_str(), &screen));
    if (xcb_connection_has_error(made.get()) != 0)
        return false;
    const auto activeWindow = askForAtom(made.get(), "_NET_ACTIVE_WINDOW");
    const auto windowPid = askForAtom(made.get(), "_NET_WM_PID");
    m_root = screenOf(made.get(), screen)->root;
    listenToProperties(made.get(), m_root, true);
    m_activeWindow = atomOf(made.get(), activeWindow);
    m_windowPid = atomOf(made.get(), windowPid);
    if (xcb_connection_has_error(made.get()) != 0)
        return false;
    m_connection = std::move(made);
    m_loop.watch(xcb_get_file_descriptor(m_connection.get()), [this] { serve(); });
    changed();
    askForWindow();
    serve();
    return true;
}

void X11Source::lose() {
    m_loop.unwatch(xcb_get_file_descriptor(m_connection.get()));
    m_connection.reset();
    m_window = m_classless = XCB_NONE;
    m_windowQuestion.reset();
    m_classQuestion.reset();
    m_pidQuestion.reset();
    changed();
    if (m_return)
        m_return->wait();
}

/// Any read may also fetch events and answers to other requests, after which the descriptor is not ready any
/// more.
void X11Source::serve() {
    do
        xcb_flush(m_connection.get());
    while (takeEvents() || takeAnswers());
    if (xcb_connection_has_error(m_connection.get()) != 0)
        lose();
}

bool X11Source::takeEvents() {
    bool any = false;
    for (;;) {
        const std::unique_ptr<xcb_generic_event_t, XcbFree> event(xcb_poll_for_event(m_connection.get()));
        if (!event)
            return any;
        takeEvent(*event);
        any = true;
    }
}

void X11Source::takeEvent(const xcb_generic_event_t& event) {
    constexpr unsigned sentByClient = 0x80;
    if ((event.response_type & ~sentByClient) != XCB_PROPERTY_NOTIFY)
        return;
    const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (change.window == m_root && change.atom == m_activeWindow)
        askForWindow();
    else if (change.window == m_window && change.atom == XCB_ATOM_WM_CLASS)
        askAbout(m_window);
}

bool X11Source::takeAnswers() {
    Property window;
    if (answered(m_windowQuestion, window)) {
        takeWindow(window);
        return true;
    }
    const bool any = answered(m_classQuestion, m_class) || answered(m_pidQuestion, m_pid);
    if (any && !m_classQuestion && !m_pidQuestion)
        takeClassAndPid();
    return any;
}

void X11Source::takeWindow(const Property& answer) {
    const xcb_window_t window = numberOf(answer.get());
    if (window == XCB_NONE)
        return;
    m_window = window;
    askAbout(window);
}

void X11Source::takeClassAndPid() {
    FrontWindow window;
    auto parts = bytesOf(m_class.get());
    window.windowName = takePart(parts);
    window.windowClass = takePart(parts);
    window.pid = static_cast<pid_t>(numberOf(m_pid.get()));
    waitForClassOf(window.windowClass.empty() ? m_window : xcb_window_t{XCB_NONE});
    report(window);
}

X11Source::Question X11Source::ask(xcb_window_t window, xcb_atom_t property, xcb_atom_t type) const {
    return xcb_get_property(m_connection.get(), 0, window, property, type, 0, kLongestProperty).sequence;
}

/// Drop the older request: its answer would be an older window.
void X11Source::askForWindow() {
    if (m_windowQuestion)
        xcb_discard_reply(m_connection.get(), *m_windowQuestion);
    m_windowQuestion = ask(m_root, m_activeWindow, XCB_ATOM_WINDOW);
}

void X11Source::askAbout(xcb_window_t window) {
    for (const auto& question : {m_classQuestion, m_pidQuestion})
        if (question)
            xcb_discard_reply(m_connection.get(), *question);
    m_class.reset();
    m_pid.reset();
    m_classQuestion = ask(window, XCB_ATOM_WM_CLASS, XCB_GET_PROPERTY_TYPE_ANY);
    m_pidQuestion = ask(window, m_windowPid, XCB_ATOM_CARDINAL);
}

bool X11Source::answered(Question& question, Property& property) const {
    void* reply = nullptr;
    xcb_generic_error_t* error = nullptr;
    if (!question || xcb_poll_for_reply(m_connection.get(), *question, &reply, &error) == 0)
        return false;
    property.reset(static_cast<xcb_get_property_reply_t*>(reply));
    // An error means that the window is gone; another one will come to the front.
    const std::unique_ptr<xcb_generic_error_t, XcbFree> owned(error);
    question.reset();
    return true;
}

void X11Source::waitForClassOf(xcb_window_t window) {
    if (const auto before = std::exchange(m_classless, window); before != window) {
        if (before != XCB_NONE)
            listenToProperties(m_connection.get(), before, false);
        if (window != XCB_NONE) {
            listenToProperties(m_connection.get(), window, true);
            askAbout(window); // the class may have been set in the meantime
        }
    }
}

} // namespace quorvi::front
