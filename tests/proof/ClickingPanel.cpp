// A panel with its window, a helper and a bus of its own, at a home folder that others use as well:
//     quorvi-clicking-panel HOME CONTROL FIFO
// Says "ready" when it shows the settings. For each byte that comes through the FIFO it clicks the control, a
// check box, and says "1" or "0" when it is saved; it ends when the byte is a "q".

#include <QApplication>
#include <QCheckBox>
#include <QSocketNotifier>
#include <QTabWidget>

#include <array>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

#include "pane/PaneFixture.h"
#include "support/PrivateBus.h"

namespace {

void say(const char* line) {
    std::puts(line);
    std::fflush(stdout);
}

/// Brings the tab that the control is on to the front.
void show(const quorvi::test::PaneFixture& panel, const QWidget& control) {
    auto* tabs = panel.find<QTabWidget>("quorviTabsMain");
    for (int index = 0; index < tabs->count(); ++index)
        if (tabs->widget(index)->isAncestorOf(&control))
            panel.selectTab(index);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4)
        return 2;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const quorvi::test::PrivateBus bus;
    const QApplication application(argc, argv);
    quorvi::test::PaneFixture panel;
    std::filesystem::create_directory_symlink(
        std::filesystem::path(argv[1]) / "Library", panel.home.path().toStdString() + "/Library");
    panel.select();
    panel.connectDevices(1);
    auto* box = panel.find<QCheckBox>(argv[2]);
    show(panel, *box);
    const int clicks = ::open(argv[3], O_RDWR | O_CLOEXEC); // there is always somebody to write
    QSocketNotifier notifier(clicks, QSocketNotifier::Read);
    QObject::connect(&notifier, &QSocketNotifier::activated, box, [&] {
        char byte = 0;
        if (::read(clicks, &byte, 1) != 1 || byte == 'q') {
            QCoreApplication::quit();
            return;
        }
        box->click();
        say(box->isChecked() ? "1" : "0");
    });
    say("ready");
    return QApplication::exec();
}
