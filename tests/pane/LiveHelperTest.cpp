// The window's display of the helper's reports about mice, profiles and presses.

#include <QAbstractButton>
#include <QAccessible>
#include <QHelpEvent>
#include <QLabel>
#include <QTextDocumentFragment>
#include <QToolTip>

#include "model/CommandCodes.h"
#include "pane/PaneFixture.h"
#include "pane/PaneTestMain.h"
#include "pane/TellingHelper.h"
#include "support/Tabs.h"
#include "widgets/KyvarQuorviSlider.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/MarkedCells.h"
#include "widgets/MiceList.h"
#include "widgets/MouseView.h"
#include "widgets/PopUpButton.h"
#include "widgets/StageBar.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

MouseEntry mouse(const std::string& id, const std::string& name, bool inUse, const std::string& state) {
    return {.id = id, .name = name, .connection = "usb", .inUse = inUse, .state = state};
}

plist::Dictionary runMacroOfId(std::int32_t macro) {
    auto assignment = plist::Dictionary::create();
    assignment.set("command", commands::runMacro);
    assignment.set("param1", macro);
    return assignment;
}

/// A panel with a helper that tells, and the two profiles "Desk", which is the current one, and "Game".
class Panel : public PaneFixture {
  public:
    explicit Panel(const TellingHelper::Told& told = {}) : PaneFixture({.helper = false}) {
        auto made = std::make_unique<TellingHelper>(told);
        telling = made.get();
        helper = std::move(made);
        openWith(sampleTree());
    }

    [[nodiscard]] QString state() const { return text("quorviTextConnection"); }
    /// The text of a label that is to be seen; empty for one that is not.
    [[nodiscard]] QString seen(const char* label) const {
        return find<QLabel>(label)->isVisible() ? text(label) : QString();
    }
    [[nodiscard]] QString notice() const {
        auto* label = window->findChild<QLabel*>(QStringLiteral("textNotice"));
        return label && label->isVisible() ? label->text() : QString();
    }
    [[nodiscard]] QAbstractButton* box(int number) const {
        return window->findChild<QAbstractButton*>(QStringLiteral("quorviBoxMouse%1").arg(number));
    }
    [[nodiscard]] bool isPressed(int input) const {
        return find<MouseView>("viewMouse")->marks().isPressed(input);
    }
    [[nodiscard]] int stage() const { return find<StageBar>("quorviViewStages")->currentStage() + 1; }

    /// The lines that are shown where the pointer rests on the input; none when nothing is.
    [[nodiscard]] QStringList explanation(int input) const {
        auto* drawing = find<MouseView>("viewMouse");
        const QPoint at = drawing->middleOfInput(input).toPoint();
        QHelpEvent rest(QEvent::ToolTip, at, drawing->mapToGlobal(at));
        QCoreApplication::sendEvent(drawing, &rest);
        QStringList lines;
        for (const QString& line : QToolTip::text().split("<br>", Qt::SkipEmptyParts))
            lines << QTextDocumentFragment::fromHtml(line).toPlainText();
        return lines;
    }

    /// Of each row's number: what a screen reader reads beside it, when there is a mark.
    [[nodiscard]] QStringList marks() const {
        QAccessibleInterface* const list =
            QAccessible::queryAccessibleInterface(find<KyvarQuorviTableView>("quorviTableProfiles"));
        QStringList marks;
        for (int row = 0; row < list->tableInterface()->rowCount(); ++row)
            marks << list->tableInterface()->cellAt(row, kNameColumn)->text(QAccessible::Description);
        return marks;
    }
    /// The name is bold, behind a sign.
    [[nodiscard]] bool cellIsDrawnWithAMark(int row) const {
        const QModelIndex name =
            find<KyvarQuorviTableView>("quorviTableProfiles")->model()->index(row, kNameColumn);
        return name.data(Qt::FontRole).value<QFont>().bold() && name.data(MarkedCells::symbolRole).isValid();
    }

    static constexpr int kNameColumn = 1;
    TellingHelper* telling = nullptr;
};

} // namespace

class LiveHelperTest : public QObject {
    Q_OBJECT

  private slots:
    void theDemonstrationMouseIsCalledSoWhereAnotherCanBeChosen() {
        Panel panel({.service = false});
        QTRY_COMPARE(panel.find<QWidget>("groupMice")->isHidden(), true);
        QCOMPARE(panel.state(), QStringLiteral("Connected"));
        panel.telling->change([](auto& told) { told.service = true; });
        QTRY_COMPARE(panel.state(), QStringLiteral("Demonstration mouse – choose yours on the Device tab"));
    }

    void theMouseInUseIsNamed() {
        Panel panel({.demonstration = false,
            .mice = {mouse("1", "Office Mouse", false, "unused"),
                mouse("2", "Gaming & Mouse", true, "driven"), mouse("3", "Left at Home", true, "absent")}});
        QTRY_COMPARE(panel.state(), QStringLiteral("Gaming & Mouse"));
        panel.connectDevices(0); // it has been unplugged
        QTRY_COMPARE(panel.state(), QStringLiteral("Switch the mouse on and plug in its cable or receiver."));
    }

    void aHelperThatTellsNothingHasNothingShown() {
        PaneFixture panel;
        panel.openWith(PaneFixture::sampleTree());
        QCOMPARE(panel.text("quorviTextConnection"), QStringLiteral("Connected"));
        for (const char* hidden :
            {"groupMice", "textRunningProfile", "textFrontHindrance", "quorviButtonGnomeExtension"})
            QVERIFY2(panel.find<QWidget>(hidden)->isHidden(), hidden);
    }

    void theProfileThatRunsIsToldWithTheReason() {
        Panel panel;
        panel.selectTab(kProfilesTab);
        QTRY_COMPARE(
            panel.seen("textRunningProfile"), QStringLiteral("Running now: Desk – because you chose it"));
        panel.telling->change([](auto& told) {
            told.profile = 2;
            told.frontReason = "Image Editor";
        });
        QTRY_COMPARE(panel.seen("textRunningProfile"),
            QStringLiteral("Running now: Game – because Image Editor is in front"));
        QCOMPARE(panel.seen("textFrontHindrance"), QString());
        panel.telling->change([](auto& told) { told.profile = 3; }); // there is no such one
        QTRY_COMPARE(panel.seen("textRunningProfile"), QString());
    }

    void theRowOfTheProfileThatRunsIsMarked() {
        Panel panel;
        panel.selectTab(kProfilesTab);
        const QString chosen = QStringLiteral("Running now: Desk – because you chose it");
        QTRY_COMPARE(panel.marks(), QStringList({chosen, ""}));
        panel.telling->change([](auto& told) {
            told.profile = 2;
            told.frontReason = "Image Editor";
        });
        const QString followed = QStringLiteral("Running now: Game – because Image Editor is in front");
        QTRY_COMPARE(panel.marks(), QStringList({"", followed}));
        QCOMPARE(panel.selectedRow("quorviTableProfiles"), 0); // that one is edited still
        QVERIFY(panel.cellIsDrawnWithAMark(1));
        QVERIFY(!panel.cellIsDrawnWithAMark(0));
        panel.telling->change([](auto& told) { told.profile = 3; }); // there is no such one
        QTRY_COMPARE(panel.marks(), QStringList({"", ""}));
        panel.telling->change([](auto& told) { told.profile = 2; });
        QTRY_COMPARE(panel.marks(), QStringList({"", followed}));
        panel.helper.reset();
        QTRY_COMPARE(panel.marks(), QStringList({"", ""}));
        QVERIFY(!panel.cellIsDrawnWithAMark(1));
    }

    void whereTheDesktopCannotTellThisIsSaid_data() {
        QTest::addColumn<QString>("desktop");
        QTest::addColumn<QString>("extension");
        QTest::addColumn<QString>("said");
        QTest::addColumn<bool>("button");
        const QString itIsOff =
            "GNOME needs an extension to report which application is in front, and it is turned off.";
        QTest::newRow("a desktop") << "weston"
                                   << ""
                                   << "weston does not report which application is in front, so profiles do "
                                      "not switch automatically."
                                   << false;
        QTest::newRow("an unknown desktop") << ""
                                            << ""
                                            << "This desktop does not report which application is in front, "
                                               "so profiles do not switch automatically."
                                            << false;
        QTest::newRow("disabled") << "GNOME"
                                  << "disabled" << itIsOff << true;
        QTest::newRow("all are off") << "GNOME"
                                     << "off" << itIsOff << true;
        QTest::newRow("missing") << "GNOME"
                                 << "missing"
                                 << "GNOME needs this panel's extension to report which application is in "
                                    "front. If you have just installed it, log out and in again."
                                 << false;
        QTest::newRow("broken") << "GNOME"
                                << "error"
                                << "GNOME reports an error in the extension that tells which application is "
                                   "in front, so profiles do not switch automatically."
                                << false;
        QTest::newRow("about to tell") << "GNOME"
                                       << "enabled"
                                       << "" << false;
    }
    void whereTheDesktopCannotTellThisIsSaid() {
        QFETCH(QString, desktop);
        QFETCH(QString, extension);
        QFETCH(QString, said);
        QFETCH(bool, button);
        Panel panel({.front = {.application = {},
                         .source = {},
                         .desktop = desktop.toStdString(),
                         .gnomeExtension = extension.toStdString()}});
        panel.selectTab(kProfilesTab);
        QTRY_VERIFY(!panel.seen("textRunningProfile").isEmpty());
        QTRY_COMPARE(panel.seen("textFrontHindrance"), said);
        QCOMPARE(panel.find<QWidget>("quorviButtonGnomeExtension")->isVisible(), button);
    }

    void theExtensionIsSwitchedOnByAButtonThatGoesThen() {
        Panel panel(
            {.front = {.application = {}, .source = {}, .desktop = "GNOME", .gnomeExtension = "off"}});
        panel.selectTab(kProfilesTab);
        auto* button = panel.find<QAbstractButton>("quorviButtonGnomeExtension");
        QTRY_VERIFY(button->isVisible());
        button->setFocus();
        panel.click("quorviButtonGnomeExtension");
        QTRY_COMPARE(panel.telling->asked(), QStringList{"enable"});
        panel.telling->change([](auto& told) {
            told.front.gnomeExtension = "enabled";
            told.front.source = "GNOME";
        });
        QTRY_VERIFY(!button->isVisible());
        QCOMPARE(panel.seen("textFrontHindrance"), QString());
        QCOMPARE(panel.window->focusWidget()->objectName(), QStringLiteral("quorviTableProfiles"));
    }

    void theMiceOfTheComputerAreListed() {
        Panel panel({.mice = {mouse("1", "Office & Home", false, "unused"), mouse("2", "", true, "asking"),
                         mouse("3", "Third", true, "busy")}});
        panel.selectTab(kDeviceTab);
        QTRY_VERIFY(panel.box(3));
        QCOMPARE(panel.box(1)->accessibleName(), QStringLiteral("Office & Home"));
        QCOMPARE(panel.box(1)->text(), QStringLiteral("Office && Home"));
        QVERIFY(!panel.box(1)->isChecked());
        QCOMPARE(panel.box(2)->accessibleName(), QStringLiteral("Mouse without a name"));
        QVERIFY(panel.box(2)->isChecked());
        QVERIFY(panel.box(2)->accessibleDescription().startsWith(
            QStringLiteral("USB · Waiting for permission\nUses this mouse")));
        QVERIFY(panel.box(3)->accessibleDescription().contains(QStringLiteral("Taken by another program")));
        panel.telling->change([](auto& told) { told.mice.clear(); });
        QTRY_VERIFY(!panel.box(1));
    }

    void aMouseIsUsedByItsBox() {
        Panel panel({.mice = {mouse("mouse-1", "First", false, "unused"),
                         mouse("mouse-2", "Second", true, "driven")}});
        panel.selectTab(kDeviceTab);
        QTRY_VERIFY(panel.box(2));
        panel.click("quorviBoxMouse1");
        QTRY_COMPARE(panel.telling->asked(), QStringList{"use mouse-1 1"});
        panel.click("quorviBoxMouse2");
        QTRY_COMPARE(panel.telling->asked().last(), QStringLiteral("use mouse-2 0"));
        QCOMPARE(panel.notice(), QString());
    }

    void aChoiceThatCannotBeSavedIsTakenBackAndTold() {
        Panel panel(
            {.mice = {mouse("mouse-1", "First", false, "unused")}, .answer = MouseResult::notWritten});
        panel.selectTab(kDeviceTab);
        QTRY_VERIFY(panel.box(1));
        panel.click("quorviBoxMouse1");
        QTRY_COMPARE(panel.notice(), QStringLiteral("Your choice for the mouse could not be saved."));
        QVERIFY(!panel.box(1)->isChecked());
    }

    void aMouseThatComesLeavesTheFocusWhereItIs() {
        Panel panel({.mice = {mouse("b", "Second", false, "unused")}});
        panel.selectTab(kDeviceTab);
        QTRY_VERIFY(panel.box(1));
        panel.box(1)->setFocus();
        panel.telling->change(
            [](auto& told) { told.mice.insert(told.mice.begin(), mouse("a", "First", false, "unused")); });
        QTRY_VERIFY(panel.box(2));
        QCOMPARE(panel.window->focusWidget(), panel.box(2));
        QCOMPARE(panel.box(2)->accessibleName(), QStringLiteral("Second"));
    }

    void theTabKeyGoesThroughTheMice() {
        Panel panel({.mice = {mouse("2", "Second", false, "unused")}});
        panel.selectTab(kDeviceTab);
        QTRY_VERIFY(panel.box(1));
        panel.telling->change(
            [](auto& told) { told.mice.insert(told.mice.begin(), mouse("1", "First", true, "driven")); });
        QTRY_VERIFY(panel.box(2) && panel.box(2)->isVisible());
        QStringList stops;
        panel.find<QWidget>("quorviBoxLightOnBattery")->setFocus();
        for (int i = 0; i < 4; ++i) {
            QTest::keyClick(panel.window->focusWidget(), Qt::Key_Tab);
            stops << panel.window->focusWidget()->objectName();
        }
        QCOMPARE(stops.join(' '), QStringLiteral("quorviBoxMouse1 quorviButtonSetUpMouse1 quorviBoxMouse2 "
                                                 "quorviButtonCheckForUpdates"));
        panel.box(2)->setFocus();
        QTest::keyClick(panel.box(2), Qt::Key_Space);
        QTRY_COMPARE(panel.telling->asked(), QStringList{"use 2 1"});
    }

    void whatTheMouseInUseCannotDoIsSaidAtTheControl() {
        Panel panel({.mice = {mouse("1", "First", false, "unused")}});
        panel.selectTab(kDeviceTab);
        QTRY_VERIFY(panel.box(1));
        QCOMPARE(panel.text("textLightsHint"), QStringLiteral("Each profile has its own lights."));
        panel.telling->change([](auto& told) {
            told.demonstration = false;
            told.mice = {mouse("1", "First", true, "driven")};
        });
        const auto rate = QStringLiteral("No program can set the polling rate of the mouse in use.");
        const auto lights = QStringLiteral("No program can control the lights of the mouse in use.");
        QTRY_COMPARE(panel.seen("textPollingHint"), rate);
        QCOMPARE(panel.seen("textLightsHint"), lights);
        QCOMPARE(panel.find<PopUpButton>("quorviMenuPollingRate")->accessibleDescription(), rate);
        QCOMPARE(panel.find<QWidget>("quorviBoxLightOnWheel")->accessibleDescription(), lights);
        QVERIFY(panel.isEnabled("quorviMenuPollingRate")); // for the next mouse

        panel.telling->change([](auto& told) { told.mice = {mouse("1", "First", true, "absent")}; });
        QTRY_COMPARE(panel.seen("textLightsHint"), QStringLiteral("Each profile has its own lights."));
        panel.telling->change([](auto& told) { told.mice = {mouse("1", "First", true, "driven")}; });
        QTRY_COMPARE(panel.seen("textLightsHint"), lights);
        panel.telling->change([](auto& told) { told.service = false; });
        QTRY_COMPARE(panel.seen("textLightsHint"), QStringLiteral("Each profile has its own lights."));
    }

    void whatIsPressedOnTheMouseLightsItsSpot() {
        Panel panel({.demonstration = false, .mice = {mouse("mouse-1", "First", true, "driven")}});
        QTRY_COMPARE(panel.state(), QStringLiteral("First"));
        panel.telling->tellInput(6, true);
        QTRY_VERIFY(panel.isPressed(6));
        panel.telling->tellInput(4, true);
        QTRY_VERIFY(panel.isPressed(4));
        QVERIFY(panel.isPressed(6));
        panel.telling->tellInput(6, false);
        QTRY_VERIFY(!panel.isPressed(6));
        QVERIFY(panel.isPressed(4));
        panel.telling->tellInput(8, true);
        QTRY_VERIFY(panel.isPressed(8));
        QTRY_VERIFY(!panel.isPressed(8)); // by itself
        panel.pane->willUnselect();
        QVERIFY(!panel.isPressed(4));
    }

    void aPressInTheWindowSaysNothingOfAMouseWhosePressesAreReported() {
        Panel panel({.demonstration = false, .mice = {mouse("mouse-1", "First", true, "driven")}});
        QTRY_COMPARE(panel.state(), QStringLiteral("First"));
        auto* drawing = panel.find<MouseView>("viewMouse");
        QTest::mousePress(drawing->window()->windowHandle(), Qt::BackButton, {}, QPoint(3, 3));
        QVERIFY(!panel.isPressed(4));
        QTest::mouseRelease(drawing->window()->windowHandle(), Qt::BackButton, {}, QPoint(3, 3));
        panel.telling->change([](auto& told) { told.demonstration = true; });
        QTRY_VERIFY(panel.state() != QStringLiteral("First"));
        QTest::mousePress(drawing->window()->windowHandle(), Qt::BackButton, {}, QPoint(3, 3));
        QVERIFY(panel.isPressed(4)); // the demonstration mouse has no buttons of its own
        QTest::mouseRelease(drawing->window()->windowHandle(), Qt::BackButton, {}, QPoint(3, 3));
    }

    void whatAStrangerTellsIsIgnored() {
        Panel panel({.demonstration = false, .mice = {mouse("mouse-1", "First", true, "driven")}});
        QTRY_COMPARE(panel.state(), QStringLiteral("First"));
        TellingHelper stranger({}, "AnotherProcess");
        stranger.tellInput(5, true);
        stranger.change([](auto& told) { told.frontReason = "Nothing"; });
        panel.telling->tellInput(6, true);
        QTRY_VERIFY(panel.isPressed(6));
        QVERIFY(!panel.isPressed(5));
        QCOMPARE(panel.state(), QStringLiteral("First"));
    }

    /// The fixture knows no layout, so that keys have no names.
    void pointingAtAnInputSaysWhatItDoesAndWhy() {
        Panel panel;
        panel.pane->deviceConfig()
            .array("profiles")
            .dictionary(0)
            .dictionary("buttons")
            .set("04", runMacroOfId(0));
        panel.pane->deviceConfig().array("macros").dictionary(0).set("name", u"<b>Hello</b>");
        panel.pane->updateUI();
        QTRY_COMPARE(panel.explanation(4),
            QStringList({"4 Rear side button", "Macro: <b>Hello</b>", "Press ??? · Release ???",
                "Running now: Desk – because you chose it"}));
        QCOMPARE(panel.explanation(2),
            QStringList({"2 Right button", "Secondary Click", "Running now: Desk – because you chose it"}));
        panel.telling->change([](auto& told) {
            told.profile = 2;
            told.frontReason = "Image Editor";
        });
        QTRY_COMPARE(
            panel.explanation(2), QStringList({"2 Right button", "Secondary Click", "Profile: Desk"}));
        panel.connectDevices(0);
        QTRY_COMPARE(panel.explanation(2), QStringList());
    }

    void theCurrentStageFollowsTheMouse() {
        Panel panel;
        QTRY_VERIFY(!panel.find<QWidget>("groupMice")->isHidden());
        QCOMPARE(panel.stage(), 2);
        panel.telling->change([](auto& told) { told.stage = 3; });
        QTRY_COMPARE(panel.stage(), 3);
        QCOMPARE(panel.text("quorviTextDPI"), QStringLiteral("1600 DPI"));
        QCOMPARE(panel.find<KyvarQuorviSlider>("quorviSliderSensitivityX")->value(), 1600);
        QCOMPARE(panel.savedSettings().dictionary("settings").integer("stage"), 2); // nothing was changed
        panel.telling->change([](auto& told) { told.stage = 4; });                  // there are three
        panel.telling->change([](auto& told) {
            told.profile = 2; // another one than is shown
            told.stage = 1;
        });
        panel.telling->tellInput(1, true); // behind it
        QTRY_VERIFY(panel.isPressed(1));
        QCoreApplication::processEvents();
        QCOMPARE(panel.stage(), 3);
    }

    void withTheHelperGoesWhatItTold() {
        Panel panel({.mice = {mouse("1", "First", false, "unused")}});
        panel.selectTab(kDeviceTab);
        QTRY_VERIFY(panel.box(1));
        panel.telling->tellInput(6, true);
        QTRY_VERIFY(panel.isPressed(6));
        panel.helper.reset();
        QTRY_VERIFY(panel.find<QWidget>("groupMice")->isHidden());
        QVERIFY(!panel.box(1));
        QVERIFY(!panel.isPressed(6));
        panel.selectTab(kProfilesTab);
        QCOMPARE(panel.seen("textRunningProfile"), QString());
    }
};

QUORVI_PANE_TEST_MAIN(LiveHelperTest)
#include "LiveHelperTest.moc"
