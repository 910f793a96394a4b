// The service under an X server that reads input devices, run in the virtual machine by bench/vm/xorg: the
// reports that reach the pointer while the service takes the mouse, and the cost for programs when a mouse
// and a keyboard type in turn.
//   quorvi-bench-xorg SERVICE RECORD [TIMES]
// SERVICE is the program, RECORD a record in which input 4 holds Shift. The X server is the one of the
// variable DISPLAY. Ends with 1 when a report is lost, or when the service's pointer does not move the X
// server's.
#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <linux/uinput.h>
#include <sys/ioctl.h>
#include <xkbcommon/xkbcommon-x11.h>

#define explicit explicitWord // the header has a field of that name
#include <xcb/xkb.h>
#undef explicit

#include "inputd/loop/Descriptor.h"
#include "support/ChildProcess.h"
#include "support/WaitUntil.h"
#include "vm/support/FakeMouse.h"

namespace quorvi::bench {
namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;
using test::ChildProcess;
using test::FakeMouse;

template <typename Answer>
using Owned = std::unique_ptr<Answer, decltype(&std::free)>;

template <typename Answer>
Owned<Answer> owned(Answer* answer) {
    return {answer, &std::free};
}

/// A program with a window, which reads the keymap again whenever the X server says that there is another,
/// as those of GTK and Qt do.
class Client {
  public:
    Client()
        : m_connection(xcb_connect(nullptr, nullptr)),
          m_context(xkb_context_new(XKB_CONTEXT_NO_DEFAULT_INCLUDES)) {
        if (!isConnected())
            return;
        m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
        xkb_x11_setup_xkb_extension(m_connection, XKB_X11_MIN_MAJOR_XKB_VERSION,
            XKB_X11_MIN_MINOR_XKB_VERSION, XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr,
            &m_xkbEvent, nullptr);
        m_keyboard = xkb_x11_get_core_keyboard_device_id(m_connection);
        constexpr std::uint16_t wanted =
            XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
        constexpr std::uint16_t parts =
            XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS | XCB_XKB_MAP_PART_MODIFIER_MAP;
        xcb_xkb_select_events(m_connection, static_cast<xcb_xkb_device_spec_t>(m_keyboard), wanted, 0, wanted,
            parts, parts, nullptr);
        readKeymap();
    }
    ~Client() {
        xkb_context_unref(m_context);
        xcb_disconnect(m_connection);
    }
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    [[nodiscard]] bool isConnected() const { return xcb_connection_has_error(m_connection) == 0; }

    void takeFocus() {
        const auto window = xcb_generate_id(m_connection);
        const std::uint32_t events = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE;
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, window, m_root, 900, 700, 10, 10, 0,
            XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
        xcb_map_window(m_connection, window);
        sync();
        xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_POINTER_ROOT, window, XCB_CURRENT_TIME);
        sync();
    }
    void sync() {
        owned(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    }

    [[nodiscard]] int pointerX() {
        const auto answer =
            owned(xcb_query_pointer_reply(m_connection, xcb_query_pointer(m_connection, m_root), nullptr));
        return answer ? answer->root_x : -1;
    }
    void warp() {
        xcb_warp_pointer(m_connection, XCB_NONE, m_root, 0, 0, 0, 0, 10, 10);
        sync();
    }

    /// Takes what has come. True once the press or release of that key has been among it.
    bool take(std::uint8_t type, std::uint16_t key) {
        bool found = false;
        while (const auto event = owned(xcb_poll_for_event(m_connection))) {
            const auto kind = static_cast<std::uint8_t>(event->response_type & 0x7F);
            if (kind == m_xkbEvent)
                readKeymap();
            else if (kind == type)
                found =
                    found || reinterpret_cast<const xcb_key_press_event_t*>(event.get())->detail == key + 8;
        }
        return found;
    }
    long keymapsRead = 0;

  private:
    void readKeymap() {
        auto* keymap =
            xkb_x11_keymap_new_from_device(m_context, m_connection, m_keyboard, XKB_KEYMAP_COMPILE_NO_FLAGS);
        xkb_keymap_unref(keymap);
        keymapsRead += 1;
    }

    xcb_connection_t* m_connection;
    xkb_context* m_context;
    xcb_window_t m_root = XCB_NONE;
    std::uint8_t m_xkbEvent = 0;
    std::int32_t m_keyboard = 0;
};

class FakeKeyboard {
  public:
    FakeKeyboard() : m_fd(open("/dev/uinput", O_WRONLY | O_CLOEXEC)) {
        ioctl(m_fd.get(), UI_SET_EVBIT, EV_KEY);
        for (int code = KEY_ESC; code <= KEY_F10; ++code)
            ioctl(m_fd.get(), UI_SET_KEYBIT, code);
        uinput_setup setup{};
        setup.id = {BUS_USB, 0x1234, 99, 1};
        std::strcpy(setup.name, "Test keyboard");
        ioctl(m_fd.get(), UI_DEV_SETUP, &setup);
        ioctl(m_fd.get(), UI_DEV_CREATE);
        test::settleUdev();
    }
    void key(std::uint16_t code, int value) {
        const std::array<input_event, 2> events{{{{}, EV_KEY, code, value}, {{}, EV_SYN, SYN_REPORT, 0}}};
        [[maybe_unused]] const auto size = write(m_fd.get(), events.data(), sizeof events);
    }

  private:
    inputd::Descriptor m_fd;
};

bool isTaken(const std::string& node) {
    const inputd::Descriptor fd(open(node.c_str(), O_RDONLY | O_CLOEXEC));
    return fd && ioctl(fd.get(), EVIOCGRAB, 1) < 0;
}

void print(const char* what, std::vector<double> times) {
    std::ranges::sort(times);
    if (!times.empty())
        std::printf("%-64s p50 %7.2f  p99 %7.2f  longest %7.2f ms\n", what, times[times.size() / 2],
            times[times.size() * 99 / 100], times.back());
}

constexpr std::chrono::seconds kPatience{10};

/// Moves by one and waits until the pointer has. The time in milliseconds, below 0 when it never does.
double moveByOne(FakeMouse& mouse, Client& client) {
    const int before = client.pointerX();
    const auto begin = Clock::now();
    mouse.move(1, 0);
    while (client.pointerX() != before + 1)
        if (Clock::now() - begin > kPatience)
            return -1;
    return Milliseconds(Clock::now() - begin).count();
}

struct Service {
    std::string program;
    std::string record;

    [[nodiscard]] std::unique_ptr<ChildProcess> start(const FakeMouse& mouse) const {
        return std::make_unique<ChildProcess>(
            std::vector<std::string>{program, "--device", mouse.node(), "--record", record});
    }
};

/// The pointer follows each report from before the service is there until it is gone again.
bool showTakingOver(FakeMouse& mouse, Client& client, const Service& service, int times) {
    std::vector<double> plain;
    std::vector<double> first;
    std::vector<double> driven;
    std::vector<double> afterIts;
    const auto move = [&](std::vector<double>& into) {
        into.push_back(moveByOne(mouse, client));
        return into.back() >= 0;
    };
    for (int time = 0; time < times; ++time) {
        client.warp();
        const auto inputd = service.start(mouse);
        const auto begin = Clock::now();
        while (!isTaken(mouse.node()))
            if (!move(plain) || Clock::now() - begin > kPatience)
                return false;
        if (!move(first))
            return false;
        for (int i = 0; i < 100; ++i)
            if (!move(driven))
                return false;
        inputd->kill();
        if (!move(afterIts))
            return false;
    }
    print("a report of the mouse, from its write to the pointer", plain);
    print("... the first after the service has taken the mouse", first);
    print("... those that follow", driven);
    print("... the first after the service was killed", afterIts);
    return true;
}

/// Types A on the keyboard after Shift went down and up, by which device `shift` says.
template <typename Shift>
bool typeInTurn(const char* what, FakeKeyboard& keyboard, std::vector<std::unique_ptr<Client>>& clients,
    int times, Shift shift) {
    std::vector<double> delays;
    const auto await = [&](std::uint8_t type, std::uint16_t key) {
        const auto begin = Clock::now();
        bool has = false;
        while (!has && Clock::now() - begin < kPatience) {
            has = clients.front()->take(type, key);
            for (std::size_t i = 1; i < clients.size(); ++i)
                clients[i]->take(0, 0);
        }
        return has;
    };
    const long before = clients.front()->keymapsRead;
    for (int time = 0; time < times; ++time) {
        shift(1);
        if (!await(XCB_KEY_PRESS, KEY_LEFTSHIFT))
            return false;
        const auto begin = Clock::now();
        keyboard.key(KEY_A, 1);
        if (!await(XCB_KEY_PRESS, KEY_A))
            return false;
        delays.push_back(Milliseconds(Clock::now() - begin).count());
        keyboard.key(KEY_A, 0);
        if (!await(XCB_KEY_RELEASE, KEY_A))
            return false;
        shift(0);
        if (!await(XCB_KEY_RELEASE, KEY_LEFTSHIFT))
            return false;
    }
    print(what, delays);
    std::printf("%-64s %.1f\n", "... keymaps that each program read for a letter",
        static_cast<double>(clients.front()->keymapsRead - before) / times);
    return true;
}

bool showTyping(FakeMouse& mouse, const Service& service, int times) {
    FakeKeyboard keyboard;
    const auto inputd = service.start(mouse);
    if (!test::waitUntil([&] { return isTaken(mouse.node()); }))
        return false;
    std::vector<std::unique_ptr<Client>> clients;
    for (const std::size_t count : {1U, 10U}) {
        while (clients.size() < count)
            clients.push_back(std::make_unique<Client>());
        clients.front()->takeFocus();
        std::printf("%zu programs that read keymaps:\n", count);
        if (!typeInTurn("a letter, Shift held on the same keyboard", keyboard, clients, times,
                [&](int value) { keyboard.key(KEY_LEFTSHIFT, value); }) ||
            !typeInTurn("a letter, Shift held by the mouse", keyboard, clients, times,
                [&](int value) { value != 0 ? mouse.press(BTN_SIDE) : mouse.release(BTN_SIDE); }))
            return false;
    }
    return true;
}

} // namespace
} // namespace quorvi::bench

int main(int argc, char** argv) {
    using namespace quorvi::bench;
    if (argc < 3) {
        std::fputs("usage: quorvi-bench-xorg SERVICE RECORD [TIMES]\n", stderr);
        return 2;
    }
    const int times = argc > 3 ? std::atoi(argv[3]) : 20;
    std::unique_ptr<Client> client;
    const auto connects = [&] { return (client = std::make_unique<Client>())->isConnected(); };
    if (!quorvi::test::waitUntil(connects)) {
        std::fputs("There is no X server.\n", stderr);
        return 1;
    }
    FakeMouse mouse;
    client->warp();
    // The X server opens a new device when udev is done with it.
    if (moveByOne(mouse, *client) < 0 && moveByOne(mouse, *client) < 0) {
        std::fputs("The X server does not hear of the mouse.\n", stderr);
        return 1;
    }
    const Service service{argv[1], argv[2]};
    if (!showTakingOver(mouse, *client, service, times)) {
        std::fputs("The pointer stood still.\n", stderr);
        return 1;
    }
    if (!showTyping(mouse, service, times)) {
        std::fputs("A key did not arrive.\n", stderr);
        return 1;
    }
    return 0;
}
