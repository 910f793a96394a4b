#include "host/OpenWindow.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

namespace quorvi::test {

namespace {

std::unique_ptr<HostWindow> windowOf(const QString& bundlePath) {
    QString error;
    std::vector<std::unique_ptr<LoadedPane>> panes;
    panes.push_back(LoadedPane::load(bundlePath, error));
    if (!panes.front())
        qFatal("%s", qPrintable(error));
    return std::make_unique<HostWindow>(std::move(panes));
}

} // namespace

OpenWindow::OpenWindow(const QString& bundlePath) : m_window(windowOf(bundlePath)) {
    m_window->show();
}

OpenWindow::~OpenWindow() = default;

QString OpenWindow::text(const char* label) const {
    return find<QLabel>(label)->text();
}

bool OpenWindow::isChecked(const char* box) const {
    return find<QAbstractButton>(box)->isChecked();
}

QString OpenWindow::selectedTitle(const char* popUp) const {
    return find<QComboBox>(popUp)->currentText();
}

void OpenWindow::waitUntilActive() const {
    m_window->activateWindow();
    if (!QTest::qWaitForWindowActive(m_window.get(), kWindowPatienceMs))
        qFatal("the window does not become active");
}

bool OpenWindow::showsMouse(const QString& title) const {
    return QTest::qWaitFor(
        [&] {
            return text("quorviTextProfile") == title &&
                   text("quorviTextFirmwareVersion") == QLatin1String("1.05") &&
                   isEnabled("quorviMenuPollingRate") && isEnabled("quorviSliderSensitivityX");
        },
        kWindowPatienceMs);
}

bool OpenWindow::showsNoMouse() const {
    return QTest::qWaitFor(
        [&] {
            return text("quorviTextProfile") == QLatin1String("No device connected") &&
                   text("quorviTextFirmwareVersion") == QLatin1String("-") &&
                   !isEnabled("quorviMenuPollingRate") && !isEnabled("quorviSliderSensitivityX");
        },
        kWindowPatienceMs);
}

void OpenWindow::clickTab(int index) const {
    waitUntilActive();
    auto* tabs = find<QTabWidget>("quorviTabsMain");
    QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, {}, tabs->tabBar()->tabRect(index).center());
    if (tabs->currentIndex() != index)
        qFatal("the tab %d does not come to the front", index);
    QCoreApplication::processEvents();
}

void OpenWindow::click(const char* button) const {
    clickButton(find<QAbstractButton>(button));
}

SheetCounter::SheetCounter(const OpenWindow& window) {
    QObject::connect(&m_timer, &QTimer::timeout, &window.host(), [this, &window] {
        for (QDialog* sheet : window.host().findChildren<QDialog*>())
            if (sheet->isVisible()) {
                ++m_count;
                sheet->reject();
            }
    });
    m_timer.start(5);
}

} // namespace quorvi::test
