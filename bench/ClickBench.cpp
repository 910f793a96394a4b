// The time from a click in the panel until the helper is notified of the saved settings, compared with a
// minimal durable save and message on the same disk and bus.

#include <QApplication>
#include <QCheckBox>
#include <QEventLoop>
#include <QTest>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <fcntl.h>
#include <unistd.h>

#include "bench/FullConfiguration.h"
#include "bench/Receiver.h"
#include "events/DeviceList.h"
#include "model/Keys.h"
#include "model/LightState.h"
#include "pane/PaneFixture.h"
#include "support/PrivateBus.h"

namespace quorvi::bench {
namespace {

namespace fs = std::filesystem;

/// The end of the measurement: the arrival of the message.
class Arrival {
  public:
    /// May be called from any thread.
    void come(Clock::time_point when) {
        ++m_count;
        m_when = when;
        QMetaObject::invokeMethod(
            &m_loop, [this] { m_loop.exit(); }, Qt::QueuedConnection);
    }
    /// Runs the panel's event loop until then.
    Clock::time_point wait() {
        ++m_waits;
        m_loop.exec();
        return m_when;
    }
    /// One message for each wait: no measurement ended with the message of another one.
    [[nodiscard]] bool isPaired() const { return m_count == m_waits; }

  private:
    std::atomic<int> m_count = 0;
    int m_waits = 0;
    QEventLoop m_loop;
    Clock::time_point m_when;
};

/// Waits for the end of everything started by the last measurement.
void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents();
}

class Click {
  public:
    explicit Click(Arrival& arrival) : m_arrival(arrival) {
        m_fixture.writeSettings(fullConfiguration());
        m_fixture.select();
        DeviceList list;
        list.count = 1;
        const auto sender = EventBus::connect();
        ProcessSerialNumber panel;
        if (!sender || sender->findProcessByName("KyvarQuorviPane", &panel) != noErr ||
            sender->send(panel, makeDeviceListEvent(list)) != noErr)
            qFatal("the panel cannot be told of a mouse");
        sender->process();
        m_box = m_fixture.find<QCheckBox>("quorviBoxLightOnWheel");
        if (!QTest::qWaitFor([&] { return m_fixture.pane->hasDevice() && m_box->isEnabled(); }))
            qFatal("the panel does not take the mouse");
    }

    double microseconds() {
        settle();
        const auto start = Clock::now();
        m_box->click();
        return Microseconds(m_arrival.wait() - start).count();
    }
    [[nodiscard]] fs::path file() const { return m_fixture.settingsFile(); }
    [[nodiscard]] bool isSaved() const {
        const bool lit = (savedLights() & lights::wheel) != 0;
        return lit == m_box->isChecked();
    }

  private:
    [[nodiscard]] std::int32_t savedLights() const {
        return m_fixture.savedSettings().array(keys::profiles).dictionary(0).integer(keys::ledState);
    }

    Arrival& m_arrival;
    test::PaneFixture m_fixture{{.helper = false}};
    QCheckBox* m_box = nullptr;
};

/// The system calls of a durable save and one message, with everything that can be prepared prepared.
class Floor {
  public:
    Floor(Arrival& arrival, const fs::path& settings) : m_arrival(arrival), m_folder(settings.parent_path()) {
        std::ifstream file(settings, std::ios::binary);
        m_bytes.assign(std::istreambuf_iterator<char>(file), {});
        if (m_bytes.empty() || !m_bus || m_bus->findProcessByName("KyvarQuorviHelper", &m_target) != noErr)
            qFatal("the floor has nothing to write, or nobody to tell");
    }

    double microseconds() {
        settle();
        const auto start = Clock::now();
        save();
        if (m_bus->send(m_target, m_event) != noErr)
            qFatal("the message cannot be sent");
        m_bus->process();
        return Microseconds(m_arrival.wait() - start).count();
    }

  private:
    void save() const {
        const int folder = open(m_folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        const int file = openat(folder, "floor.new", O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        const bool saved =
            write(file, m_bytes.data(), m_bytes.size()) == static_cast<ssize_t>(m_bytes.size()) &&
            fsync(file) == 0 && close(file) == 0 && renameat(folder, "floor.new", folder, "floor") == 0 &&
            fsync(folder) == 0;
        close(folder);
        if (!saved)
            qFatal("the floor's file cannot be written");
    }

    Arrival& m_arrival;
    fs::path m_folder;
    std::string m_bytes;
    std::unique_ptr<EventBus> m_bus = EventBus::connect();
    ProcessSerialNumber m_target;
    Event m_event = makeCommand(kMessageSettingsSaved, 0);
};

Figure inMilliseconds(std::vector<double> microseconds) {
    for (double& value : microseconds)
        value /= 1000;
    return figureOf(std::move(microseconds));
}

void run(bool quick) {
    Arrival arrival;
    const Receiver receiver([&](Clock::time_point when) { arrival.come(when); });
    Click click(arrival);
    (void)click.microseconds(); // from here the file is as the panel writes it
    if (!click.isSaved())
        qFatal("the click does not reach the file");
    Floor floor(arrival, click.file());
    const auto pairs = runPairs(
        quick ? 20 : 301, [&] { return click.microseconds(); }, [&] { return floor.microseconds(); });
    if (!click.isSaved() || !arrival.isPaired())
        qFatal("a click was not saved, or not told of once");
    printRow("from click to saved and 'KyPR' received / bare save and message", figureOf(pairs.ratios()), "x",
        1.3);
    // The ratio depends more on the disk than on the panel, so both parts are shown too.
    printRow("  the bare save and message", inMilliseconds(pairs.base), "ms", std::nullopt);
    printRow("  what the click takes beyond it", inMilliseconds(pairs.differences()), "ms", std::nullopt);
}

} // namespace
} // namespace quorvi::bench

int main(int argc, char** argv) {
    const quorvi::test::PrivateBus bus;
    QApplication application(argc, argv);
    quorvi::bench::run(quorvi::bench::isQuick(argc, argv));
}
