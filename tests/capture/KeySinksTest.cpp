// The receiver of a captured key: the capture alone, with the test's own sinks at a real window.

#include <QKeyEvent>
#include <QWindow>

#include <optional>

#include "capture/KeyCapture.h"
#include "support/SessionTestMain.h"

using namespace quorvi;

namespace {

// Scan codes, and what events have on them.
constexpr quint32 kA = 38;
constexpr quint32 kShift = 50;
constexpr quint32 kShiftSymbol = 0xffe1;
constexpr quint32 kShiftState = 0x1;
constexpr std::uint8_t kKeyA = 0x00;
constexpr std::uint16_t kShiftModifier = 0x0200;

/// Writes down what it gets.
class Sink : public KeySink {
  public:
    [[nodiscard]] bool wantsKeys() const override { return wants; }
    [[nodiscard]] bool awaitsOneKey() const override { return awaitsOne; }
    void receiveKey(const CapturedKey& key) override {
        got << QStringLiteral("%1 %2 %3")
                   .arg(key.key)
                   .arg(key.modifiers)
                   .arg(key.goingDown ? QStringLiteral("down") : QStringLiteral("up"));
    }
    void followModifiers(std::uint16_t modifiers) override { heardOf = modifiers; }

    bool wants = false;
    bool awaitsOne = false;
    QStringList got;
    std::optional<std::uint16_t> heardOf;
};

class Host {
  public:
    Host() {
        window.show();
        capture.start();
    }

    /// Whether the host does not get the event.
    bool send(QEvent::Type type, quint32 scanCode, quint32 symbol = 0, quint32 state = 0) const {
        QKeyEvent event(type, 0, {}, scanCode, symbol, state);
        event.ignore();
        QCoreApplication::sendEvent(window.windowHandle(), &event);
        return event.isAccepted();
    }
    bool press(quint32 scanCode) const { return send(QEvent::KeyPress, scanCode); }
    bool release(quint32 scanCode) const { return send(QEvent::KeyRelease, scanCode); }

    QWidget window;
    FollowedModifiers modifiers;
    Sink first;
    Sink second;
    KeyCapture capture{window, modifiers, {&first, &second}};
};

} // namespace

class KeySinksTest : public QObject {
    Q_OBJECT

  private slots:
    void whatNobodyWantsIsTheHosts() {
        const Host host;
        QVERIFY(!host.capture.isActive());
        QVERIFY(!host.press(kA));
        QVERIFY(!host.release(kA));
        QCOMPARE(host.first.got + host.second.got, QStringList());
    }

    void theFirstSinkThatWantsKeysGetsThem() {
        Host host;
        host.second.wants = true;
        QVERIFY(host.press(kA));
        QVERIFY(host.release(kA));
        host.first.wants = true;
        QVERIFY(host.press(kA));
        QCOMPARE(host.second.got, QStringList({"0 0 down", "0 0 up"}));
        QCOMPARE(host.first.got, QStringList("0 0 down"));
    }

    void everySinkHearsOfModifiersThatChangedUnseen() {
        Host host;
        host.first.wants = true;
        QVERIFY(host.send(QEvent::KeyPress, kA, 0, kShiftState));
        QCOMPARE(host.first.heardOf, std::optional(kShiftModifier));
        QCOMPARE(host.second.heardOf, std::optional(kShiftModifier));
        QCOMPARE(host.first.got, QStringList("0 512 down"));
    }

    void aModifierThatIsLetGoFromBeforeIsNotTheOneKey() {
        Host host;
        QVERIFY(!host.send(QEvent::KeyPress, kShift, kShiftSymbol));
        host.first.wants = host.first.awaitsOne = true;
        QVERIFY(host.send(QEvent::KeyRelease, kShift, kShiftSymbol, kShiftState));
        QCOMPARE(host.first.got, QStringList());
        host.first.awaitsOne = false;
        QVERIFY(host.send(QEvent::KeyPress, kShift, kShiftSymbol));
        QVERIFY(host.send(QEvent::KeyRelease, kShift, kShiftSymbol, kShiftState));
        QCOMPARE(host.first.got, QStringList({"255 512 down", "255 0 up"}));
    }

    void afterItsEndEveryKeyIsTheHosts() {
        Host host;
        host.first.wants = true;
        QVERIFY(host.press(kA));
        host.capture.stop();
        QVERIFY(host.capture.isActive()); // whoever brings a key by themselves is still heard
        QVERIFY(!host.release(kA));
        QVERIFY(!host.press(kA));
        QCOMPARE(host.first.got, QStringList("0 0 down"));
        QVERIFY(host.capture.receive(CapturedKey{.key = kKeyA, .modifiers = 0, .goingDown = false}));
        QCOMPARE(host.first.got, QStringList({"0 0 down", "0 0 up"}));
    }

    void theModifiersGoOnWhereAnEarlierCaptureLeftThem() {
        Host host;
        host.modifiers.follow(kShiftModifier);
        host.first.wants = true;
        const KeyEvent shiftHeld{.type = KeyEventType::FlagsChanged, .modifierFlags = shiftFlag};
        QVERIFY(!host.capture.receive(shiftHeld));
        QCOMPARE(host.first.got, QStringList());
    }
};

QUORVI_SESSION_TEST_MAIN(KeySinksTest)
#include "KeySinksTest.moc"
