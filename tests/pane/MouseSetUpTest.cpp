// The sheet that sets up a mouse: its questions, accepted answers and result.

#include <QAbstractButton>
#include <QCursor>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

#include <linux/input-event-codes.h>

#include "pane/PaneFixture.h"
#include "pane/PaneTestMain.h"
#include "pane/TellingHelper.h"
#include "support/Tabs.h"
#include "widgets/MouseView.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

MouseEntry mouse(const std::string& state = "driven") {
    return {.id = "mouse-1",
        .name = "Gaming Mouse",
        .connection = "usb",
        .inUse = true,
        .state = state,
        .codes = {BTN_LEFT, BTN_RIGHT, BTN_MIDDLE, BTN_SIDE, BTN_EXTRA, BTN_FORWARD, BTN_BACK}};
}

QString asksFor(int input) {
    return QStringLiteral("Press the button that should be number %1, or skip.").arg(input);
}

const QString kWaits = QStringLiteral("Waiting for the mouse…");
const QString kBegun = QStringLiteral("begin mouse-1");

/// The panel on its device tab, with a helper that tells of a mouse.
class Panel : public PaneFixture {
  public:
    explicit Panel(const std::vector<MouseEntry>& mice = {mouse()}) : PaneFixture({.helper = false}) {
        startHelper(mice);
        openWith(sampleTree());
        selectTab(kDeviceTab);
        if (!QTest::qWaitFor([this] { return button(1) != nullptr; }))
            qFatal("no mouse is listed");
    }

    void startHelper(const std::vector<MouseEntry>& mice) {
        auto made =
            std::make_unique<TellingHelper>(TellingHelper::Told{.demonstration = false, .mice = mice});
        telling = made.get();
        helper = std::move(made);
    }
    [[nodiscard]] QAbstractButton* button(int row) const {
        return window->findChild<QAbstractButton*>(QStringLiteral("quorviButtonSetUpMouse%1").arg(row));
    }
    /// Opens the sheet, does that in it once the set-up has begun, and returns when it is closed: by that,
    /// when it is said to. A failed check closes it.
    void inSheet(const std::function<void()>& action, bool closes = false) {
        bool isClosed = false;
        whenSheetIsUp(window.get(), "quorviPanelSetUp", [&](QDialog* panel) {
            sheet = panel;
            if (!QTest::qWaitFor([this] { return isReady(); }))
                QTest::qFail("the set-up does not begin", __FILE__, __LINE__);
            else
                action();
            if (!closes || QTest::currentTestFailed())
                panel->reject(); // what waits for the sheet's end would wait for ever
            isClosed = true;
        });
        click("quorviButtonSetUpMouse1");
        QVERIFY(QTest::qWaitFor([&] { return isClosed; }, kWindowPatienceMs));
        QTRY_VERIFY(!sheet->isVisible());
    }
    [[nodiscard]] bool isReady() const {
        return sheet->isActiveWindow() && telling->asked().contains(kBegun);
    }
    [[nodiscard]] QString question() const { return text("textSetUpQuestion"); }
    [[nodiscard]] QString note() const { return text("textSetUpNote"); }
    void press(std::uint16_t code) const { telling->tellCode(code, true); }
    void skip(int times) const {
        for (int i = 0; i < times; ++i)
            click("quorviSetUpButtonSkip");
    }
    [[nodiscard]] InputMarks& marks() const { return find<MouseView>("viewSetUpMouse")->marks(); }
    void pointAt(const char* name) const {
        auto* widget = find<QWidget>(name);
        QCursor::setPos(widget->mapToGlobal(widget->rect().center()));
    }
    /// A key as the display sends it, to what has the focus.
    void typeKey(Qt::Key key, std::uint16_t code) const {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, code + 8, 0, 0);
        QCoreApplication::sendEvent(sheet->focusWidget(), &event);
    }

    TellingHelper* telling = nullptr;
    QDialog* sheet = nullptr;
};

} // namespace

class MouseSetUpTest : public QObject {
    Q_OBJECT

  private slots:
    void aMouseThatIsNotAtHandCannotBeSetUp() {
        auto unused = mouse("unused");
        unused.inUse = false;
        const Panel panel({mouse(), unused, mouse("absent"), mouse("busy"), mouse("waiting")});
        QVERIFY(panel.button(1)->isEnabled());
        QCOMPARE(panel.button(1)->accessibleName(), QStringLiteral("Set up Gaming Mouse"));
        QVERIFY(!panel.button(2)->isVisible());
        for (const int row : {3, 4}) {
            QVERIFY2(!panel.button(row)->isEnabled(), qPrintable(QString::number(row)));
            QCOMPARE(panel.button(row)->accessibleDescription(),
                QStringLiteral("A mouse can be set up while it is in use and plugged in."));
        }
        QVERIFY(panel.button(5)->isEnabled());
    }

    void eachNumberIsAskedForAndItsButtonKept() {
        Panel panel;
        panel.inSheet([&] {
            QCOMPARE(panel.text("textSetUpMouse"), QStringLiteral("Gaming Mouse"));
            for (int input = 1; input <= 7; ++input) {
                QTRY_COMPARE(panel.question(), asksFor(input));
                QVERIFY(panel.marks().isPressed(input));
                panel.press(static_cast<std::uint16_t>(BTN_SIDE + input));
            }
            QTRY_COMPARE(panel.question(), QStringLiteral("All numbers have been asked for."));
            QVERIFY(!panel.isEnabled("quorviSetUpButtonSkip"));
            QCOMPARE(panel.sheet->focusWidget()->objectName(), QStringLiteral("quorviSetUpButtonDone"));
            panel.click("quorviSetUpButtonDone");
            QTRY_VERIFY(!panel.sheet->isVisible());
        });
        QTRY_COMPARE(panel.telling->asked(),
            QStringList({kBegun, "codes mouse-1 276 277 278 279 280 281 282", "end"}));
    }

    void whatWasPressedIsMarkedInTheDrawing() {
        Panel panel;
        panel.inSheet([&] {
            QVERIFY(panel.marks().isPressed(1));
            panel.press(BTN_SIDE);
            QTRY_VERIFY(panel.marks().isPressed(2));
            QVERIFY(panel.marks().isPressed(1)); // it is still down
            panel.telling->tellCode(BTN_SIDE, false);
            QTRY_VERIFY(!panel.marks().isPressed(1));
            QVERIFY(panel.marks().isKnown(1));
            QVERIFY(!panel.marks().isKnown(2));
            panel.click("quorviSetUpButtonBack");
            QVERIFY(panel.marks().isPressed(1));
            QVERIFY(!panel.marks().isKnown(1));
            QVERIFY(!panel.marks().isPressed(2));
        });
    }

    void aNumberThatIsSkippedStaysUnlessAnotherTakesItsButton() {
        Panel panel;
        panel.inSheet([&] {
            panel.skip(3);
            panel.press(BTN_EXTRA);
            QTRY_COMPARE(panel.question(), asksFor(5));
            panel.click("quorviSetUpButtonDone");
            QTRY_VERIFY(!panel.sheet->isVisible());
        });
        QTRY_VERIFY(panel.telling->asked().contains("codes mouse-1 272 273 274 276 0 277 278"));
    }

    void aButtonThatIsANumberAlreadyIsToldAndTheNumberAskedStays() {
        Panel panel;
        panel.inSheet([&] {
            panel.press(BTN_SIDE);
            QTRY_COMPARE(panel.question(), asksFor(2));
            panel.press(BTN_SIDE);
            QTRY_COMPARE(panel.note(), QStringLiteral("That button is already number 1."));
            QCOMPARE(panel.question(), asksFor(2));
            panel.click("quorviSetUpButtonBack");
            QCOMPARE(panel.question(), asksFor(1));
            QCOMPARE(panel.note(), QString());
            QVERIFY(!panel.isEnabled("quorviSetUpButtonBack"));
            panel.press(BTN_SIDE);
            QTRY_COMPARE(panel.question(), asksFor(2));
        });
    }

    void cancelChangesNothing_data() {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("button") << false;
        QTest::newRow("Escape") << true;
    }
    void cancelChangesNothing() {
        QFETCH(bool, byKey);
        Panel panel;
        panel.inSheet(
            [&] {
                panel.press(BTN_SIDE);
                QTRY_COMPARE(panel.question(), asksFor(2));
                panel.find<QLineEdit>("quorviFieldSetUpDpi")->setText("3200");
                if (byKey)
                    QTest::keyClick(panel.sheet->focusWidget(), Qt::Key_Escape);
                else
                    panel.click("quorviSetUpButtonCancel");
            },
            true);
        QTRY_COMPARE(panel.telling->asked(), QStringList({kBegun, "end"}));
        panel.inSheet([&] {
            QCOMPARE(panel.question(), asksFor(1)); // and nothing of it is left
            QCOMPARE(panel.text("textSetUpNote"), QString());
            QCOMPARE(panel.find<QLineEdit>("quorviFieldSetUpDpi")->text(), QString());
            QVERIFY(!panel.marks().isKnown(1));
        });
    }

    void doneWithoutAnyChangeWritesNothing() {
        Panel panel;
        panel.inSheet([&] {
            panel.click("quorviSetUpButtonDone");
            QTRY_VERIFY(!panel.sheet->isVisible());
        });
        QTRY_COMPARE(panel.telling->asked(), QStringList({kBegun, "end"}));
    }

    void theDpiIsAskedForWhereTheHardwareDoesNotKnowIt() {
        Panel panel;
        panel.inSheet([&] {
            QVERIFY(panel.find<QWidget>("groupSetUpDpi")->isVisible());
            auto* field = panel.find<QLineEdit>("quorviFieldSetUpDpi");
            for (const char* outOfBounds : {"99", "64001"}) {
                field->setText(outOfBounds);
                panel.click("quorviSetUpButtonDone");
                QCOMPARE(panel.note(), QStringLiteral("A sensor has from 100 to 64000 DPI."));
                QCOMPARE(panel.sheet->focusWidget(), field);
                QCOMPARE(field->selectedText(), QString(outOfBounds));
            }
            QTest::keyClicks(field, "3a2b00"); // letters are no digits
            QCOMPARE(field->text(), QStringLiteral("3200"));
            panel.click("quorviSetUpButtonDone");
            QTRY_VERIFY(!panel.sheet->isVisible());
        });
        QTRY_COMPARE(panel.telling->asked(), QStringList({kBegun, "dpi mouse-1 3200", "end"}));
    }

    void theDpiIsNotAskedForWhereTheHardwareKnowsIt() {
        auto known = mouse();
        known.hardwareDpi = 800;
        Panel panel({known});
        panel.inSheet([&] { QVERIFY(!panel.find<QWidget>("groupSetUpDpi")->isVisible()); });
    }

    void theDpiThatItsUserHasSaidIsShownAndCanBeTakenBack() {
        auto known = mouse();
        known.dpi = 2400;
        Panel panel({known});
        panel.inSheet([&] {
            auto* field = panel.find<QLineEdit>("quorviFieldSetUpDpi");
            QCOMPARE(field->text(), QStringLiteral("2400"));
            field->clear();
            panel.click("quorviSetUpButtonDone");
            QTRY_VERIFY(!panel.sheet->isVisible());
        });
        QTRY_COMPARE(panel.telling->asked(), QStringList({kBegun, "dpi mouse-1 0", "end"}));
    }

    void aMouseThatGoesAwayIsWaitedFor_data() {
        QTest::addColumn<QString>("state");
        QTest::addColumn<QString>("said");
        QTest::newRow("another program") << "busy"
                                         << "Taken by another program";
        QTest::newRow("refused") << "refused"
                                 << "Not permitted by an administrator";
        QTest::newRow("unplugged") << ""
                                   << "Not plugged in";
        QTest::newRow("no longer in use") << "unused"
                                          << "It is no longer in use.";
        QTest::newRow("another user")
            << "no service"
            << "Someone else is using the computer, or the service for mice has stopped.";
    }
    void aMouseThatGoesAwayIsWaitedFor() {
        QFETCH(QString, state);
        QFETCH(QString, said);
        Panel panel;
        panel.inSheet([&] {
            panel.press(BTN_SIDE);
            QTRY_COMPARE(panel.question(), asksFor(2));
            panel.telling->change([&](auto& told) {
                told.service = state != "no service";
                told.mice[0].state = state.toStdString();
                told.mice[0].inUse = state != "unused";
                if (state.isEmpty() || !told.service)
                    told.mice[0].id = "1e7d:2dcb";
            });
            QTRY_COMPARE(panel.question(), kWaits);
            QTRY_COMPARE(panel.note(), said);
            for (const char* button :
                {"quorviSetUpButtonSkip", "quorviSetUpButtonBack", "quorviSetUpButtonDone"})
                QVERIFY2(!panel.isEnabled(button), button);
            QCOMPARE(panel.sheet->focusWidget()->objectName(), QStringLiteral("quorviSetUpButtonCancel"));
            panel.press(BTN_EXTRA); // of whatever it is now
            panel.telling->change([](auto& told) {
                told.service = true;
                told.mice = {mouse()};
            });
            QTRY_COMPARE(panel.telling->asked().count(kBegun), 2);
            QTRY_COMPARE(panel.question(), asksFor(2)); // where it was
            panel.press(BTN_EXTRA);
            QTRY_COMPARE(panel.question(), asksFor(3));
        });
        QTRY_COMPARE(panel.telling->asked().last(), QStringLiteral("end"));
    }

    void aHelperThatEndsIsWaitedFor() {
        Panel panel;
        panel.inSheet(
            [&] {
                panel.press(BTN_SIDE);
                QTRY_COMPARE(panel.question(), asksFor(2));
                panel.helper.reset();
                QTRY_COMPARE(panel.question(), kWaits);
                QCOMPARE(panel.note(), QStringLiteral("The background program is not running."));
                panel.startHelper({mouse()});
                QTRY_COMPARE(panel.question(), asksFor(2));
                QTRY_COMPARE(panel.telling->asked(), QStringList{kBegun});
                panel.click("quorviSetUpButtonCancel");
            },
            true);
        QTRY_COMPARE(panel.telling->asked(), QStringList({kBegun, "end"}));
    }

    void theSheetCanBeClosedWhileTheHelperIsGone() {
        Panel panel;
        panel.inSheet(
            [&] {
                panel.helper.reset();
                QTRY_COMPARE(panel.question(), kWaits);
                QTest::keyClick(panel.sheet->focusWidget(), Qt::Key_Return);
            },
            true);
    }

    void hidingThePanelEndsTheSetUp() {
        Panel panel;
        panel.inSheet(
            [&] {
                panel.pane->willUnselect();
                QTRY_COMPARE(panel.telling->asked(), QStringList({kBegun, "end"}));
                panel.click("quorviSetUpButtonCancel");
            },
            true);
    }

    void anotherProgramThatSetsAMouseUpIsTold() {
        Panel panel;
        panel.telling->change([](auto& told) { told.answer = MouseResult::busy; });
        panel.inSheet([&] {
            QTRY_COMPARE(panel.question(), kWaits);
            QCOMPARE(panel.note(),
                QStringLiteral("Another program is setting up a mouse. Try again when it has finished."));
        });
    }

    void whatCannotBeSavedIsToldAndTheSheetStays() {
        Panel panel;
        panel.inSheet([&] {
            panel.telling->change([](auto& told) { told.answer = MouseResult::notWritten; });
            panel.press(BTN_BACK);
            QTRY_COMPARE(panel.question(), asksFor(2));
            panel.click("quorviSetUpButtonDone");
            QTRY_COMPARE(panel.note(), QStringLiteral("Your choice for the mouse could not be saved."));
            panel.telling->change([](auto& told) { told.answer = MouseResult::done; });
            QTRY_VERIFY(panel.isEnabled("quorviSetUpButtonDone"));
            panel.click("quorviSetUpButtonDone");
            QTRY_VERIFY(!panel.sheet->isVisible());
        });
        QCOMPARE(panel.telling->asked().count("codes mouse-1 278 273 274 275 276 277 0"), 2);
    }

    void aKeyCountsOnlyWhenItIsToldToBeTheMouses() {
        Panel panel;
        panel.inSheet([&] {
            const auto isItTheMouse = QStringLiteral(
                "A key was pressed. If the mouse did that, press the same mouse button again.");
            panel.typeKey(Qt::Key_F13, KEY_F13);
            QTRY_COMPARE(panel.telling->asked().last(), QStringLiteral("watch 183"));
            QTRY_COMPARE(panel.note(), isItTheMouse);
            panel.typeKey(Qt::Key_F13, KEY_F13); // by the keyboard
            panel.typeKey(Qt::Key_A, KEY_A);
            QTRY_COMPARE(panel.telling->asked().last(), QStringLiteral("watch 30"));
            QCOMPARE(panel.question(), asksFor(1));
            panel.press(KEY_A);
            QTRY_COMPARE(panel.question(), asksFor(2));
            QCOMPARE(panel.note(), QString());
            panel.typeKey(Qt::Key_A, KEY_A);
            QCOMPARE(panel.note(), QStringLiteral("That button is already number 1."));
            panel.click("quorviSetUpButtonDone");
            QTRY_VERIFY(!panel.sheet->isVisible());
        });
        QVERIFY(panel.telling->asked().contains("codes mouse-1 30 273 274 275 276 277 278"));
    }

    void theKeysOfEverySheetStayItsOwn() {
        Panel panel;
        panel.inSheet([&] {
            QCOMPARE(panel.sheet->focusWidget()->objectName(), QStringLiteral("quorviSetUpButtonSkip"));
            panel.typeKey(Qt::Key_Return, KEY_ENTER);
            QTRY_COMPARE(panel.question(), asksFor(2)); // skipped
            panel.typeKey(Qt::Key_Tab, KEY_TAB);
            QTRY_COMPARE(panel.sheet->focusWidget()->objectName(), QStringLiteral("quorviSetUpButtonDone"));
            panel.typeKey(Qt::Key_Control, KEY_LEFTCTRL);
            panel.find<QWidget>("quorviFieldSetUpDpi")->setFocus();
            panel.typeKey(Qt::Key_Left, KEY_LEFT); // the field's own
            panel.typeKey(Qt::Key_Escape, KEY_ESC);
            QTRY_VERIFY(!panel.sheet->isVisible());
        });
        QTRY_COMPARE(panel.telling->asked(), QStringList({kBegun, "end"}));
    }

    void aClickOnTheSheetsButtonsIsNoAnswer() {
        Panel panel;
        panel.inSheet([&] {
            panel.pointAt("quorviSetUpButtonSkip");
            QTRY_VERIFY(panel.find<QWidget>("quorviSetUpButtonSkip")->underMouse());
            panel.press(BTN_LEFT);
            QTRY_COMPARE(panel.note(),
                QStringLiteral("Press with the pointer over this window, but not over its buttons."));
            QCOMPARE(panel.question(), asksFor(1));
            panel.press(BTN_SIDE); // no click, wherever the pointer is
            QTRY_COMPARE(panel.question(), asksFor(2));
            panel.pointAt("viewSetUpMouse");
            QTRY_VERIFY(!panel.find<QWidget>("quorviSetUpButtonSkip")->underMouse());
            panel.press(BTN_LEFT);
            QTRY_COMPARE(panel.question(), asksFor(3));
            QCursor::setPos(0, 0);
            QTRY_VERIFY(!panel.sheet->underMouse());
            panel.press(BTN_MIDDLE);
            QTRY_VERIFY(!panel.note().isEmpty());
            QCOMPARE(panel.question(), asksFor(3));
        });
    }

    void theFocusComesBackToTheMousesButtonWhenTheListIsAnother() {
        Panel panel;
        panel.button(1)->setFocus();
        panel.inSheet([&] {
            panel.telling->change([](auto& told) {
                auto other = mouse();
                other.id = "another";
                told.mice.insert(told.mice.begin(), other);
            });
            QTRY_VERIFY(panel.button(2));
        });
        QCOMPARE(panel.window->focusWidget(), panel.button(2));
    }
};

QUORVI_PANE_TEST_MAIN(MouseSetUpTest)
#include "MouseSetUpTest.moc"
