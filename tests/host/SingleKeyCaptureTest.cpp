// Keys that come from the X server, in the sheet that asks for a mouse button's key: the real window, plug-in
// and helper, under a window manager with its own shortcuts.

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>

#include "host/OpenWindow.h"
#include "host/Session.h"
#include "support/Keyboard.h"
#include "support/SessionTestMain.h"

using namespace quorvi::test;

namespace {

constexpr int kSingleKeyCommand = 49;
constexpr char kSheet[] = "quorviPanelSingleKey";

} // namespace

class SingleKeyCaptureTest : public QObject {
    Q_OBJECT

    [[nodiscard]] QDialog* sheet() const { return m_window->find<QDialog>(kSheet); }
    [[nodiscard]] QString shown() const { return m_window->find<QLineEdit>("quorviFieldSingleKey")->text(); }

    /// Opens the sheet for button 2, does that in it, and closes it with the button; without one, at once.
    void inSheet(std::function<void()> action, const char* closing = "quorviSingleKeyButtonCancel") {
        bool closed = false;
        whenSheetIsUp(&m_window->host(), kSheet, [&, action = std::move(action)](QDialog* dialog) {
            action();
            if (closing)
                clickButton(outlet<QAbstractButton>(dialog, closing));
            else
                dialog->reject();
            closed = true;
        });
        auto* popUp = m_window->find<QComboBox>("quorviMenuTop2");
        popUp->showPopup();
        for (QAction* item : popUp->findChildren<QAction*>())
            if (item->property("tag") == kSingleKeyCommand)
                item->trigger();
        QTRY_VERIFY_WITH_TIMEOUT(closed && !sheet()->isVisible(), kWindowPatienceMs);
        m_window->waitUntilActive();
    }

    std::unique_ptr<Session> m_session;
    std::unique_ptr<OpenWindow> m_window;
    std::unique_ptr<Keyboard> m_keyboard;
    std::unique_ptr<OtherProgram> m_other;

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display with xdotool");
        m_session = std::make_unique<Session>();
        m_window = std::make_unique<OpenWindow>();
        QVERIFY(m_window->showsMouse());
        m_window->waitUntilActive();
        m_keyboard = std::make_unique<Keyboard>();
        m_other = std::make_unique<OtherProgram>();
        QVERIFY(!m_other->isCapsLockOn());
    }

    void cleanupTestCase() {
        m_keyboard.reset();
        m_other.reset();
        m_window.reset();
        m_session.reset();
    }

    void shiftAloneIsCapturedOnItsPressLeftAndRightAlike() {
        inSheet([this] {
            for (const int keycode : {keycodes::shift, keycodes::rightShift}) {
                m_keyboard->tap(keycodes::a);
                QVERIFY(shown() != QLatin1String("Shift"));
                m_keyboard->down(keycode);
                QCOMPARE(shown(), QStringLiteral("Shift"));
                m_keyboard->up(keycode);
                QCOMPARE(shown(), QStringLiteral("Shift"));
            }
        });
    }

    void commandThenShiftCapturesBothInTurnAndReleasesNothing() {
        inSheet([this] {
            m_keyboard->down(keycodes::leftSuper);
            QCOMPARE(shown(), QStringLiteral("Super"));
            m_keyboard->down(keycodes::shift);
            QCOMPARE(shown(), QStringLiteral("Shift"));
            m_keyboard->up(keycodes::shift);
            m_keyboard->up(keycodes::leftSuper);
            QCOMPARE(shown(), QStringLiteral("Shift"));
        });
    }

    void everyOtherModifierAloneIsCapturedToo() {
        inSheet([this] {
            m_keyboard->tap(keycodes::rightSuper);
            QCOMPARE(shown(), QStringLiteral("Super"));
            m_keyboard->tap(keycodes::leftControl);
            QCOMPARE(shown(), QStringLiteral("Ctrl"));
            m_keyboard->tap(keycodes::alt);
            QCOMPARE(shown(), QStringLiteral("Alt"));
            m_keyboard->tap(keycodes::a);
            m_keyboard->tap(keycodes::altGr);
            QCOMPARE(shown(), QStringLiteral("Alt"));
        });
    }

    void capsLockIsCapturedWhenItLocksAndNotWhenItUnlocks() {
        inSheet([this] {
            m_keyboard->tap(keycodes::capsLock);
            QCOMPARE(shown(), QStringLiteral("Caps Lock"));
            m_keyboard->tap(keycodes::f1);
            m_keyboard->tap(keycodes::capsLock);
            QCOMPARE(shown(), QStringLiteral("F1"));
        });
        QVERIFY(!m_other->isCapsLockOn());
    }

    void capsLockFromBeforeIsNotTakenForTheFirstKey() {
        m_keyboard->tap(keycodes::capsLock);
        QVERIFY(m_other->isCapsLockOn());
        inSheet([this] {
            m_keyboard->tap(keycodes::f1);
            QCOMPARE(shown(), QStringLiteral("F1"));
        });
        m_keyboard->tap(keycodes::capsLock);
        QVERIFY(!m_other->isCapsLockOn());
    }

    void aKeyWithShiftHeldIsCapturedAlone() {
        inSheet([this] {
            m_keyboard->down(keycodes::shift);
            m_keyboard->tap(keycodes::a);
            m_keyboard->up(keycodes::shift);
            QCOMPARE(shown().toUpper(), QStringLiteral("A"));
        });
    }

    void theFunctionKeysAreCaptured() {
        inSheet([this] {
            for (int number = 1; number <= 15; ++number) {
                m_keyboard->tap(number <= 10   ? keycodes::f1 + number - 1
                                : number <= 12 ? keycodes::f11 + number - 11
                                               : keycodes::f13 + number - 13);
                QCOMPARE(shown(), QStringLiteral("F%1").arg(number));
            }
        });
    }

    void theKeypadIsCapturedAsTheKeypad() {
        inSheet([this] {
            const QList<std::pair<int, QString>> keys{{79, QStringLiteral("7")}, {80, QStringLiteral("8")},
                {81, QStringLiteral("9")}, {82, QStringLiteral("-")}, {83, QStringLiteral("4")},
                {84, QStringLiteral("5")}, {85, QStringLiteral("6")}, {86, QStringLiteral("+")},
                {87, QStringLiteral("1")}, {88, QStringLiteral("2")}, {89, QStringLiteral("3")},
                {90, QStringLiteral("0")}, {63, QStringLiteral("*")}, {106, QStringLiteral("/")}};
            for (const auto& [keycode, name] : keys) {
                m_keyboard->tap(keycode);
                QCOMPARE(shown(), QStringLiteral("Num+") + name);
            }
            m_keyboard->tap(104);
            QCOMPARE(shown(), QStringLiteral("Num+Enter"));
        });
    }

    void returnAndEscapeAreCapturedAndLeaveTheSheetOpen() {
        inSheet([this] {
            for (const auto& [keycode, name] : {std::pair(keycodes::enter, "Return"), std::pair(65, "Space"),
                     std::pair(keycodes::escape, "Esc"), std::pair(keycodes::tab, "Tab")}) {
                m_keyboard->tap(keycode);
                QCOMPARE(shown(), QString::fromLatin1(name));
                QVERIFY(sheet()->isVisible());
            }
        });
    }

    void aKeyThatIsLetGoAsTheSheetClosesIsCapturedTheNextTime() {
        for (int time = 0; time < 3; ++time)
            inSheet(
                [this] {
                    m_keyboard->tap(keycodes::f1);
                    m_keyboard->down(keycodes::a);
                    QCOMPARE(shown().toUpper(), QStringLiteral("A"));
                    m_keyboard->upUnseen(keycodes::a); // still on its way when the sheet goes
                },
                nullptr);
    }

    void theHostsAndTheWindowManagersWayToCloseIsCapturedAndClosesNothing() {
        inSheet([this] {
            m_keyboard->down(keycodes::leftControl);
            m_keyboard->tap(keycodes::q);
            m_keyboard->up(keycodes::leftControl);
            QCOMPARE(shown().toUpper(), QStringLiteral("Q"));
            m_keyboard->down(keycodes::alt);
            m_keyboard->tap(keycodes::f4);
            m_keyboard->up(keycodes::alt);
            QCOMPARE(shown(), QStringLiteral("F4"));
            QVERIFY(sheet()->isVisible());
            QVERIFY(m_window->host().isVisible());
        });
    }

    void whatTheDesktopTakesForItselfIsCaptured() {
        m_other->bindKey(keycodes::leftSuper);
        const QPoint spot = m_other->showWindow(); // something to switch to
        m_window->waitUntilActive();
        Q_UNUSED(spot);
        inSheet([this] {
            m_keyboard->tap(keycodes::leftSuper);
            QCOMPARE(shown(), QStringLiteral("Super"));
            m_keyboard->tap(keycodes::print);
            QCOMPARE(shown(), QStringLiteral("F13"));
            m_keyboard->down(keycodes::alt);
            QCOMPARE(shown(), QStringLiteral("Alt"));
            m_keyboard->tap(keycodes::tab);
            QCOMPARE(shown(), QStringLiteral("Tab"));
            m_keyboard->up(keycodes::alt);
            QVERIFY(sheet()->isActiveWindow());
        });
        QCOMPARE(m_other->keyPresses(), 0);
        m_window->waitUntilActive();
        m_keyboard->downUnseen(keycodes::leftSuper);
        m_keyboard->upUnseen(keycodes::leftSuper);
        QTRY_COMPARE_WITH_TIMEOUT(m_other->keyPresses(), 1, kWindowPatienceMs);
    }

    void theKeyThatIsHeldWhenTheSheetOpensIsNotCaptured() {
        m_keyboard->down(keycodes::enter);
        inSheet([this] {
            const QString before = shown();
            m_keyboard->up(keycodes::enter);
            QCOMPARE(shown(), before);
            QVERIFY(sheet()->isVisible());
        });
    }

    void theKeyThatIsHeldWhenTheSheetClosesGoesNowhere() {
        inSheet([this] {
            m_keyboard->down(keycodes::enter);
            QCOMPARE(shown(), QStringLiteral("Return"));
        });
        m_window->waitUntilActive();
        m_keyboard->up(keycodes::enter);
        QVERIFY(!sheet()->isVisible());
    }

    void theKeyboardIsHeldExactlyWhileTheSheetIsOpen() {
        QVERIFY(m_other->canTakeKeyboard());
        inSheet([this] { QTRY_VERIFY_WITH_TIMEOUT(!m_other->canTakeKeyboard(), kWindowPatienceMs); });
        QTRY_VERIFY_WITH_TIMEOUT(m_other->canTakeKeyboard(), kWindowPatienceMs);
    }

    void theKeyboardIsGivenBackToAWindowThatIsClickedAndTakenAgain() {
        OtherProgram neighbour;
        const QPoint spot = neighbour.showWindow();
        m_window->waitUntilActive();
        inSheet([&] {
            QTRY_VERIFY_WITH_TIMEOUT(!m_other->canTakeKeyboard(), kWindowPatienceMs);
            clickAt(spot);
            QTRY_VERIFY_WITH_TIMEOUT(m_other->canTakeKeyboard(), kWindowPatienceMs);
            const QString before = shown();
            m_keyboard->downUnseen(keycodes::a);
            m_keyboard->upUnseen(keycodes::a);
            QTRY_COMPARE_WITH_TIMEOUT(neighbour.keyPresses(), 1, kWindowPatienceMs);
            QCOMPARE(shown(), before);
            sheet()->activateWindow();
            QTRY_VERIFY_WITH_TIMEOUT(sheet()->isActiveWindow(), kWindowPatienceMs);
            QTRY_VERIFY_WITH_TIMEOUT(!m_other->canTakeKeyboard(), kWindowPatienceMs);
            m_keyboard->tap(keycodes::f1);
            QCOMPARE(shown(), QStringLiteral("F1"));
        });
    }

    void aKeyboardThatSomebodyElseHoldsIsTakenWithTheNextKey() {
        QVERIFY(m_other->takeKeyboard());
        inSheet([this] {
            m_other->giveKeyboardBack();
            QVERIFY(m_other->canTakeKeyboard());
            m_keyboard->tap(keycodes::f1);
            QCOMPARE(shown(), QStringLiteral("F1"));
            QVERIFY(!m_other->canTakeKeyboard());
        });
    }

    void theCapturedKeyIsStored() {
        inSheet([this] { m_keyboard->tap(keycodes::f1); }, "quorviSingleKeyButtonOK");
        const auto stored = [this] {
            return m_session->home.savedSettings()
                .array("profiles")
                .dictionary(0)
                .dictionary("buttons")
                .dictionary("02");
        };
        QTRY_COMPARE_WITH_TIMEOUT(stored().integer("command"), kSingleKeyCommand, kWindowPatienceMs);
        QCOMPARE(stored().integer("param1"), 0x3A);
        QCOMPARE(stored().integer("param2"), 0);
    }
};

QUORVI_SESSION_TEST_MAIN(SingleKeyCaptureTest)
#include "SingleKeyCaptureTest.moc"
