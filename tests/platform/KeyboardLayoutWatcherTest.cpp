// The layout in use, followed from Qt's event loop.

#include "platform/KeyboardLayoutWatcher.h"

#include <QAbstractEventDispatcher>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include "keyboard/KeyNames.h"
#include "layouts/WaylandKeyboardLayout.h"
#include "layouts/X11KeyboardLayout.h"
#include "layouts/XkbKeyboardLayout.h"
#include "support/Compositors.h"
#include "support/EnvironmentVariable.h"
#include "support/VirtualDisplay.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

/// A layout that changes when it is told to.
class ToldLayout final : public LiveKeyboardLayout {
  public:
    void change(const char* layout, int notices) {
        m_names.layout = layout;
        for (int i = 0; i < notices; ++i)
            changed();
    }
    [[nodiscard]] int reads() const { return m_reads; }

  protected:
    KeyboardLayoutRef read() override {
        ++m_reads;
        return makeKeyboardLayout(m_names);
    }

  private:
    KeymapNames m_names{"evdev", "pc105", "us", "", ""};
    int m_reads = 0;
};

std::u16string nameOfFirstLetter() {
    return GetKeyboardInformation(nullptr) == 0 ? GetKeyName(0x0C) : u"no layout";
}

std::unique_ptr<LiveKeyboardLayout> layoutOf(const VirtualDisplay& display) {
    const EnvironmentVariable variable("DISPLAY", display.name());
    return connectToX11Keyboard();
}

/// How often the event loop wakes up by itself in a tenth of a second.
int wakeUps() {
    int count = 0;
    QEventLoop loop;
    const auto counting = QObject::connect(
        QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, &loop, [&count] { ++count; });
    QTimer::singleShot(100, &loop, &QEventLoop::quit);
    loop.exec();
    return count;
}
constexpr int kFewWakeUps = 10; // the timer's own, and what Qt has left to do

} // namespace

class KeyboardLayoutWatcherTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        for (const char* program : {"Xvfb", "setxkbmap", "sway", "swaymsg"})
            if (!isInstalled(program))
                QSKIP(program);
    }

    void theNoticesOfOneChangeAreOneSignal() {
        auto told = std::make_unique<ToldLayout>();
        ToldLayout& layout = *told;
        KeyboardLayoutWatcher watcher(std::move(told));
        QSignalSpy signal(&watcher, &KeyboardLayoutWatcher::layoutChanged);
        QCOMPARE(nameOfFirstLetter(), std::u16string(u"q"));
        layout.change("fr", 3);
        QCOMPARE(signal.count(), 0);
        QVERIFY(signal.wait());
        (void)wakeUps();
        QCOMPARE(signal.count(), 1);
        QCOMPARE(nameOfFirstLetter(), std::u16string(u"a"));
        QCOMPARE(nameOfFirstLetter(), std::u16string(u"a"));
        QCOMPARE(layout.reads(), 2);
    }

    void theLayoutIsCurrentForAsLongAsTheWatcherLives() {
        auto first = std::make_unique<KeyboardLayoutWatcher>(std::make_unique<ToldLayout>());
        QCOMPARE(nameOfFirstLetter(), std::u16string(u"q"));
        const auto second = std::make_unique<KeyboardLayoutWatcher>(std::make_unique<ToldLayout>());
        first.reset();
        QCOMPARE(nameOfFirstLetter(), std::u16string(u"q"));
        auto third = std::make_unique<KeyboardLayoutWatcher>(std::make_unique<ToldLayout>());
        third.reset();
        QCOMPARE(nameOfFirstLetter(), std::u16string(u"no layout"));
    }

    void namesFollowTheServer() {
        const VirtualDisplay display;
        QVERIFY(display.setLayout("us,ru"));
        KeyboardLayoutWatcher watcher(layoutOf(display));
        QSignalSpy signal(&watcher, &KeyboardLayoutWatcher::layoutChanged);
        QCOMPARE(nameOfFirstLetter(), std::u16string(u"q"));
        QVERIFY(display.setLayout("fr,us"));
        QVERIFY(signal.wait());
        QCOMPARE(nameOfFirstLetter(), std::u16string(u"a"));
        QCOMPARE(display.lockGroup(1), 1);
        QVERIFY(signal.wait());
        QCOMPARE(nameOfFirstLetter(), std::u16string(u"q"));
        QVERIFY(wakeUps() < kFewWakeUps);
    }

    void aServerThatDiesIsLeftAlone() {
        VirtualDisplay display;
        QVERIFY(display.setLayout("fr"));
        KeyboardLayoutWatcher watcher(layoutOf(display));
        QSignalSpy signal(&watcher, &KeyboardLayoutWatcher::layoutChanged);
        QCOMPARE(nameOfFirstLetter(), std::u16string(u"a"));
        display.kill();
        QVERIFY(wakeUps() < kFewWakeUps);
        QCOMPARE(signal.count(), 0);
        QCOMPARE(nameOfFirstLetter(), std::u16string(u"a"));
    }

    void aCompositorThatDiesIsLeftAlone() {
        const VirtualDisplay display;
        Sway sway(display.name());
        QVERIFY(sway.setLayout("fr"));
        const EnvironmentVariable folder("XDG_RUNTIME_DIR", sway.runtimeFolder());
        const EnvironmentVariable socket("WAYLAND_DISPLAY", sway.socket());
        KeyboardLayoutWatcher watcher(connectToWaylandKeyboard());
        QSignalSpy signal(&watcher, &KeyboardLayoutWatcher::layoutChanged);
        QCOMPARE(nameOfFirstLetter(), std::u16string(u"a"));
        QVERIFY(sway.setLayout("us"));
        QVERIFY(signal.wait());
        QCOMPARE(nameOfFirstLetter(), std::u16string(u"q"));
        sway.process().kill();
        signal.clear();
        QVERIFY(wakeUps() < kFewWakeUps);
        QCOMPARE(signal.count(), 0);
        QCOMPARE(nameOfFirstLetter(), std::u16string(u"q"));
    }
};

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen"); // the servers of this test come and go
    QGuiApplication application(argc, argv);
    KeyboardLayoutWatcherTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "KeyboardLayoutWatcherTest.moc"
