// The real program while it asks for a key, and after that, or when killed.

#include <QTest>

#include <csignal>
#include <sstream>

#include "host/Session.h"
#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "support/WindowTools.h"

using namespace quorvi::test;

namespace {

constexpr int kUsageOfA = 0x04;
constexpr int kUsageOfW = 0x1A;

/// The settings application with its window in front and a key on button 2.
class Program {
  public:
    Program() {
        session.home.awaitDeviceList();
        auto settings = session.home.savedSettings();
        auto button = quorvi::plist::Dictionary::create();
        button.set("command", 49);
        button.set("param1", kUsageOfA);
        settings.array("profiles").dictionary(0).dictionary("buttons").set("02", button);
        session.home.writeSettings(settings);
        process = session.startSettings();
        m_window = visibleWindowOf(process->pid());
        if (!QTest::qWaitFor([this] { return session.home.deviceListHasCome(); }, kWindowPatienceMs))
            qFatal("the device list does not come");
        require(xdotool({"windowactivate", "--sync", m_window}));
    }

    /// Opens the sheet, by keys alone, and waits until it has the keyboard.
    void openSheet() {
        require(xdotool({"key", "alt+2"}));
        require(xdotool({"key", "space", "Return"})); // the menu stands on the chosen item
        m_sheet = visibleWindow({"--name", "^Press Key$"});
        // Only then look for its grab: looking means to take the keyboard for a moment.
        require(xdotool({"windowactivate", "--sync", m_sheet}));
        if (!QTest::qWaitFor([this] { return !other.canTakeKeyboard(); }, kWindowPatienceMs))
            qFatal("the sheet does not take the keyboard");
    }

    void clickOK() {
        const auto geometry = xdotool({"getwindowgeometry", "--shell", m_sheet});
        require(geometry);
        std::istringstream lines(*geometry);
        QMap<QString, int> values;
        for (std::string line; std::getline(lines, line);) {
            const auto parts = QString::fromStdString(line).split(QLatin1Char('='));
            values[parts.value(0)] = parts.value(1).toInt();
        }
        // The second button of the sheet from the right, as seen from the lower right corner.
        require(xdotool({"mousemove", "--window", m_sheet, std::to_string(values["WIDTH"] - 145),
            std::to_string(values["HEIGHT"] - 26), "click", "1"}));
    }

    /// The USB usage of the key on button 2.
    [[nodiscard]] int storedKey() const {
        const auto profile = session.home.savedSettings().array("profiles").dictionary(0);
        return profile.dictionary("buttons").dictionary("02").integer("param1");
    }

    Session session;
    OtherProgram other;
    std::unique_ptr<ChildProcess> process;

  private:
    static void require(const std::optional<std::string>& output) {
        if (!output)
            qFatal("xdotool fails");
    }

    std::string m_window;
    std::string m_sheet;
};

} // namespace

class CaptureProgramTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display with xdotool");
    }

    void killedDuringACaptureItLeavesTheKeyboardToOthers() {
        Program program;
        program.openSheet();
        program.process->signal(SIGKILL);
        QCOMPARE(program.process->wait(), std::optional(128 + SIGKILL));
        QTRY_VERIFY_WITH_TIMEOUT(program.other.canTakeKeyboard(), kWindowPatienceMs);
        program.other.showWindow();
        program.other.activateWindow();
        QVERIFY(xdotool({"key", "a"}));
        QTRY_COMPARE_WITH_TIMEOUT(program.other.keyPresses(), 1, kWindowPatienceMs);
    }

    void closingShortcutsCloseNothingDuringACaptureAndDoSoAfterwards() {
        Program program;
        program.openSheet();
        QVERIFY(xdotool({"key", "ctrl+q", "alt+F4", "Escape", "Return", "ctrl+w"}));
        QVERIFY(program.process->isRunning());
        program.clickOK();
        QTRY_VERIFY_WITH_TIMEOUT(program.other.canTakeKeyboard(), kWindowPatienceMs);
        QVERIFY(program.process->isRunning());
        QTRY_COMPARE_WITH_TIMEOUT(program.storedKey(), kUsageOfW, kWindowPatienceMs);
        QVERIFY(xdotool({"key", "ctrl+q"}));
        QCOMPARE(program.process->wait(), std::optional(0));
    }

    void theWindowManagersShortcutClosesTheProgramWhenNoCaptureRuns() {
        Program program;
        QVERIFY(xdotool({"key", "alt+F4"}));
        QCOMPARE(program.process->wait(), std::optional(0));
    }

    void askedToEndDuringACaptureItEndsAndLeavesTheKeyboardToOthers() {
        Program program;
        program.openSheet();
        program.process->signal(SIGTERM);
        QCOMPARE(program.process->wait(), std::optional(0));
        QVERIFY(program.other.canTakeKeyboard());
    }
};

QUORVI_SESSION_TEST_MAIN(CaptureProgramTest)
#include "CaptureProgramTest.moc"
