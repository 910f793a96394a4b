// Undo and redo in the real panel: by key, by button and by the bar at the bottom, including the file.

#include <QAccessible>
#include <QCheckBox>
#include <QPushButton>
#include <QTabWidget>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <private/qguiapplication_p.h>

#include "document/UndoStack.h"
#include "pane/AssignmentFixture.h"
#include "pane/MacroFixture.h"
#include "pane/PaneTestMain.h"
#include "plist/DeepCopy.h"
#include "plist/Writer.h"
#include "resources/MenuTags.h"
#include "support/Tabs.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr const char* kUndo = "quorviButtonUndo";
constexpr const char* kRedo = "quorviButtonRedo";
constexpr const char* kWheelLight = "quorviBoxLightOnWheel";

/// Undo as a user does it.
class UndoFixture : public AssignmentFixture {
  public:
    UndoFixture() { open(); }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers) const {
        QTest::keyClick(window->windowHandle(), key, modifiers);
    }
    void undoByKey() const { press(Qt::Key_Z, Qt::ControlModifier); }
    void redoByKey() const { press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }
    [[nodiscard]] QString tip(const char* button) const { return find<QPushButton>(button)->toolTip(); }
    void switchWheelLight() const {
        selectTab(kDeviceTab);
        click(kWheelLight);
    }
    [[nodiscard]] int savedLights() const {
        return savedSettings().array("profiles").dictionary(0).integer("ledstate");
    }
    [[nodiscard]] std::string savedBytes() const { return plist::writeXml(savedSettings()).value(); }
    [[nodiscard]] QString notice() const {
        const auto* label = window->findChild<QLabel*>("textNotice");
        return label && label->isVisible() ? label->text() : QString();
    }
    void confirmNext() const {
        whenSheetIsUp(window.get(), "quorviPanelConfirm", [](QDialog* sheet) { sheet->accept(); });
    }
    void deleteMacro(int row) const {
        selectTab(kMacrosTab);
        selectRow("quorviTableMacros", row);
        confirmNext();
        click("quorviButtonMacroRemove");
    }
};

/// What a screen reader is told to say.
QStringList announced;

void writeDown(QAccessibleEvent* event) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    if (event->type() == QAccessible::Announcement)
        announced << static_cast<QAccessibleAnnouncementEvent*>(event)->message();
#else
    if (const auto* said = qobject_cast<QPushButton*>(event->object());
        said && event->type() == QAccessible::Alert)
        announced << said->accessibleDescription();
#endif
}

} // namespace

class UndoTest : public QObject {
    Q_OBJECT

  private slots:
    void beforeTheFirstActionThereIsNothingToUndo() {
        const UndoFixture panel;
        QVERIFY(!panel.isEnabled(kUndo));
        QVERIFY(!panel.isEnabled(kRedo));
        QCOMPARE(panel.tip(kUndo), QStringLiteral("Nothing to undo"));
        QCOMPARE(panel.tip(kRedo), QStringLiteral("Nothing to redo"));
        const std::string before = panel.savedBytes();
        panel.undoByKey();
        panel.redoByKey();
        QCOMPARE(panel.savedBytes(), before);
    }

    void theButtonsNameTheAction() {
        const UndoFixture panel;
        panel.switchWheelLight();
        QVERIFY(panel.isEnabled(kUndo));
        const QString action = panel.tip(kUndo);
        QVERIFY2(
            action.startsWith("Undo Turn Off Wheel Light") && action.contains("Ctrl+Z"), qPrintable(action));
        QCOMPARE(panel.find<QWidget>(kUndo)->accessibleDescription(), action);
        panel.click(kUndo);
        QVERIFY(!panel.isEnabled(kUndo));
        QVERIFY2(panel.tip(kRedo).startsWith("Redo Turn Off Wheel Light"), qPrintable(panel.tip(kRedo)));
    }

    void theFileFollowsEachUndoAndRedo() {
        const UndoFixture panel;
        const std::string before = panel.savedBytes();
        panel.switchWheelLight();
        const std::string after = panel.savedBytes();
        QVERIFY(before != after);
        QVERIFY(panel.commandsBecome({"KyPR 0"}));
        panel.helper->forget();
        panel.undoByKey();
        QCOMPARE(panel.savedBytes(), before);
        QVERIFY(panel.commandsBecome({"KyPR 0"}));
        panel.redoByKey();
        QCOMPARE(panel.savedBytes(), after);
        panel.click(kUndo);
        QCOMPARE(panel.savedBytes(), before);
        panel.click(kRedo);
        QCOMPARE(panel.savedBytes(), after);
    }

    void theControlShowsWhatIsThereAgain() {
        const UndoFixture panel;
        panel.selectTab(kDeviceTab);
        const bool before = panel.find<QCheckBox>(kWheelLight)->isChecked();
        panel.click(kWheelLight);
        panel.undoByKey();
        QCOMPARE(panel.find<QCheckBox>(kWheelLight)->isChecked(), before);
    }

    void eachIsAnnouncedByItsName() {
        const UndoFixture panel;
        panel.deleteMacro(1);
        QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
        announced.clear();
        const auto before = QAccessible::installUpdateHandler(writeDown);
        panel.undoByKey();
        panel.click(kRedo);
        QAccessible::installUpdateHandler(before);
        QCOMPARE(announced, QStringList({"Undone: Delete Macro “World”", "Redone: Delete Macro “World”"}));
        // The buttons go on to say what they would do.
        QTRY_VERIFY(panel.find<QWidget>(kUndo)->accessibleDescription().startsWith("Undo Delete Macro"));
    }

    void theTabIsOpenedOnWhichItIsSeen() {
        const UndoFixture panel;
        panel.switchWheelLight();
        panel.selectTab(0);
        panel.undoByKey();
        QCOMPARE(panel.find<QTabWidget>("quorviTabsMain")->currentIndex(), kDeviceTab);
    }

    void aDeletedMacroComesBackSelectedWithTheButtonsThatRunIt() {
        const UndoFixture panel;
        AssignmentFixture::setInput(
            panel.pane->deviceConfig(), 4, {{"command", 65}, {"param1", 3}, {"param2", 1}});
        panel.pane->saveSettings(panel.pane->deviceConfig());
        panel.pane->syncUIWithDeviceConfig();
        const std::string before = panel.savedBytes();
        panel.deleteMacro(1);
        QCOMPARE(namesIn(panel.savedSettings(), "macros"), QStringList({"Hello"}));
        QVERIFY(panel.savedInputIs(4, {{"command", 0}}));
        panel.selectTab(0);
        panel.undoByKey();
        QCOMPARE(panel.savedBytes(), before);
        QCOMPARE(panel.find<QTabWidget>("quorviTabsMain")->currentIndex(), 0); // seen here too
        QCOMPARE(panel.selectedRow("quorviTableMacros"), 1);
        QCOMPARE(shownIn(panel, "quorviTableMacros", 0), QStringList({"Hello", "World"}));
    }

    void afterADeletionTheBarOffersUndo() {
        const UndoFixture panel;
        const std::string before = panel.savedBytes();
        panel.deleteMacro(1);
        QCOMPARE(panel.notice(), QStringLiteral("The macro “World” was deleted."));
        panel.click("buttonNoticeOffer");
        QCOMPARE(panel.notice(), QString());
        QCOMPARE(panel.savedBytes(), before);
    }

    void theOfferEndsWithTheNextAction() {
        const UndoFixture panel;
        panel.deleteMacro(1);
        panel.selectTab(0); // which is none
        QVERIFY(!panel.notice().isEmpty());
        panel.switchWheelLight();
        QCOMPARE(panel.notice(), QString());
        panel.deleteMacro(0);
        QVERIFY(!panel.notice().isEmpty());
        panel.undoByKey();
        QCOMPARE(panel.notice(), QString());
    }

    void defaultsThatAreThereAlreadyOfferNothing() {
        const UndoFixture panel;
        panel.selectTab(kDeviceTab);
        panel.confirmNext();
        panel.click("quorviButtonRestoreDefaults");
        QCOMPARE(panel.notice(), QStringLiteral("The default settings were restored."));
        panel.click("buttonNotice");
        panel.confirmNext();
        panel.click("quorviButtonRestoreDefaults");
        QCOMPARE(panel.notice(), QString());
        QVERIFY(panel.tip(kUndo).contains("Restore Defaults"));
        panel.undoByKey();
        QVERIFY(!panel.isEnabled(kUndo));
    }

    void aTextFieldUndoesItsOwnTypingFirst() {
        const UndoFixture panel;
        panel.switchWheelLight();
        const int lights = panel.savedLights();
        panel.selectTab(kMacrosTab);
        panel.selectRow("quorviTableMacros", 0);
        auto* macros = panel.find<KyvarQuorviTableView>("quorviTableMacros");
        macros->editCell(0, 0);
        QVERIFY(waitForCellEditor(panel, "quorviTableMacros"));
        QTest::keyClicks(QApplication::focusWidget(), "abc");
        QCOMPARE(cellEditor(panel, "quorviTableMacros")->text(), QStringLiteral("abc"));
        panel.undoByKey();
        QCOMPARE(cellEditor(panel, "quorviTableMacros")->text(), QStringLiteral("Hello"));
        QCOMPARE(panel.savedLights(), lights);
        panel.press(Qt::Key_Escape, Qt::NoModifier);
        panel.undoByKey();
        QVERIFY(panel.savedLights() != lights);
    }

    void whatAnotherProgramHasWrittenStays() {
        const UndoFixture panel;
        panel.switchWheelLight();
        const int lights = panel.savedLights();
        const plist::Dictionary theirs = panel.savedSettings();
        theirs.dictionary("settings").set("pollingrate", 125);
        panel.writeSettings(theirs);
        QTRY_COMPARE(panel.pane->deviceConfig().dictionary("settings").integer("pollingrate"), 125);
        QVERIFY(panel.isEnabled(kUndo));
        panel.undoByKey();
        QVERIFY(panel.savedLights() != lights);
        QCOMPARE(panel.savedSettings().dictionary("settings").integer("pollingrate"), 125);
    }

    void whatAnotherProgramHasChangedTooIsGreyedWithTheReason() {
        const UndoFixture panel;
        panel.switchWheelLight();
        const plist::Dictionary theirs = panel.savedSettings();
        theirs.array("profiles").dictionary(0).set("ledstate", u"theirs");
        panel.writeSettings(theirs);
        QTRY_COMPARE(
            panel.pane->deviceConfig().array("profiles").dictionary(0).string("ledstate"), u"theirs");
        QVERIFY(!panel.isEnabled(kUndo));
        QVERIFY2(
            panel.tip(kUndo).endsWith("cannot be undone: another program has changed the same settings."),
            qPrintable(panel.tip(kUndo)));
        panel.undoByKey();
        QVERIFY(panel.notice().endsWith("another program has changed the same settings."));
        QCOMPARE(panel.savedSettings().array("profiles").dictionary(0).string("ledstate"), u"theirs");
    }

    void aDeviceListBetweenLosesNothing() {
        const UndoFixture panel;
        const std::string before = panel.savedBytes();
        panel.switchWheelLight();
        panel.helper->sendDeviceList(1);
        panel.deleteMacro(1);
        panel.helper->sendDeviceList(1);
        QCoreApplication::processEvents();
        panel.undoByKey();
        panel.undoByKey();
        QCOMPARE(panel.savedBytes(), before);
    }

    void withoutAMouseNothingIsUndone() {
        UndoFixture panel;
        panel.switchWheelLight();
        const std::string after = panel.savedBytes();
        panel.connectDevices(0);
        QVERIFY(!panel.isEnabled(kUndo));
        panel.undoByKey();
        QCOMPARE(panel.savedBytes(), after);
        panel.connectDevices(1);
        QVERIFY(panel.isEnabled(kUndo));
    }

    void aDragIsOneAction() {
        const UndoFixture panel;
        const std::string before = panel.savedBytes();
        panel.selectTab(1);
        auto* slider = panel.find<QSlider>("quorviSliderSensitivityX");
        panel.pane->dragDidBegin();
        for (int step = 0; step < 5; ++step)
            slider->triggerAction(QAbstractSlider::SliderPageStepAdd);
        panel.pane->dragDidEnd();
        QVERIFY(panel.savedBytes() != before);
        panel.undoByKey();
        QCOMPARE(panel.savedBytes(), before);
        QVERIFY(!panel.isEnabled(kUndo));
    }

    void aRecordingIsOneActionAndOwnsTheKeys() {
        MacroFixture panel({"1 4 20"});
        panel.record();
        panel.tap(scancodes::a);
        panel.tap(scancodes::b);
        QVERIFY(!panel.isEnabled(kUndo));
        panel.press(37, 0, 0); // Control, and with it Z: a key like others
        panel.press(52, 0, 4);
        panel.release(52, 0, 4);
        panel.release(37, 0, 4);
        const auto recorded = panel.steps();
        QVERIFY(recorded.contains("1 224 10")); // Control
        QVERIFY(recorded.contains("1 29 10"));  // Z
        panel.record();
        QCOMPARE(panel.savedSteps(), recorded);
        QVERIFY(panel.isEnabled(kUndo));
        panel.click(kUndo);
        QCOMPARE(panel.savedSteps(), QStringList({"1 4 20"}));
        QCOMPARE(panel.shownSteps().size(), 1);
        QVERIFY(!panel.isEnabled(kUndo));
        panel.click(kRedo);
        QCOMPARE(panel.savedSteps(), recorded);
    }

    void allStepsThatWereRemovedComeBack() {
        MacroFixture panel({"1 4 20", "0 4 20"});
        panel.chooseForSteps(kRemoveAllStepsItem);
        QCOMPARE(panel.savedSteps(), QStringList());
        panel.click("buttonNoticeOffer");
        QCOMPARE(panel.savedSteps(), QStringList({"1 4 20", "0 4 20"}));
        QCOMPARE(panel.shownSteps().size(), 2);
    }

    void switchingTheProfileIsTakenBackToo() {
        const UndoFixture panel;
        panel.selectTab(kProfilesTab);
        panel.selectRow("quorviTableProfiles", 1);
        QCOMPARE(panel.savedSettings().dictionary("settings").integer("profileid"), 2);
        panel.undoByKey();
        QCOMPARE(panel.savedSettings().dictionary("settings").integer("profileid"), 1);
        QCOMPARE(panel.selectedRow("quorviTableProfiles"), 0);
        QCOMPARE(panel.pane->profileIndex(), 0);
    }

    void hidingAndShowingThePanelLosesNoAction() {
        const UndoFixture panel;
        const std::string before = panel.savedBytes();
        panel.switchWheelLight();
        panel.pane->willUnselect();
        panel.pane->didSelect();
        QVERIFY(!panel.isEnabled(kUndo));
        panel.helper->sendDeviceList(1);
        QTRY_VERIFY(panel.isEnabled(kUndo));
        panel.undoByKey();
        QCOMPARE(panel.savedBytes(), before);
    }
};

QUORVI_PANE_TEST_MAIN(UndoTest)
#include "UndoTest.moc"
