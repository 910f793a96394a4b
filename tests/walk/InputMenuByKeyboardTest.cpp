// The context menu of an input's pop-up with the keyboard alone, in the real program, with keys from the
// display, and through a screen reader's interface.

#include <QTest>

#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "walk/Walk.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr int kCopyCommand = 112;
constexpr int kPasteCommand = 114;
constexpr int kBackCommand = 5;

plist::Dictionary inputIn(const plist::Dictionary& profile) {
    return profile.dictionary("buttons").dictionary("04");
}

} // namespace

class InputMenuByKeyboardTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display with xdotool");
    }

    void anInputIsResetAndCopied() {
        const auto settings = settingsToWalkIn();
        inputIn(settings.array("profiles").dictionary(0)).set("command", kCopyCommand);
        inputIn(settings.array("profiles").dictionary(1)).set("command", kPasteCommand);
        Walk walk(settings);
        const auto command = [&] { return inputIn(walk.savedItem("profiles", 0)).integer("command"); };
        // The pop-up, by what it shows.
        const auto showing = [](const char* function) {
            return QStringLiteral("combo box '%1'").arg(QLatin1String(function));
        };
        const QString reset = QStringLiteral("menu item 'Reset to “Back”'");
        QVERIFY(walk.moveTo(showing("Copy")));
        for (const char* key : {"Menu", "shift+F10"}) {
            QCOMPARE(walk.focusAfter(key, reset), reset);
            QCOMPARE(walk.focusAfter("Escape", showing("Copy")), showing("Copy"));
        }
        QCOMPARE(walk.focusAfter("Menu", reset), reset);
        QCOMPARE(walk.focusAfter("Return", showing("Back")), showing("Back"));
        QTRY_COMPARE(command(), kBackCommand);
        QVERIFY(walk.helperIsTold(0));
        // What cannot be chosen any more is passed over.
        const QString copy = QStringLiteral("menu item 'Copy from Profile'");
        const QString paste = QStringLiteral("menu item 'Game – Paste'");
        QCOMPARE(walk.focusAfter("shift+F10", copy), copy);
        QCOMPARE(walk.focusAfter("Right", paste), paste);
        QCOMPARE(walk.focusAfter("Return", showing("Paste")), showing("Paste"));
        QTRY_COMPARE(command(), kPasteCommand);
        QVERIFY(walk.helperIsTold(0));
    }
};

QUORVI_SESSION_TEST_MAIN(InputMenuByKeyboardTest)
#include "InputMenuByKeyboardTest.moc"
