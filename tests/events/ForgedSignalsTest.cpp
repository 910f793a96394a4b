// Bus signals forged by another program of the session.

#include <stdexcept>

#include "events/BusFixture.h"
#include "events/ProcessName.h"
#include "events/SdBus.h"

namespace quorvi::test {
namespace {

/// A program that tells others, in the name of the bus, that names have passed to nobody.
class Forger {
  public:
    Forger() {
        sd_bus* opened = nullptr;
        if (sd_bus_open_user(&opened) < 0)
            throw std::runtime_error("there is no bus for the forger");
        m_bus.reset(opened);
    }

    void sayThatNameIsGone(const std::string& name, const ProcessSerialNumber& target) {
        sd_bus_message* made = nullptr;
        ASSERT_GE(sd_bus_message_new_signal(m_bus.get(), &made, "/org/freedesktop/DBus",
                      "org.freedesktop.DBus", "NameOwnerChanged"),
            0);
        const auto signal = events::adopt(made);
        ASSERT_GE(sd_bus_message_set_destination(made, events::uniqueName(target).c_str()), 0);
        ASSERT_GE(sd_bus_message_append(made, "sss", name.c_str(), name.c_str(), ""), 0);
        ASSERT_GE(sd_bus_send(m_bus.get(), made, nullptr), 0);
        // A question that the target answers: when the answer is here, the signal has been taken in.
        ASSERT_GE(sd_bus_call_method_async(m_bus.get(), nullptr, events::uniqueName(target).c_str(), "/",
                      "org.freedesktop.DBus.Peer", "Ping", receiveAnswer, this, ""),
            0);
    }
    [[nodiscard]] bool isTakenIn() {
        while (sd_bus_process(m_bus.get(), nullptr) > 0) {
        }
        return m_answered;
    }

  private:
    static int receiveAnswer(sd_bus_message*, void* forger, sd_bus_error*) {
        static_cast<Forger*>(forger)->m_answered = true;
        return 1;
    }

    events::BusPtr m_bus;
    bool m_answered = false;
};

class ForgedSignals : public BusTest {};

TEST_F(ForgedSignals, AreNoChangeOfTheProcessList) {
    int changes = 0;
    bus->onProcessesChanged([&] { ++changes; });
    ASSERT_EQ(bus->findProcessByName("nobody", nullptr), procNotFound);
    bus->process();
    changes = 0;
    Forger forger;
    forger.sayThatNameIsGone("com.kyvar.Helper", bus->processSerialNumber());
    ASSERT_TRUE(waitFor(*bus, [&] { return forger.isTakenIn(); }));
    EXPECT_EQ(changes, 0);
}

TEST_F(ForgedSignals, DoNotMakeAWatchedProcessGone) {
    std::vector<ProcessSerialNumber> gone;
    bus->onProcessGone([&](const ProcessSerialNumber& psn) { gone.push_back(psn); });
    const Participant helper("Helper");
    bus->watchProcess(helper.psn());
    Forger forger;
    forger.sayThatNameIsGone(events::uniqueName(helper.psn()), bus->processSerialNumber());
    ASSERT_TRUE(waitFor(*bus, [&] { return forger.isTakenIn(); }));
    EXPECT_TRUE(gone.empty());
}

} // namespace
} // namespace quorvi::test
