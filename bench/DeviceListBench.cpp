// The time from a device list until every control is updated and drawn: the settings file is read, the tree
// repaired, menus and tables rebuilt. With a full configuration, in the real controller and window.

#include <QApplication>
#include <QCheckBox>
#include <QTest>

#include <algorithm>

#include "bench/Figures.h"
#include "bench/FullConfiguration.h"
#include "events/DeviceList.h"
#include "pane/PaneFixture.h"
#include "support/PrivateBus.h"

namespace quorvi::bench {
namespace {

class Panel {
  public:
    Panel() {
        m_fixture.openWith(fullConfiguration());
        m_box = m_fixture.find<QCheckBox>("quorviBoxLightOnWheel");
        if (!m_sender || m_sender->findProcessByName("KyvarQuorviPane", &m_panel) != noErr)
            qFatal("the panel is not on the bus");
    }

    /// Of a list with or without a mouse, until it is shown.
    double microsecondsOf(std::uint16_t count) {
        DeviceList list;
        list.count = count;
        const Event event = makeDeviceListEvent(list);
        QCoreApplication::processEvents();
        const auto start = Clock::now();
        if (m_sender->send(m_panel, event) != noErr)
            qFatal("the list cannot be sent");
        while (m_box->isEnabled() != (count > 0))
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::processEvents(); // draws the changes
        return Microseconds(Clock::now() - start).count();
    }

  private:
    test::PaneFixture m_fixture;
    QCheckBox* m_box = nullptr;
    std::unique_ptr<EventBus> m_sender = EventBus::connect();
    ProcessSerialNumber m_panel;
};

void run(bool quick) {
    Panel panel;
    std::vector<double> times;
    for (int i = 0; i < (quick ? 20 : 1000); ++i) {
        (void)panel.microsecondsOf(0);
        times.push_back(panel.microsecondsOf(1) / 1000);
    }
    std::sort(times.begin(), times.end());
    const double late = times[times.size() * 99 / 100];
    printRow("from a device list to all controls right, 99th percentile", {late, late, late}, "ms", 16.0);
    printRow("  the middle", figureOf(times), "ms", std::nullopt);
}

} // namespace
} // namespace quorvi::bench

int main(int argc, char** argv) {
    const quorvi::test::PrivateBus bus;
    QApplication application(argc, argv);
    quorvi::bench::run(quorvi::bench::isQuick(argc, argv));
}
