// A macro that the user records with a real keyboard and a real mouse: its steps and delays in the window, in
// the settings file, and byte for byte in the mouse.

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTabWidget>
#include <QTableView>
#include <QTest>

#include "host/OpenWindow.h"
#include "host/Session.h"
#include "macros/DelayScale.h"
#include "platform/Clock.h"
#include "support/ChildProcess.h"
#include "support/EventMonitor.h"
#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "support/Tabs.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr int kDelete = 119;
constexpr int kApostrophe = 48;
constexpr int kE = 26;
constexpr int kMacroId = 7;

/// Where the record of the mouse holds macros: 70 headers of a macro's number, the length of its body, and 0;
/// then the bodies, of which the steps begin behind name and delay.
constexpr std::size_t kHeaders = 492;
constexpr std::size_t kHeaderSize = 4;
constexpr std::size_t kBodies = 772;
constexpr std::size_t kBodySize = 178;
constexpr std::size_t kStepsInBody = 50;
constexpr std::size_t kSlots = 70;

struct Step {
    int command;
    int argument;
    int delay;
};

/// Notes when keys and mouse buttons come to a window of this process.
class EventTimes : public QObject {
  public:
    EventTimes() { QCoreApplication::instance()->installEventFilter(this); }
    QList<double> times;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const QEvent::Type type = event->type();
        const bool isKey = (type == QEvent::KeyPress || type == QEvent::KeyRelease) &&
                           !static_cast<QKeyEvent*>(event)->isAutoRepeat();
        const bool isButton = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick ||
                              type == QEvent::MouseButtonRelease;
        if (watched->isWindowType() && (isKey || isButton))
            times << steadySeconds();
        return QObject::eventFilter(watched, event);
    }
};

/// Counts the presses and releases that come to this process, and of them those that Qt marks as repeated and
/// those that come through to the controls.
class KeyCounter : public QObject {
  public:
    KeyCounter() { QCoreApplication::instance()->installEventFilter(this); }
    int presses = 0;
    int releases = 0;
    int marked = 0;
    int toControls = 0;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool isPress = event->type() == QEvent::KeyPress;
        if (isPress || event->type() == QEvent::KeyRelease) {
            if (watched->isWindowType()) {
                ++(isPress ? presses : releases);
                marked += static_cast<QKeyEvent*>(event)->isAutoRepeat();
            } else {
                ++toControls;
            }
        }
        return QObject::eventFilter(watched, event);
    }
};

/// The byte code of the steps: a key with its usage, a button alone, and a delay of one byte or two.
std::vector<std::uint8_t> byteCode(const QList<Step>& steps) {
    std::vector<std::uint8_t> bytes;
    const auto put = [&](int byte) { bytes.push_back(static_cast<std::uint8_t>(byte)); };
    for (const Step& step : steps) {
        put(step.command);
        if (step.command < 128)
            put(step.argument);
        if (step.delay >= 256) {
            put(18);
            put(step.delay / 256);
            put(step.delay % 256);
        } else if (step.delay > 0) {
            put(17);
            put(step.delay);
        }
    }
    return bytes;
}

plist::Dictionary settingsWithAnEmptyMacro() {
    auto tree = UserHome::defaults();
    const auto macro = plist::Dictionary::create();
    macro.set("macroid", kMacroId);
    macro.set("name", u"Hello");
    macro.set("delay", 0);
    macro.set("steps", plist::Array::create());
    tree.array("macros").append(macro);
    return tree;
}

} // namespace

class RecordingReachesTheMouseTest : public QObject {
    Q_OBJECT

    [[nodiscard]] QTableView* steps() const { return m_window->find<QTableView>("quorviTableSteps"); }
    [[nodiscard]] QAbstractButton* recordButton() const {
        return m_window->find<QAbstractButton>("quorviButtonStepRecord");
    }
    [[nodiscard]] bool isRecording() const { return recordButton()->isChecked(); }

    /// Runs xdotool and waits until that many further events have come.
    void act(const std::vector<std::string>& arguments, int events = 1) {
        const auto before = m_times->times.size();
        QVERIFY(xdotool(arguments));
        QTRY_COMPARE_WITH_TIMEOUT(m_times->times.size(), before + events, kWindowPatienceMs);
    }
    void clickAtList(const std::string& button) {
        act({"mousedown", button});
        act({"mouseup", button});
    }
    void pointAtList() const {
        const QPoint spot = steps()->viewport()->mapToGlobal(QPoint(40, 60));
        QVERIFY(xdotool({"mousemove", std::to_string(spot.x()), std::to_string(spot.y())}));
    }
    void tap(int keycode) const { m_keyboard->tap(keycode); }
    void chord(int modifier, int keycode) const {
        m_keyboard->down(modifier);
        m_keyboard->tap(keycode);
        m_keyboard->up(modifier);
    }

    [[nodiscard]] QStringList shown() const {
        QStringList texts;
        for (int row = 0; row < steps()->model()->rowCount(); ++row)
            texts << steps()->model()->index(row, 0).data().toString();
        return texts;
    }
    [[nodiscard]] QList<Step> saved() const {
        QList<Step> result;
        const auto array = m_session->home.savedSettings().array("macros").dictionary(0).array("steps");
        for (std::size_t index = 0; index < array.size(); ++index) {
            const auto step = array.dictionary(index);
            result << Step{step.integer("command"), step.integer("argument"), step.integer("delay")};
        }
        return result;
    }
    /// The steps of the macro as the mouse holds them; empty while it has none.
    [[nodiscard]] std::vector<std::uint8_t> stepsInTheMouse() const {
        const auto record = m_session->record();
        for (std::size_t slot = 0; slot < kSlots && !record.empty(); ++slot) {
            const std::size_t header = kHeaders + slot * kHeaderSize;
            const std::size_t length = record[header + 1] * 256U + record[header + 2];
            if (record[header] != kMacroId || length < kStepsInBody)
                continue;
            const auto body = record.begin() + static_cast<std::ptrdiff_t>(kBodies + slot * kBodySize);
            return {body + kStepsInBody, body + static_cast<std::ptrdiff_t>(length)};
        }
        return {};
    }

    std::unique_ptr<Session> m_session;
    std::unique_ptr<OpenWindow> m_window;
    std::unique_ptr<Keyboard> m_keyboard;
    std::unique_ptr<EventTimes> m_times;
    std::unique_ptr<OtherProgram> m_other;

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display with xdotool");
    }

    void init() {
        m_session = std::make_unique<Session>();
        m_session->home.writeSettings(settingsWithAnEmptyMacro());
        m_window = std::make_unique<OpenWindow>();
        QVERIFY(m_window->showsMouse());
        m_window->clickTab(kMacrosTab);
        auto* macros = m_window->find<QTableView>("quorviTableMacros");
        QTest::mouseClick(macros->viewport(), Qt::LeftButton, {},
            macros->visualRect(macros->model()->index(0, 0)).center());
        QTRY_VERIFY(steps()->isVisible());
        m_keyboard = std::make_unique<Keyboard>();
        m_other = std::make_unique<OtherProgram>();
        m_times = std::make_unique<EventTimes>();
        pointAtList();
    }

    void cleanup() {
        m_times.reset();
        m_keyboard.reset();
        m_other.reset();
        m_window.reset();
        m_session.reset();
    }

    void typingAndClickingBecomeStepsWithTheirDelays() {
        m_window->click("quorviButtonStepRecord");
        QVERIFY(isRecording());
        m_times->times.clear();
        for (const int keycode : {keycodes::a, kE}) {
            tap(keycode);
            QTest::qWait(120); // the user takes time
        }
        for (const char* button : {"1", "2", "3", "8", "9"}) {
            clickAtList(button);
            QTest::qWait(5);
        }
        QCOMPARE(m_times->times.size(), 14);
        QCOMPARE(shown(),
            QStringList({"Press a", "Release a", "Press e", "Release e", "Press button 1", "Release button",
                "Press button 3", "Release button", "Press button 2", "Release button", "Press button 4",
                "Release button", "Press button 5", "Release button"}));
        QCOMPARE(m_window->text("textRecording"),
            QStringLiteral("Recording: 2 steps left \u00B7 \u25A0 or hold Esc to stop"));
        QVERIFY(saved().isEmpty());
        const QList<double> times = m_times->times;
        m_window->click("quorviButtonStepRecord");
        QVERIFY(!isRecording());

        const auto steps = saved();
        QCOMPARE(steps.size(), 14);
        const QList<std::pair<int, int>> expected{{1, 4}, {0, 4}, {1, 8}, {0, 8}, {129, 0}, {128, 0},
            {132, 0}, {128, 0}, {130, 0}, {128, 0}, {136, 0}, {128, 0}, {144, 0}, {128, 0}};
        for (int row = 0; row < 14; ++row) {
            QCOMPARE(std::pair(steps.at(row).command, steps.at(row).argument), expected.at(row));
            if (row == 13)
                break;
            // Between the filter of this test and the panel a moment passes, now longer, now shorter.
            constexpr double kSlack = 0.008;
            const double interval = times.at(row + 1) - times.at(row);
            QVERIFY2(steps.at(row).delay >= delayOfInterval(interval - kSlack) &&
                         steps.at(row).delay <= delayOfInterval(interval + kSlack),
                qPrintable(QStringLiteral("step %1 after %2 s has %3 ms")
                               .arg(row)
                               .arg(interval)
                               .arg(steps.at(row).delay)));
        }
        QCOMPARE(steps.last().delay, 0);
        QTRY_VERIFY_WITH_TIMEOUT(stepsInTheMouse() == byteCode(steps), kWindowPatienceMs);
    }

    void aDelayThatIsChosenIsInTheMouseWithTheNextSave() {
        m_window->click("quorviButtonStepRecord");
        tap(keycodes::a);
        m_window->click("quorviButtonStepRecord");
        steps()->model()->setData(steps()->model()->index(0, 1), 12); // 1 second
        m_window->click("quorviButtonStepRecord");
        m_window->click("quorviButtonStepRecord");
        const std::vector<std::uint8_t> expected{1, 4, 18, 0x03, 0xE8, 0, 4};
        QTRY_VERIFY_WITH_TIMEOUT(stepsInTheMouse() == expected, kWindowPatienceMs);
    }

    void keysThatCloseOrMoveAreRecordedAndDoNothingElse() {
        auto* tabs = m_window->find<QTabWidget>("quorviTabsMain");
        m_window->click("quorviButtonStepRecord");
        chord(keycodes::leftControl, keycodes::q);
        chord(keycodes::alt, keycodes::f4);
        for (const int keycode : {keycodes::enter, keycodes::escape, keycodes::tab, kDelete})
            tap(keycode);
        QCOMPARE(shown(),
            QStringList({"Press Ctrl", "Press q", "Release q", "Release Ctrl", "Press Alt", "Press F4",
                "Release F4", "Release Alt", "Press Return", "Release Return", "Press Esc", "Release Esc",
                "Press Tab", "Release Tab", "Press Delete", "Release Delete"}));
        QVERIFY(isRecording());
        QVERIFY(m_window->host().isVisible());
        QVERIFY(m_window->host().isActiveWindow());
        QCOMPARE(tabs->currentIndex(), kMacrosTab);
        QVERIFY(recordButton()->hasFocus());
        QVERIFY(!m_other->canTakeKeyboard());

        m_window->click("quorviButtonStepRecord");
        QTRY_VERIFY_WITH_TIMEOUT(m_other->canTakeKeyboard(), kWindowPatienceMs);
        tap(keycodes::tab);
        QVERIFY(!recordButton()->hasFocus());
        recordButton()->setFocus();
        chord(keycodes::leftControl, keycodes::tab);
        QTRY_COMPARE_WITH_TIMEOUT(tabs->currentIndex(), kMacrosTab + 1, kWindowPatienceMs);
        m_keyboard->down(keycodes::leftControl);
        m_keyboard->downUnseen(keycodes::q); // the press of a shortcut goes to no window
        QTRY_VERIFY_WITH_TIMEOUT(!m_window->host().isVisible(), kWindowPatienceMs);
    }

    void deadKeysAreRecordedEvenFromWithinAnEdit() {
        QVERIFY(runProgram({"setxkbmap", "us", "intl"}).exitCode == 0);
        auto* macros = m_window->find<QTableView>("quorviTableMacros");
        macros->edit(macros->model()->index(0, 0));
        QVERIFY(macros->viewport()->findChild<QLineEdit*>());
        recordButton()->click();
        tap(kApostrophe);
        tap(kE);
        QVERIFY(runProgram({"setxkbmap", "us"}).exitCode == 0);
        recordButton()->click();
        const auto steps = saved();
        QCOMPARE(steps.size(), 4);
        QCOMPARE(steps.at(0).argument, 0x34);
        QCOMPARE(steps.at(1).argument, 0x34);
        QCOMPARE(steps.at(2).argument, 0x08);
        QCOMPARE(m_session->home.savedSettings().array("macros").dictionary(0).string("name"),
            std::u16string(u"Hello"));
    }

    void theRepetitionsOfAHeldKeyAreNotRecorded() {
        m_window->click("quorviButtonStepRecord");
        const KeyCounter keys;
        m_keyboard->downUnseen(keycodes::a);
        QTRY_VERIFY_WITH_TIMEOUT(keys.presses >= 10, kWindowPatienceMs);
        QCOMPARE(shown(), QStringList("Press a"));
        m_keyboard->upUnseen(keycodes::a);
        QTRY_COMPARE_WITH_TIMEOUT(shown(), QStringList({"Press a", "Release a"}), kWindowPatienceMs);
        // Nobody had to guess which releases were the user's: the server sent no other.
        QCOMPARE(keys.releases, 1);
    }

    void aKeyHeldBeyondTheRecordingRepeatsForNobodyAndTheNextOneForTheHost() {
        m_window->click("quorviButtonStepRecord");
        KeyCounter keys;
        m_keyboard->downUnseen(keycodes::a);
        QTRY_VERIFY_WITH_TIMEOUT(keys.presses >= 3, kWindowPatienceMs);
        m_window->click("quorviButtonStepRecord");
        QCOMPARE(saved().size(), 1);
        QTRY_VERIFY_WITH_TIMEOUT(keys.presses >= 10, kWindowPatienceMs);
        m_keyboard->upUnseen(keycodes::a);
        QTRY_COMPARE_WITH_TIMEOUT(keys.releases, 1, kWindowPatienceMs);
        QCOMPARE(keys.toControls, 0);
        QCOMPARE(keys.marked, 0);

        // What the host is used to: repetitions that are marked as such.
        m_keyboard->downUnseen(kE);
        QTRY_VERIFY_WITH_TIMEOUT(keys.marked >= 3, kWindowPatienceMs);
        QVERIFY(keys.toControls >= 3);
        m_keyboard->upUnseen(kE);
        QCOMPARE(shown(), QStringList("Press a"));
    }

    void theHelperIsToldOfTheRecordingAndOfTheSettingsAndOfNothingElse() {
        EventMonitor monitor(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS").toStdString());
        const auto record = [&](const char* button) {
            m_window->click("quorviButtonStepRecord");
            tap(keycodes::a);
            clickAtList(button);
            chord(keycodes::shift, kE);
            m_window->click("quorviButtonStepRecord");
        };
        record("1");
        record("3"); // a message too many of the first would come before the second's
        m_window->host().close();
        // What the panel says when it goes is the last.
        const std::vector<std::string> expected{
            "KyDM 1", "KyDM 0", "KyPR 0", "KyDM 1", "KyDM 0", "KyPR 0", "KyRO 0"};
        QVERIFY(monitor.commandsUntil("KyRO 0") == expected);
    }

    void aWindowThatIsClosedMeanwhileHasSavedTheSteps() {
        m_window->click("quorviButtonStepRecord");
        tap(keycodes::a);
        m_times.reset();
        m_keyboard.reset();
        m_window->host().close();
        m_window.reset();
        QCOMPARE(saved().size(), 2);
        QVERIFY(m_other->canTakeKeyboard());
        const int delay = saved().first().delay;
        const auto expected = byteCode({{1, 4, delay}, {0, 4, 0}});
        QTRY_VERIFY_WITH_TIMEOUT(stepsInTheMouse() == expected, kWindowPatienceMs);
    }
};

QUORVI_SESSION_TEST_MAIN(RecordingReachesTheMouseTest)
#include "RecordingReachesTheMouseTest.moc"
