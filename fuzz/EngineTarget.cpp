// The engine under records, options, reports and times of any kind. Requires for any input that the output is
// valid for a kernel, that a call has a bounded output, and that no key is down at the end.
//
// The input is a record's head, a number of slots and those slots, as RecordInput.h says, and then acts, each
// behind a byte that says which.
#include <array>
#include <vector>

#include "RecordInput.h"
#include "Require.h"
#include "engine/Devices.h"
#include "engine/Engine.h"
#include "engine/Event.h"

using namespace quorvi;
using engine::eventOf;
using fuzz::require;

namespace {

constexpr std::size_t kMostFramesOfACall = 4096; ///< sixteen notches, macros and all keys that are held
constexpr std::size_t kMostEventsOfAFrame = 8;

class Witness : public engine::Output {
  public:
    void write(engine::Device device, std::span<const input_event> frame) override {
        require(frame.size() >= 2 && frame.size() <= 64, "a frame fits the kernel's queue");
        require(frame.back().type == EV_SYN && frame.back().code == SYN_REPORT, "a frame has its end");
        require(++frames <= kMostFramesOfACall, "a call comes to few frames");
        for (const auto& event : frame.first(frame.size() - 1))
            look(device, event);
    }
    void runs(const engine::Running& running) override {
        require(running.profile >= 1 && running.profile <= 5 && running.stage <= 5, "a profile's stage runs");
    }

    std::size_t frames = 0; ///< of this call
    std::size_t down = 0;

  private:
    void look(engine::Device device, const input_event& event) {
        if (event.type != EV_KEY)
            return require(event.type == EV_REL && event.value != 0 && device == engine::Device::Pointer,
                "the pointer moves");
        engine::Device offering{};
        require(
            engine::findDeviceOfKey(event.code, offering) && offering == device, "the device has the key");
        bool& isDown = m_isDown[event.code];
        require(event.value == (isDown ? 0 : 1), "a key changes");
        isDown = !isDown;
        isDown ? ++down : --down;
    }

    std::array<bool, KEY_CNT> m_isDown{};
};

class Mouse {
  public:
    explicit Mouse(fuzz::Input& input) : m_input(input), m_record(fuzz::takeHead(input)) {
        for (int slots = input.number<std::uint8_t>() % 8; slots > 0; --slots)
            takeSlot();
        setRecord();
    }

    void act() {
        m_witness.frames = 0;
        const auto what = m_input.number<std::uint8_t>();
        switch (what % 8) {
        case 0:
        case 1:
            return pressOrRelease(what / 8);
        case 2:
            return feedFrame(what / 8);
        case 3:
            m_now += std::chrono::milliseconds(m_input.number<std::uint16_t>());
            return m_engine.wake(m_now);
        case 4:
            m_now = m_engine.nextWake().value_or(m_now);
            return m_engine.wake(m_now);
        case 5:
            return setAnything(what / 8);
        case 6:
            m_now = engine::Time(m_input.number<std::int64_t>());
            return m_engine.wake(m_now);
        default:
            turn(what / 8);
        }
    }

    void end() {
        m_engine.releaseAll(m_now);
        require(m_witness.down == 0 && !m_engine.isBusy() && !m_engine.nextWake(), "nothing stays down");
    }

  private:
    /// A profile of another number than its slot's makes the whole record useless: one in a while does.
    void takeSlot() {
        fuzz::takeSlot(m_input, *m_record);
        for (std::size_t slot = 0; slot < m_record->profiles.size(); ++slot)
            if (m_record->profiles[slot].number != 0xFF)
                m_record->profiles[slot].number = static_cast<std::uint8_t>(slot + 1);
    }

    void setRecord() {
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(m_record.get());
        const auto before = m_engine.running();
        if (!m_engine.setRecord({bytes, sizeof *m_record}, m_now))
            require(m_engine.running() == before, "a record that is refused changes nothing");
    }

    void setAnything(int what) {
        if (what % 4 == 0) {
            m_engine.releaseAll(m_now);
            return require(m_witness.down == 0, "everything goes up");
        }
        if (what % 2 == 0) {
            takeSlot();
            return setRecord();
        }
        m_options.sensorDpi = m_input.number<std::uint16_t>();
        m_options.acceleration.fill(m_input.number<float>());
        m_options.buttonCodes[m_input.number<std::uint8_t>() % 7] = m_input.number<std::uint16_t>();
        m_options.letterKeys[m_input.number<std::uint8_t>() % 26] = m_input.number<std::uint16_t>();
        m_options.macrosAreQuiet = what % 8 == 7;
        m_engine.setOptions(m_options, m_now);
    }

    void pressOrRelease(int what) {
        const auto code = m_options.buttonCodes[static_cast<std::size_t>(what % 8) % 7];
        feed({eventOf(EV_KEY, code, what / 8 % 2)});
    }

    void turn(int what) {
        const std::int32_t notches = what % 8 - 4;
        feed({eventOf(EV_REL, REL_WHEEL, notches), eventOf(EV_REL, REL_WHEEL_HI_RES, notches * 120)});
    }

    void feedFrame(int what) {
        std::vector<input_event> frame;
        for (std::size_t left = 1 + static_cast<std::size_t>(what) % kMostEventsOfAFrame; left > 0; --left) {
            const auto type = m_input.number<std::uint8_t>() % 4;
            const auto code = m_input.number<std::uint16_t>();
            frame.push_back(eventOf(static_cast<std::uint16_t>(type), code, m_input.number<std::int32_t>()));
        }
        feed(frame);
    }

    void feed(const std::vector<input_event>& frame) { m_engine.input(frame, m_now); }

    fuzz::Input& m_input;
    std::unique_ptr<ConfigRecord> m_record;
    engine::Options m_options;
    engine::Time m_now{0};
    Witness m_witness;
    engine::Engine m_engine{m_witness};
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input({data, size});
    Mouse mouse(input);
    while (!input.atEnd())
        mouse.act();
    mouse.end();
    return 0;
}
