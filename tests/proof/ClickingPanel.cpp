// A panel with its own window, helper and bus, in a home folder shared with others:
//     quorvi-clicking-panel HOME CONTROL FIFO Prints "ready" when it shows the settings. For each byte from
// the FIFO it clicks the control, a check box, and prints "1" or "0" when it is saved; a byte "q" ends it.

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
