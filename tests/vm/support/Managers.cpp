#include "vm/support/Managers.h"

#include <gtest/gtest.h>

#include <string_view>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace quorvi::test {

const sd_bus_vtable Managers::authority[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD(
        "CheckAuthorization", "(sa{sv})sa{ss}us", "(bba{ss})", authorize, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END,
};

const sd_bus_vtable Managers::manager[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("Inhibit", "ssss", "h", inhibit, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_PROPERTY("PreparingForSleep", "b", isPreparingForSleep, 0, 0),
    SD_BUS_SIGNAL("PrepareForSleep", "b", 0),
    SD_BUS_VTABLE_END,
};

Managers::Managers() {
    sd_bus* bus = nullptr;
    EXPECT_GE(sd_bus_open_system(&bus), 0);
    m_bus.reset(bus);
    EXPECT_GE(sd_bus_add_object_vtable(bus, nullptr, "/org/freedesktop/PolicyKit1/Authority",
                  "org.freedesktop.PolicyKit1.Authority", authority, this),
        0);
    EXPECT_GE(sd_bus_add_object_vtable(
                  bus, nullptr, "/org/freedesktop/login1", "org.freedesktop.login1.Manager", manager, this),
        0);
    EXPECT_GE(sd_bus_request_name(bus, "org.freedesktop.PolicyKit1", 0), 0);
    EXPECT_GE(sd_bus_request_name(bus, "org.freedesktop.login1", 0), 0);
    m_thread = std::thread([this] { run(); });
}

Managers::~Managers() {
    m_ends = true;
    m_thread.join();
    if (m_delay >= 0)
        close(m_delay);
}

void Managers::run() {
    while (!m_ends) {
        while (sd_bus_process(m_bus.get(), nullptr) > 0)
            ;
        if (const int begins = m_announced.exchange(-1); begins >= 0) {
            m_isPreparing = begins;
            sd_bus_emit_signal(m_bus.get(), "/org/freedesktop/login1", "org.freedesktop.login1.Manager",
                "PrepareForSleep", "b", begins);
        }
        if (!isSlow)
            answer();
        sd_bus_wait(m_bus.get(), 5000);
    }
}

int Managers::authorize(sd_bus_message* message, void* self, sd_bus_error* /*error*/) {
    auto& managers = *static_cast<Managers*>(self);
    const char* kind = nullptr;
    const char* action = nullptr;
    sd_bus_message_enter_container(message, 'r', "sa{sv}");
    sd_bus_message_read(message, "s", &kind);
    sd_bus_message_skip(message, "a{sv}");
    sd_bus_message_exit_container(message);
    sd_bus_message_read(message, "s", &action);
    EXPECT_STREQ(kind, "system-bus-name");
    EXPECT_STREQ(action, "com.kyvar.inputd.use-mice");
    ++managers.m_timesAsked;
    managers.m_asked.push_back(events::adopt(sd_bus_message_ref(message)));
    return 1;
}

void Managers::answer() {
    for (const auto& message : std::exchange(m_asked, {}))
        sd_bus_reply_method_return(
            message.get(), "(bba{ss})", static_cast<int>(letsUser), 0, 1, "asked", "1");
}

int Managers::inhibit(sd_bus_message* message, void* self, sd_bus_error* /*error*/) {
    auto& managers = *static_cast<Managers*>(self);
    const char* what = nullptr;
    const char* mode = nullptr;
    sd_bus_message_read(message, "ssss", &what, nullptr, nullptr, &mode);
    EXPECT_STREQ(what, "sleep");
    EXPECT_STREQ(mode, "delay");
    int ends[2];
    EXPECT_EQ(pipe2(ends, O_CLOEXEC | O_NONBLOCK), 0);
    if (const int earlier = managers.m_delay.exchange(ends[0]); earlier >= 0)
        close(earlier);
    const int result = sd_bus_reply_method_return(message, "h", ends[1]);
    close(ends[1]);
    return result;
}

int Managers::isPreparingForSleep(sd_bus* /*bus*/, const char* /*path*/, const char* /*interface*/,
    const char* /*property*/, sd_bus_message* reply, void* self, sd_bus_error* /*error*/) {
    return sd_bus_message_append(reply, "b", static_cast<Managers*>(self)->m_isPreparing);
}

bool Managers::isSleepDelayed() const {
    pollfd end{m_delay, 0, 0};
    return m_delay >= 0 && poll(&end, 1, 0) == 0; // the other end closed would be POLLHUP
}

void Managers::sayPrepareForSleep(bool begins) {
    m_announced = begins ? 1 : 0;
}

} // namespace quorvi::test
