// Giving a single key to an input: the sheet that asks for it, and the handling of the answer.

#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QWindow>

#include "pane/AssignmentFixture.h"
#include "pane/PaneTestMain.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

/// Keys as X11 tells of them: the scan code is the key's evdev code + 8.
struct Key {
    int qtKey;
    quint32 scanCode;
    quint32 keysym;
};
constexpr Key kF5{Qt::Key_F5, 71, 0xFFC2};
constexpr Key kF16{0x0100003F, 194, 0xFFCD};
constexpr Key kMenu{Qt::Key_Menu, 135, 0xFF67};
constexpr Key kNumLock{Qt::Key_NumLock, 77, 0xFF7F};
constexpr Key kShift{Qt::Key_Shift, 50, 0xFFE1};
constexpr Key kReturn{Qt::Key_Return, 36, 0xFF0D};

void press(QDialog* sheet, const Key& key) {
    for (const QEvent::Type type : {QEvent::ShortcutOverride, QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key.qtKey, Qt::NoModifier, key.scanCode, key.keysym, 0);
        QCoreApplication::sendEvent(sheet->windowHandle(), &event);
    }
}

QString shownKey(const QDialog* sheet) {
    return outlet<QLineEdit>(sheet, "quorviFieldSingleKey")->text();
}

void answer(QDialog* sheet, bool ok) {
    clickButton(
        outlet<QAbstractButton>(sheet, ok ? "quorviSingleKeyButtonOK" : "quorviSingleKeyButtonCancel"));
}

class KeyFixture : public AssignmentFixture {
  public:
    /// Chooses the key item of the input and does this once its sheet is up.
    void askForKey(int input, std::function<void(QDialog*)> action) {
        whenSheetIsUp(window.get(), "quorviPanelSingleKey", [action = std::move(action)](QDialog* sheet) {
            action(sheet);
            if (QTest::currentTestFailed())
                sheet->reject(); // what waits for the sheet's end would wait for ever
        });
        const QString title = popUp(input)->itemWithTag(49)->text();
        choose(popUp(input), {title});
    }
    [[nodiscard]] bool sheetIsUp() const { return find<QDialog>("quorviPanelSingleKey")->isVisible(); }
};

} // namespace

class SingleKeyPanelTest : public QObject {
    Q_OBJECT

  private slots:
    void thePressedKeyIsStored_data() {
        QTest::addColumn<int>("qtKey");
        QTest::addColumn<quint32>("scanCode");
        QTest::addColumn<quint32>("keysym");
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("usage");
        QTest::newRow("key") << kF5.qtKey << kF5.scanCode << kF5.keysym << "F5" << 62;
        QTest::newRow("modifier alone") << kShift.qtKey << kShift.scanCode << kShift.keysym << "Shift" << 225;
        QTest::newRow("menu key") << kMenu.qtKey << kMenu.scanCode << kMenu.keysym << "Menu" << 0x65;
        QTest::newRow("Num Lock") << kNumLock.qtKey << kNumLock.scanCode << kNumLock.keysym << "Num Lock"
                                  << 0x53;
        QTest::newRow("default button's")
            << kReturn.qtKey << kReturn.scanCode << kReturn.keysym << "Return" << 40;
    }

    void thePressedKeyIsStored() {
        QFETCH(int, qtKey);
        QFETCH(quint32, scanCode);
        QFETCH(quint32, keysym);
        QFETCH(QString, name);
        QFETCH(int, usage);
        KeyFixture fixture;
        fixture.openWithInput(3, {{"command", 65}, {"param1", 3}, {"param2", 1}, {"string", u"World"}});
        QStringList shown;
        fixture.askForKey(3, [&](QDialog* sheet) {
            shown << shownKey(sheet);
            press(sheet, {qtKey, scanCode, keysym});
            shown << shownKey(sheet);
            answer(sheet, true);
        });
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QCOMPARE(shown, QStringList({"(none)", name}));
        QVERIFY(fixture.savedInputIs(3, {{"command", 49}, {"param1", usage}, {"param2", 0}}));
        QCOMPARE(fixture.shown(3), "Press Key " + name);
        QVERIFY(!fixture.sheetIsUp());
    }

    void aKeyThatTheMouseCannotPressLeavesTheAssignedOne() {
        KeyFixture fixture;
        fixture.openWithInput(3, {{"command", 49}, {"param1", 62}, {"param2", 0}});
        QStringList shown;
        fixture.askForKey(3, [&](QDialog* sheet) {
            press(sheet, kF16);
            shown << shownKey(sheet);
            answer(sheet, true);
        });
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QCOMPARE(shown, QStringList("F5"));
        QVERIFY(fixture.savedInputIs(3, {{"command", 49}, {"param1", 62}, {"param2", 0}}));
    }

    void withoutAKeyOrOKEverythingStays_data() {
        QTest::addColumn<bool>("pressed");
        QTest::addColumn<QString>("answer");
        QTest::newRow("no key, OK") << false << "OK";
        QTest::newRow("no key, cancelled") << false << "Cancel";
        QTest::newRow("key, cancelled") << true << "Cancel";
        QTest::newRow("key, closed") << true << "close";
    }

    void withoutAKeyOrOKEverythingStays() {
        QFETCH(bool, pressed);
        QFETCH(QString, answer);
        KeyFixture fixture;
        fixture.openWithInput(3, {{"command", 65}, {"param1", 3}, {"param2", 1}, {"string", u"World"}});
        fixture.askForKey(3, [&](QDialog* sheet) {
            if (pressed)
                press(sheet, kF5);
            if (answer == "close")
                sheet->close();
            else
                ::answer(sheet, answer == "OK");
        });
        QCOMPARE(fixture.shown(3), QStringLiteral("Press Key")); // chosen, as long as the sheet asks
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QVERIFY(
            fixture.savedInputIs(3, {{"command", 65}, {"param1", 3}, {"param2", 1}, {"string", u"World"}}));
        QCOMPARE(fixture.shown(3), QStringLiteral("Macro: World"));
        QCOMPARE(fixture.popUp(3)->selectedTag(), 65);
    }

    void theAssignedKeyIsShownAndKeptUnlessAnotherIsPressed_data() {
        QTest::addColumn<bool>("pressed");
        QTest::addColumn<bool>("ok");
        QTest::addColumn<int>("usage");
        QTest::addColumn<int>("modifiers");
        QTest::newRow("confirmed") << false << true << 40 << 64;
        QTest::newRow("cancelled") << true << false << 296 << 320;
        QTest::newRow("other key") << true << true << 62 << 0;
    }

    void theAssignedKeyIsShownAndKeptUnlessAnotherIsPressed() {
        QFETCH(bool, pressed);
        QFETCH(bool, ok);
        QFETCH(int, usage);
        QFETCH(int, modifiers);
        KeyFixture fixture;
        // Of both numbers only the low bytes count, and only those are stored again.
        fixture.openWithInput(3, {{"command", 49}, {"param1", 256 + 40}, {"param2", 256 + 64}});
        QCOMPARE(fixture.shown(3), QStringLiteral("Press Key Super+Return"));
        QString shown;
        fixture.askForKey(3, [&](QDialog* sheet) {
            shown = shownKey(sheet);
            if (pressed)
                press(sheet, kF5);
            answer(sheet, ok);
        });
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QCOMPARE(shown, QStringLiteral("Super+Return"));
        QVERIFY(fixture.savedInputIs(3, {{"command", 49}, {"param1", usage}, {"param2", modifiers}}));
        QCOMPARE(fixture.shown(3),
            ok && pressed ? QStringLiteral("Press Key F5") : QStringLiteral("Press Key Super+Return"));
    }

    void theKeyOfAnEarlierSheetIsForgotten() {
        KeyFixture fixture;
        fixture.open();
        fixture.askForKey(3, [](QDialog* sheet) {
            press(sheet, kF5);
            answer(sheet, false);
        });
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QString shown;
        fixture.askForKey(4, [&](QDialog* sheet) {
            shown = shownKey(sheet);
            answer(sheet, true);
        });
        QVERIFY(fixture.commandsBecome({"KyPR 0", "KyPR 0"}));
        QCOMPARE(shown, QStringLiteral("(none)"));
        QVERIFY(fixture.savedInputIs(4, {{"command", 0}}));
    }

    void withoutAnAssignmentTheKeyIsWrittenNowhereButSaved() {
        KeyFixture fixture;
        auto tree = KeyFixture::tree();
        tree.array("profiles").dictionary(0).dictionary("buttons").remove("05");
        fixture.openWith(tree);
        fixture.askForKey(5, [](QDialog* sheet) {
            press(sheet, kF5);
            answer(sheet, true);
        });
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QVERIFY(plist::Value(fixture.savedSettings()) == plist::Value(tree));
        QCOMPARE(fixture.shown(5), QStringLiteral("No Function"));
    }

    void aDeviceListWhileTheSheetIsUpLosesNeitherTheKeyNorWhatTheFileBrought() {
        KeyFixture fixture;
        fixture.open();
        auto changed = KeyFixture::tree();
        changed.dictionary("settings").set("pollingrate", 1000);
        KeyFixture::setInput(changed, 3, {{"command", 5}});
        KeyFixture::setInput(changed, 4, {{"command", 6}});
        fixture.askForKey(3, [&](QDialog* sheet) {
            press(sheet, kF5);
            fixture.writeSettings(changed);
            fixture.helper->sendDeviceList(1);
            QTRY_COMPARE(fixture.shown(4), QStringLiteral("Forward"));
            QVERIFY(sheet->isVisible());
            QCOMPARE(shownKey(sheet), QStringLiteral("F5"));
            answer(sheet, true);
        });
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        KeyFixture::setInput(changed, 3, {{"command", 49}, {"param1", 62}, {"param2", 0}});
        QVERIFY(plist::Value(fixture.savedSettings()) == plist::Value(changed));
        QCOMPARE(fixture.shown(3), QStringLiteral("Press Key F5"));
    }

    void theKeyGoesToTheProfileThatItWasChosenFor() {
        KeyFixture fixture;
        fixture.open();
        auto changed = KeyFixture::tree();
        changed.dictionary("settings").set("profileid", 2);
        fixture.askForKey(3, [&](QDialog* sheet) {
            press(sheet, kF5);
            fixture.writeSettings(changed);
            fixture.helper->sendDeviceList(1);
            QTRY_COMPARE(fixture.pane->profileIndex(), 1);
            answer(sheet, true);
        });
        QVERIFY(fixture.commandsBecome({"KyPR 1"}));
        QVERIFY(fixture.savedInputIs(3, {{"command", 49}, {"param1", 62}, {"param2", 0}}, 0));
        QVERIFY(fixture.savedInputIs(3, {{"command", 0}}, 1));
        QCOMPARE(fixture.shown(3), QStringLiteral("No Function"));
    }

    void aProfileThatIsGoneTakesNoKey() {
        KeyFixture fixture;
        auto tree = KeyFixture::tree();
        tree.dictionary("settings").set("profileid", 2);
        fixture.openWith(tree);
        auto changed = KeyFixture::tree();
        changed.array("profiles").remove(1);
        fixture.askForKey(3, [&](QDialog* sheet) {
            press(sheet, kF5);
            fixture.writeSettings(changed);
            fixture.helper->sendDeviceList(1);
            QTRY_COMPARE(fixture.pane->profileIndex(), 0);
            answer(sheet, true);
        });
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QVERIFY(plist::Value(fixture.savedSettings()) == plist::Value(changed));
    }

    void unpluggingTheMouseLeavesTheSheetAndItsAnswerAlone() {
        KeyFixture fixture;
        fixture.open();
        fixture.askForKey(3, [&](QDialog* sheet) {
            fixture.helper->sendDeviceList(0);
            QTRY_VERIFY(!fixture.pane->hasDevice());
            press(sheet, kF5);
            answer(sheet, true);
        });
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QVERIFY(fixture.savedInputIs(3, {{"command", 49}, {"param1", 62}, {"param2", 0}}));
        QVERIFY(!fixture.popUp(3)->isEnabled());
    }

    void hidingThePanelWhileTheSheetIsUpEndsInPeace() {
        KeyFixture fixture;
        fixture.open();
        bool answered = false;
        fixture.askForKey(3, [&](QDialog* sheet) {
            press(sheet, kF5);
            fixture.pane->willUnselect();
            answer(sheet, true);
            answered = true;
        });
        QTRY_VERIFY(answered && !fixture.sheetIsUp());
        QVERIFY(fixture.commandsBecome({"KyRO 0", "KyPR 0"}));
        QVERIFY(plist::Value(fixture.savedSettings()) == plist::Value(KeyFixture::tree()));
        fixture.pane->didSelect();
        fixture.connectDevices(1);
        QCOMPARE(fixture.shown(3), QStringLiteral("No Function"));
    }

    void hidingThePanelBeforeTheSheetIsUpKeepsItDown() {
        KeyFixture fixture;
        fixture.open();
        choose(fixture.popUp(3), {"Press Key"});
        fixture.pane->willUnselect();
        QVERIFY(fixture.commandsBecome({"KyRO 0", "KyPR 0"}));
        QCoreApplication::processEvents();
        QVERIFY(!fixture.sheetIsUp());
        QVERIFY(plist::Value(fixture.savedSettings()) == plist::Value(KeyFixture::tree()));
    }

    void thePanelMayGoAwayWhileTheSheetIsUp_data() {
        QTest::addColumn<bool>("windowFirst");
        QTest::newRow("panel") << false;
        QTest::newRow("its window first") << true;
    }

    void thePanelMayGoAwayWhileTheSheetIsUp() {
        QFETCH(bool, windowFirst);
        KeyFixture fixture;
        fixture.open();
        fixture.askForKey(3, [&](QDialog* sheet) {
            press(sheet, kF5);
            QTimer::singleShot(0, qApp, [&] {
                fixture.pane->willUnselect();
                if (windowFirst)
                    fixture.window.reset();
                fixture.pane.reset();
            });
        });
        QTRY_VERIFY(!fixture.pane);
        QVERIFY(fixture.commandsBecome({"KyRO 0", "KyPR 0"}));
        QVERIFY(plist::Value(fixture.savedSettings()) == plist::Value(KeyFixture::tree()));
    }
};

QUORVI_PANE_TEST_MAIN(SingleKeyPanelTest)
#include "SingleKeyPanelTest.moc"
