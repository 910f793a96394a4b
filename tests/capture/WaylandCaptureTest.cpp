// Captures under a Wayland compositor with its own shortcut, with a keyboard's keys: sway in a window of an X
// display.

#include <QApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLineEdit>
#include <QScreen>
#include <QTest>

#include "layouts/XkbKeyboardLayout.h"
#include "pane/PaneFixture.h"
#include "support/Compositors.h"
#include "support/EnvironmentVariable.h"
#include "support/Keyboard.h"
#include "support/PrivateBus.h"
#include "support/VirtualDisplay.h"
#include "widgets/KyvarQuorviTableView.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr int kF2 = keycodes::f1 + 1;
constexpr int kF3 = keycodes::f1 + 2;

/// What has to be there, and is not; empty when nothing is missing.
QString missing() {
    for (const char* program : {"Xvfb", "xdotool", "sway", "swaymsg"})
        if (!isInstalled(program))
            return QLatin1String(program) + QStringLiteral(" is not installed");
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    const QString plugins = QLibraryInfo::path(QLibraryInfo::PluginsPath);
#else
    const QString plugins = QLibraryInfo::location(QLibraryInfo::PluginsPath);
#endif
    if (QDir(plugins + QStringLiteral("/platforms")).entryList({QStringLiteral("libqwayland*")}).isEmpty())
        return QStringLiteral("Qt's plug-in for Wayland is not installed");
    return {};
}

/// A display with the compositor in front, in which this process opens its windows.
struct Desktop {
    VirtualDisplay display;
    Sway sway{display.name()};
    EnvironmentVariable displayName{"DISPLAY", display.name()};
    EnvironmentVariable runtimeFolder{"XDG_RUNTIME_DIR", sway.runtimeFolder()};
    EnvironmentVariable socket{"WAYLAND_DISPLAY", sway.socket()};
    EnvironmentVariable platform{"QT_QPA_PLATFORM", "wayland"};
};

} // namespace

class WaylandCaptureTest : public QObject {
    Q_OBJECT

    [[nodiscard]] QDialog* panel() const { return m_fixture->find<QDialog>("quorviPanelSingleKey"); }
    [[nodiscard]] QString shown() const { return m_fixture->find<QLineEdit>("quorviFieldSingleKey")->text(); }

    [[nodiscard]] bool wasTaken() const {
        return std::filesystem::exists(m_desktop->sway.runtimeFolder() + "/F2");
    }
    /// Presses F2 until the compositor carries its shortcut out: it learns of the end of a capture by another
    /// way than of keys.
    [[nodiscard]] bool compositorTakesF2() {
        return QTest::qWaitFor(
                   [this] {
                       m_keyboard->downUnseen(kF2);
                       m_keyboard->upUnseen(kF2);
                       return wasTaken();
                   },
                   kWindowPatienceMs) &&
               std::filesystem::remove(m_desktop->sway.runtimeFolder() + "/F2");
    }

    const Desktop* m_desktop;
    std::unique_ptr<PaneFixture> m_fixture;
    std::unique_ptr<Keyboard> m_keyboard;

  public:
    explicit WaylandCaptureTest(const Desktop* desktop) : m_desktop(desktop) {}

  private slots:
    void initTestCase() {
        if (!m_desktop)
            QSKIP(qPrintable(missing()));
        QCOMPARE(QGuiApplication::platformName(), QStringLiteral("wayland"));
        QVERIFY(m_desktop->sway.command(
            "bindsym --no-repeat F2 exec touch " + m_desktop->sway.runtimeFolder() + "/F2"));
        QVERIFY(xdotool({"mousemove", "300", "300"})); // the keyboard follows the pointer
        KeymapNames names;
        names.layout = "us";
        SetCurrentKeyboardLayout(makeKeyboardLayout(names));
        m_fixture = std::make_unique<PaneFixture>();
        m_fixture->openWith(PaneFixture::sampleTree());
        m_keyboard = std::make_unique<Keyboard>();
    }

    void cleanupTestCase() {
        m_keyboard.reset();
        m_fixture.reset();
    }

    void withoutACaptureTheCompositorHasItsShortcuts() { QVERIFY(compositorTakesF2()); }

    void duringACaptureTheKeyOfAShortcutIsCaptured() {
        panel()->show();
        QTRY_COMPARE(QGuiApplication::focusWindow(), panel()->windowHandle());
        m_keyboard->tap(kF2);
        QCOMPARE(shown(), QStringLiteral("F2"));
        m_keyboard->tap(kF3);
        QCOMPARE(shown(), QStringLiteral("F3"));
        m_keyboard->tap(keycodes::leftSuper);
        QCOMPARE(shown(), QStringLiteral("Super"));
        m_keyboard->down(keycodes::rightShift);
        QCOMPARE(shown(), QStringLiteral("Shift"));
        m_keyboard->up(keycodes::rightShift);
        m_keyboard->tap(keycodes::capsLock);
        QCOMPARE(shown(), QStringLiteral("Caps Lock"));
        m_keyboard->tap(kF3);
        m_keyboard->tap(keycodes::capsLock);
        QCOMPARE(shown(), QStringLiteral("F3"));
        panel()->hide();
        QVERIFY(!wasTaken());
        QTRY_COMPARE(QGuiApplication::focusWindow(), m_fixture->window->windowHandle());
        QVERIFY(compositorTakesF2());
    }

    void aRecordingHoldsTheShortcutsBackUntilItStops() {
        m_fixture->pane->startStopRecording(true, false);
        QVERIFY(m_desktop->sway.command("nop")); // before its answer it has heard what it was asked for
        m_keyboard->tap(kF2);
        QVERIFY(m_fixture->pane->isRecordingMacro());
        m_fixture->pane->startStopRecording(false, false);
        QVERIFY(!wasTaken());
        QVERIFY(compositorTakesF2());
    }

    void aRecordingTakesTheFiveButtonsOfTheMouse() {
        m_fixture->selectTab(3);
        m_fixture->selectRow("quorviTableMacros", 0);
        auto* steps = m_fixture->find<KyvarQuorviTableView>("quorviTableSteps");
        const plist::Array recorded =
            m_fixture->pane->deviceConfig().array("macros").dictionary(0).array("steps");
        recorded.removeAll();
        // Over the whole output, so that the window's places are those of the output.
        QVERIFY(m_desktop->sway.command("fullscreen enable"));
        QTRY_VERIFY(m_fixture->window->size() == m_fixture->window->screen()->size());
        const QPoint spot =
            steps->viewport()->mapTo(m_fixture->window.get(), steps->viewport()->rect().center());
        m_fixture->pane->startStopRecording(true, false);
        const auto sendToSeat = [&](const std::string& what) {
            QVERIFY(m_desktop->sway.command("seat - cursor " + what));
        };
        sendToSeat("set " + std::to_string(spot.x()) + " " + std::to_string(spot.y()));
        for (const char* button : {"button1", "button2", "button3", "button8", "button9"}) {
            sendToSeat(std::string("press ") + button);
            sendToSeat(std::string("release ") + button);
        }
        QTRY_COMPARE(recorded.size(), 10U);
        m_fixture->pane->startStopRecording(false, false);
        QList<int> commands;
        for (std::size_t index = 0; index < recorded.size(); ++index)
            commands << recorded.dictionary(index).integer("command");
        // Left, middle, right, and the two beside them, each up again.
        QCOMPARE(commands, QList<int>({129, 128, 132, 128, 130, 128, 136, 128, 144, 128}));
    }
};

int main(int argc, char** argv) {
    const PrivateBus bus;
    const bool possible = missing().isEmpty();
    const auto desktop = possible ? std::make_unique<Desktop>() : nullptr;
    if (!possible)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    WaylandCaptureTest test(desktop.get());
    return QTest::qExec(&test, argc, argv);
}
#include "WaylandCaptureTest.moc"
