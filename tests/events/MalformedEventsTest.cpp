// Malformed calls, made directly with the bus library.
#include <cstdarg>

#include <systemd/sd-bus.h>

#include "events/BusFixture.h"
#include "events/EventsInterface.h"
#include "events/ProcessName.h"

namespace quorvi::test {
namespace {

class MalformedEvents : public testing::Test {
  protected:
    void SetUp() override { ASSERT_GE(sd_bus_open_user(&m_bus), 0); }
    ~MalformedEvents() override { sd_bus_flush_close_unref(m_bus); }

    /// Calls Send of the participant with these arguments and gives the name of the error answer, or "".
    std::string answerTo(const char* signature, ...) {
        sd_bus_message* call = nullptr;
        EXPECT_GE(
            sd_bus_message_new_method_call(m_bus, &call, events::uniqueName(m_participant.psn()).c_str(),
                "/com/kyvar/Events", "com.kyvar.Events", "Send"),
            0);
        va_list arguments;
        va_start(arguments, signature);
        EXPECT_GE(sd_bus_message_appendv(call, signature, arguments), 0);
        va_end(arguments);
        sd_bus_error error = SD_BUS_ERROR_NULL;
        sd_bus_message* reply = nullptr;
        sd_bus_call(m_bus, call, 20'000'000, &error, &reply);
        std::string name = error.name ? error.name : "";
        sd_bus_error_free(&error);
        sd_bus_message_unref(reply);
        sd_bus_message_unref(call);
        return name;
    }
    int handled() const { return m_handled; }

  private:
    PrivateBus m_privateBus;
    std::atomic<int> m_handled = 0;
    Participant m_participant{"KyvarQuorviHelper", [this](EventBus& own) {
                                  own.installHandler(kEventClassQuorvi, kEventCommand,
                                      [this](const Event&, const ProcessSerialNumber&, Event&) {
                                          ++m_handled;
                                          return noErr;
                                      });
                              }};
    sd_bus* m_bus = nullptr;
};

constexpr char kInvalid[] = "org.freedesktop.DBus.Error.InvalidArgs";

TEST_F(MalformedEvents, AreAnsweredWithAnErrorWhenACodeHasNotFourCharacters) {
    EXPECT_EQ(answerTo("ssa(ssv)", "Kyv", "KyvC", 0), kInvalid);
    EXPECT_EQ(answerTo("ssa(ssv)", "KyvQ", "KyvCC", 0), kInvalid);
    EXPECT_EQ(answerTo("ssa(ssv)", "", "", 0), kInvalid);
    EXPECT_EQ(answerTo("ssa(ssv)", "Kyä", "KyvC", 0), kInvalid);
    EXPECT_EQ(answerTo("ssa(ssv)", "KyvQ", "KyvC", 1, "---", "long", "i", 1), kInvalid);
    EXPECT_EQ(answerTo("ssa(ssv)", "KyvQ", "KyvC", 1, "----", "longer", "i", 1), kInvalid);
    EXPECT_EQ(handled(), 0);
}

TEST_F(MalformedEvents, AreAnsweredWithAnErrorWhenAValueDoesNotFitItsType) {
    EXPECT_EQ(answerTo("ssa(ssv)", "KyvQ", "KyvC", 1, "----", "magn", "i", 1), kInvalid);
    EXPECT_EQ(answerTo("ssa(ssv)", "KyvQ", "KyvC", 1, "----", "magn", "s", "text"), kInvalid);
    EXPECT_EQ(answerTo("ssa(ssv)", "KyvQ", "KyvC", 1, "----", "long", "u", 1), kInvalid);
    EXPECT_EQ(answerTo("ssa(ssv)", "KyvQ", "KyvC", 1, "----", "long", "ay", 1, 7), kInvalid);
    EXPECT_EQ(answerTo("ssa(ssv)", "KyvQ", "KyvC", 1, "----", "KYDL", "u", 1), kInvalid);
    EXPECT_EQ(answerTo("ssa(ssv)", "KyvQ", "KyvC", 1, "----", "KYDL", "ai", 1, 7), kInvalid);
    EXPECT_EQ(answerTo("ssa(ssv)", "KyvQ", "KyvC", 1, "----", "KYDL", "v", "ay", 1, 7), kInvalid);
    EXPECT_EQ(
        answerTo("ssa(ssv)", "KyvQ", "KyvC", 2, "----", "long", "i", 1, "KyvC", "long", "s", "1"), kInvalid)
        << "the second one";
    EXPECT_EQ(handled(), 0);
}

TEST_F(MalformedEvents, AreAnsweredWithAnErrorWhenTheArgumentsAreOthers) {
    EXPECT_EQ(answerTo(""), kInvalid);
    EXPECT_EQ(answerTo("ss", "KyvQ", "KyvC"), kInvalid);
    EXPECT_EQ(answerTo("ssa(ssv)s", "KyvQ", "KyvC", 0, "more"), kInvalid);
    EXPECT_EQ(answerTo("ssa(ssi)", "KyvQ", "KyvC", 1, "----", "long", 1), kInvalid);
    EXPECT_EQ(handled(), 0);
}

TEST_F(MalformedEvents, AreToldFromEventsThatNobodyHandles) {
    EXPECT_EQ(answerTo("ssa(ssv)", "KyvQ", "none", 0), "com.kyvar.Error.EventNotHandled");
    EXPECT_EQ(answerTo("ssa(ssv)", "KyvQ", "KyvC", 0), "");
    EXPECT_EQ(answerTo("ssa(ssv)", "KyvQ", "KyvC", 3, "----", "magn", "u", 1, "----", "long", "i", 1, "data",
                  "none", "ay", 2, 7, 8),
        "");
    EXPECT_EQ(handled(), 2);
}

} // namespace
} // namespace quorvi::test
