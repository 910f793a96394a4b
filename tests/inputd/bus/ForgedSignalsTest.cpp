// Signals that another program addresses to the service, imitating the login manager or the bus. A match rule
// with the sender's name does not stop them: the library delivers signals addressed to its connection.
#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <optional>

#include <fcntl.h>
#include <unistd.h>

#include "inputd/bus/SleepWatch.h"
#include "inputd/bus/Watchers.h"
#include "support/PrivateBus.h"
#include "support/WaitUntil.h"

namespace quorvi::inputd {
namespace {

constexpr char kManagerName[] = "org.freedesktop.login1";
constexpr char kManagerPath[] = "/org/freedesktop/login1";
constexpr char kManagerInterface[] = "org.freedesktop.login1.Manager";

events::BusPtr connect() {
    sd_bus* bus = nullptr;
    EXPECT_GE(sd_bus_open_user(&bus), 0);
    return events::BusPtr(bus);
}

std::string nameOf(const events::BusPtr& bus) {
    const char* name = nullptr;
    EXPECT_GE(sd_bus_get_unique_name(bus.get(), &name), 0);
    return name ? name : "";
}

/// The log-in manager, as far as it says that the computer goes to sleep.
class LogInManager {
  public:
    LogInManager() : bus(connect()) {
        EXPECT_GE(
            sd_bus_add_object_vtable(bus.get(), nullptr, kManagerPath, kManagerInterface, vtable, this), 0);
        EXPECT_GE(sd_bus_request_name(bus.get(), kManagerName, 0), 0);
    }
    void prepareForSleep(bool begins) {
        isPreparing = begins ? 1 : 0;
        EXPECT_GE(sd_bus_emit_signal(
                      bus.get(), kManagerPath, kManagerInterface, "PrepareForSleep", "b", isPreparing),
            0);
    }

    /// Gives the delay that was asked for while grantsLate was set. It is kept until the other end of the
    /// pipe says otherwise.
    void grant() {
        EXPECT_EQ(pipe2(m_pipe.data(), O_CLOEXEC | O_NONBLOCK), 0);
        const Descriptor given(m_pipe[1]);
        EXPECT_GE(sd_bus_reply_method_return(late.get(), "h", given.get()), 0);
        late.reset();
        EXPECT_GE(sd_bus_flush(bus.get()), 0);
    }
    [[nodiscard]] bool delayWasGivenBack() const {
        char byte = 0;
        return read(m_pipe[0], &byte, 1) == 0; // nobody has the writing end any more
    }

    events::BusPtr bus;
    bool grantsLate = false;
    events::MessageRef late;
    int isPreparing = 0;
    int timesDelayed = 0;
    int timesAsked = 0;

  private:
    static int inhibit(sd_bus_message* message, void* self, sd_bus_error* /*error*/) {
        auto& manager = *static_cast<LogInManager*>(self);
        ++manager.timesDelayed;
        if (manager.grantsLate) {
            manager.late = events::adopt(sd_bus_message_ref(message));
            return 1;
        }
        const Descriptor any(open("/dev/null", O_RDONLY | O_CLOEXEC));
        return sd_bus_reply_method_return(message, "h", any.get());
    }
    static int preparing(sd_bus* /*bus*/, const char* /*path*/, const char* /*interface*/,
        const char* /*property*/, sd_bus_message* reply, void* self, sd_bus_error* /*error*/) {
        auto& manager = *static_cast<LogInManager*>(self);
        ++manager.timesAsked;
        return sd_bus_message_append(reply, "b", manager.isPreparing);
    }
    static const sd_bus_vtable vtable[];

    std::array<int, 2> m_pipe{-1, -1};
};

const sd_bus_vtable LogInManager::vtable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("Inhibit", "ssss", "h", inhibit, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_PROPERTY("PreparingForSleep", "b", preparing, 0, 0),
    SD_BUS_SIGNAL("PrepareForSleep", "b", 0),
    SD_BUS_VTABLE_END,
};

/// The service's connection, a log-in manager, and any other program on a bus of the test's own. They are
/// served in turn.
class ForgedSignals : public testing::Test {
  protected:
    void serve() {
        for (auto* each : {bus.get(), manager.bus.get(), other.get()})
            while (sd_bus_process(each, nullptr) > 0)
                ;
    }
    template <typename Condition>
    bool serveUntil(Condition&& condition) {
        return test::waitUntil([&] {
            serve();
            return condition();
        });
    }
    /// Serves until the service has taken in, and has done, what was sent to it before.
    void settle() {
        for (const auto& from : {manager.bus.get(), other.get()}) {
            bool answered = false;
            ASSERT_GE(sd_bus_call_method_async(from, nullptr, nameOf(bus).c_str(), "/",
                          "org.freedesktop.DBus.Peer", "Ping", receive, &answered, ""),
                0);
            ASSERT_TRUE(serveUntil([&] { return answered; }));
        }
        // What it asks in turn is answered before this.
        bool answered = false;
        ASSERT_GE(sd_bus_call_method_async(bus.get(), nullptr, kManagerName, "/", "org.freedesktop.DBus.Peer",
                      "Ping", receive, &answered, ""),
            0);
        ASSERT_TRUE(serveUntil([&] { return answered; }));
    }
    template <typename... Values>
    void forge(
        const char* path, const char* interface, const char* member, const char* types, Values... values) {
        sd_bus_message* made = nullptr;
        ASSERT_GE(sd_bus_message_new_signal(other.get(), &made, path, interface, member), 0);
        const auto signal = events::adopt(made);
        ASSERT_GE(sd_bus_message_set_destination(made, nameOf(bus).c_str()), 0);
        ASSERT_GE(sd_bus_message_append(made, types, values...), 0);
        ASSERT_GE(sd_bus_send(other.get(), made, nullptr), 0);
    }
    void forgePrepareForSleep(bool begins) {
        forge(kManagerPath, kManagerInterface, "PrepareForSleep", "b", static_cast<int>(begins));
    }

    test::PrivateBus privateBus;
    events::BusPtr bus = connect();
    LogInManager manager;
    events::BusPtr other = connect();
    Questions questions{bus.get()};

  private:
    static int receive(sd_bus_message* /*message*/, void* answered, sd_bus_error* /*error*/) {
        *static_cast<bool*>(answered) = true;
        return 1;
    }
};

class ForgedSleep : public ForgedSignals {
  protected:
    void SetUp() override {
        watch.setNeeded(true);
        ASSERT_TRUE(serveUntil([&] { return manager.timesDelayed == 1; }));
        settle();
    }

    std::optional<bool> sleeps;
    SleepWatch watch{bus.get(), questions, [this](bool begins) { sleeps = begins; }};
};

TEST_F(ForgedSleep, IsNoSleep) {
    forgePrepareForSleep(true);
    settle();
    EXPECT_NE(sleeps, true);
    EXPECT_EQ(manager.timesDelayed, 1); // the one that it has is kept
}

TEST_F(ForgedSleep, DoesNotEndASleep) {
    manager.prepareForSleep(true);
    ASSERT_TRUE(serveUntil([&] { return sleeps == true; }));
    forgePrepareForSleep(false);
    settle();
    EXPECT_EQ(sleeps, true);
    EXPECT_EQ(manager.timesDelayed, 1);
    manager.prepareForSleep(false);
    EXPECT_TRUE(serveUntil([&] { return sleeps == false && manager.timesDelayed == 2; }));
}

TEST_F(ForgedSleep, InAFloodCostsTheLogInManagerAFewQuestionsAndHidesNoRealOne) {
    for (int i = 0; i < 1000; ++i)
        forgePrepareForSleep(i % 2 == 0);
    manager.prepareForSleep(true);
    EXPECT_TRUE(serveUntil([&] { return sleeps == true; }));
    settle();
    EXPECT_EQ(sleeps, true);
    EXPECT_LT(manager.timesAsked, 100);
}

TEST_F(ForgedSleep, IsToldFromARealOneAlsoWhileOthersAskAsMuchAsTheyMay) {
    const auto polkit = connect(); // it answers nobody
    ASSERT_GE(sd_bus_request_name(polkit.get(), "org.freedesktop.PolicyKit1", 0), 0);
    for (std::size_t i = 0; i < Questions::most; ++i)
        ASSERT_TRUE(questions.isAuthorized("org.freedesktop.DBus", "any", [](bool) {}));
    ASSERT_FALSE(questions.userOf("org.freedesktop.DBus", [](std::optional<uid_t>) {}));
    manager.prepareForSleep(true);
    EXPECT_TRUE(serveUntil([&] { return sleeps == true; }));
}

TEST_F(ForgedSignals, ADelayThatComesAfterTheSleepWasAnnouncedIsGivenBack) {
    manager.grantsLate = true;
    std::optional<bool> sleeps;
    SleepWatch watch{bus.get(), questions, [&](bool begins) { sleeps = begins; }};
    watch.setNeeded(true);
    ASSERT_TRUE(serveUntil([&] { return manager.late != nullptr; }));
    manager.prepareForSleep(true);
    ASSERT_TRUE(serveUntil([&] { return sleeps == true; }));
    manager.grant();
    EXPECT_TRUE(serveUntil([&] { return manager.delayWasGivenBack(); }));
}

class ForgedLeaving : public ForgedSignals {
  protected:
    Watchers watchers{bus.get(), questions};
};

TEST_F(ForgedLeaving, TakesNobodyWhoWatchesAway) {
    const auto watcher = connect();
    const auto name = nameOf(watcher);
    ASSERT_TRUE(watchers.add(name.c_str(), 0, true));
    settle();
    forge("/org/freedesktop/DBus", "org.freedesktop.DBus", "NameOwnerChanged", "sss", name.c_str(),
        name.c_str(), "");
    settle();
    EXPECT_TRUE(watchers.wantInputs());
}

TEST_F(ForgedLeaving, IsToldFromALeavingThatTheBusSays) {
    auto watcher = connect();
    ASSERT_TRUE(watchers.add(nameOf(watcher).c_str(), 0, true));
    settle();
    watcher.reset();
    EXPECT_TRUE(serveUntil([&] { return !watchers.wantInputs(); }));
}

TEST_F(ForgedLeaving, WhoHasLeftBeforeAnyoneListensIsNotKept) {
    auto watcher = connect();
    const auto name = nameOf(watcher);
    watcher.reset();
    settle();
    ASSERT_TRUE(watchers.add(name.c_str(), 0, true));
    EXPECT_TRUE(serveUntil([&] { return !watchers.wantInputs(); }));
}

} // namespace
} // namespace quorvi::inputd
