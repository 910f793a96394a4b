// The settings application opens as its last window was left.

#include "host/WindowState.h"

#include <QScreen>
#include <QTabWidget>
#include <QTest>

#include <fstream>

#include "host/HostWindow.h"
#include "host/Session.h"
#include "support/EnvironmentVariable.h"
#include "support/SessionTestMain.h"
#include "support/TemporaryFolder.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

std::unique_ptr<HostWindow> openWindow(const std::filesystem::path& file) {
    QString error;
    std::vector<std::unique_ptr<LoadedPane>> panes;
    panes.push_back(LoadedPane::load(QStringLiteral(QUORVI_BUNDLE), error));
    auto window = std::make_unique<HostWindow>(std::move(panes));
    window->rememberIn(file);
    window->show();
    if (!QTest::qWaitForWindowExposed(window.get()))
        qFatal("the window does not come");
    return window;
}

QTabWidget* tabsOf(const HostWindow& window) {
    return window.findChild<QTabWidget*>(QStringLiteral("quorviTabsMain"));
}

} // namespace

class WindowStateTest : public QObject {
    Q_OBJECT

  private slots:
    void theNextWindowHasTheSizeAndTheTabOfTheLast() {
        const Session session;
        const TemporaryFolder folder;
        const std::filesystem::path file = folder / "made/with/it/window";
        auto window = openWindow(file);
        const QSize first = window->size();
        QCOMPARE(tabsOf(*window)->currentIndex(), 0);
        const QSize chosen = first + QSize(60, 40);
        window->resize(chosen);
        tabsOf(*window)->setCurrentIndex(3);
        QTRY_COMPARE(window->size(), chosen);
        QVERIFY(QTest::qWaitFor([&] { return window->findChild<QWidget*>("tabMacros")->isVisible(); }));
        window->close();
        window.reset();
        window = openWindow(file);
        QTRY_COMPARE(window->size(), chosen);
        QCOMPARE(tabsOf(*window)->currentIndex(), 3);
    }

    void whatIsNotAStateIsNone_data() {
        QTest::addColumn<QByteArray>("text");
        for (const char* text : {"", "760", "760 580", "760 x 580", "0 580 1", "760 -580 1", "760 580 -1",
                 "99999999999999999999 580 1", "40000 580 1"})
            QTest::newRow(text) << QByteArray(text);
    }
    void whatIsNotAStateIsNone() {
        QFETCH(QByteArray, text);
        const TemporaryFolder folder;
        std::ofstream(folder / "window") << text.toStdString();
        QVERIFY(!keptWindowState(folder / "window"));
        QVERIFY(!keptWindowState(folder / "none"));
        QVERIFY(!keptWindowState(folder / "."));
        std::ofstream(folder / "window") << "760 580 4\n";
        QVERIFY(keptWindowState(folder / "window"));
    }

    void aWindowOfALargerScreenIsReachedWholeAndATabThatIsNoneIsTheFirst() {
        const Session session;
        const TemporaryFolder folder;
        keepWindowState(folder / "window", {.size = {30000, 30000}, .tab = 9});
        const auto window = openWindow(folder / "window");
        const QSize room = window->screen()->availableSize();
        QVERIFY(window->width() <= room.width() && window->height() <= room.height());
        QCOMPARE(tabsOf(*window)->currentIndex(), 0);
    }

    void theFileIsInTheStateFolder() {
        const EnvironmentVariable home("HOME", "/home/anne");
        {
            const EnvironmentVariable state("XDG_STATE_HOME", "/state");
            QCOMPARE(windowStateFile(), std::filesystem::path("/state/kyvar-quorvi/window"));
        }
        const EnvironmentVariable relative("XDG_STATE_HOME", "state");
        QCOMPARE(windowStateFile(), std::filesystem::path("/home/anne/.local/state/kyvar-quorvi/window"));
    }
};

QUORVI_SESSION_TEST_MAIN(WindowStateTest)
#include "WindowStateTest.moc"
