// The engine's time for an event of a mouse, without devices, kernel or bus: moves, and buttons among them,
// under a full configuration with acceleration.
#include <array>
#include <memory>

#include "bench/Figures.h"
#include "bench/FullConfiguration.h"
#include "engine/Engine.h"
#include "engine/Event.h"
#include "model/ConfigMapping.h"
#include "model/Keys.h"

namespace quorvi::bench {
namespace {

constexpr int kReports = 8000; ///< a second of the fastest mice
constexpr int kReportsOfAButton = 16;
constexpr std::chrono::microseconds kBetweenReports{125};

using engine::eventOf;

class Counter : public engine::Output {
  public:
    void write(engine::Device, std::span<const input_event> frame) override { events += frame.size(); }
    void runs(const engine::Running&) override {}
    std::size_t events = 0;
};

/// A second of a mouse that moves, one of whose buttons goes down and up all the time.
class Second {
  public:
    explicit Second(engine::Engine& engine) : m_engine(engine) {}

    void run() {
        for (int report = 0; report < kReports; ++report) {
            m_now += kBetweenReports;
            if (report % kReportsOfAButton == 0) {
                m_isDown = !m_isDown;
                feed(std::array{eventOf(EV_KEY, BTN_LEFT, m_isDown ? 1 : 0), eventOf(EV_SYN, SYN_REPORT, 0)});
            }
            feed(std::array{eventOf(EV_REL, REL_X, report % 7 - 3), eventOf(EV_REL, REL_Y, report % 5 - 2),
                eventOf(EV_SYN, SYN_REPORT, 0)});
        }
    }
    [[nodiscard]] std::size_t events() const { return m_events; }

  private:
    void feed(std::span<const input_event> frame) {
        m_engine.input(frame, m_now);
        m_events += frame.size();
    }

    engine::Engine& m_engine;
    engine::Time m_now{0};
    std::size_t m_events = 0;
    bool m_isDown = false;
};

int run(bool quick) {
    const auto record = std::make_unique<ConfigRecord>();
    if (!KyvarConfigDictToStruct(fullConfiguration(), record.get()))
        return 1;
    record->profiles[0].buttons[0] = {1, 1, 0, 0};
    Counter counter;
    engine::Engine engine(counter);
    engine::Options options;
    options.acceleration.fill(1.5F);
    engine.setOptions(options, engine::Time(0));
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(record.get());
    if (!engine.setRecord({bytes, sizeof *record}, engine::Time(0)))
        return 1;
    Second second(engine);
    std::vector<double> nanoseconds;
    for (int repetition = quick ? 3 : 51; repetition > 0; --repetition) {
        const auto before = second.events();
        const double microseconds = processorMicrosecondsOf(1, [&] { second.run(); });
        nanoseconds.push_back(microseconds * 1000 / static_cast<double>(second.events() - before));
    }
    if (counter.events == 0)
        return 1;
    printRow("engine alone: an event", figureOf(nanoseconds), "ns", std::nullopt);
    return 0;
}

} // namespace
} // namespace quorvi::bench

int main(int argc, char** argv) {
    return quorvi::bench::run(quorvi::bench::isQuick(argc, argv));
}
