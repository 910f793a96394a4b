// Loading, showing and hiding the pane.

#include <QCheckBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTabWidget>
#include <QTableView>
#include <QTimer>
#include <QWindow>

#include <array>
#include <fstream>

#include "pane/EventPatch.h"
#include "pane/PaneFixture.h"
#include "pane/PaneTestMain.h"
#include "resources/MenuTags.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/MenuItems.h"
#include "widgets/PopUpButton.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

/// A copy of the pane's bundle whose Info.plist holds these entries alone.
class BundleWithInfo {
  public:
    explicit BundleWithInfo(const std::string& entries) {
        const std::filesystem::path contents = path() + "/Contents";
        std::filesystem::create_directories(contents);
        std::filesystem::create_directory_symlink(
            std::filesystem::path(QUORVI_BUNDLE) / "Contents/Resources", contents / "Resources");
        std::ofstream(contents / "Info.plist")
            << "<plist version=\"1.0\"><dict>" << entries << "</dict></plist>";
    }
    [[nodiscard]] std::string path() const {
        return m_folder.filePath(QStringLiteral("A.prefPane")).toStdString();
    }

  private:
    QTemporaryDir m_folder;
};

QString versionTextOf(const std::string& infoEntries) {
    const BundleWithInfo bundle(infoEntries);
    PaneFixture fixture({.bundlePath = bundle.path()});
    const QString before = fixture.text("quorviTextDriverVersion");
    fixture.load();
    const QString after = fixture.text("quorviTextDriverVersion");
    return after == before ? QStringLiteral("untouched") : after;
}

} // namespace

class LifecycleTest : public QObject {
    Q_OBJECT

  private slots:
    void shortVersionStringIsShown() {
        QCOMPARE(versionTextOf("<key>CFBundleShortVersionString</key><string>7.8.9</string>"
                               "<key>CFBundleVersion</key><string>1234</string>"),
            QStringLiteral("7.8.9"));
    }

    void bundleVersionIsShownWithoutShortVersionString() {
        QCOMPARE(versionTextOf("<key>CFBundleVersion</key><string>1234</string>"), QStringLiteral("1234"));
    }

    void versionTextIsLeftUntouchedWithoutAnyVersion() {
        QCOMPARE(versionTextOf("<key>CFBundleName</key><string>A</string>"), QStringLiteral("untouched"));
    }

    void loadingSelectsTheFirstTabAndKnowsNoDevice() {
        PaneFixture fixture;
        fixture.find<QTabWidget>("quorviTabsMain")->setCurrentIndex(3);
        fixture.load();
        QCOMPARE(fixture.find<QTabWidget>("quorviTabsMain")->currentIndex(), 0);
        QVERIFY(!fixture.pane->hasDevice());
        QVERIFY(fixture.pane->panelIsFront());
        QCOMPARE(gKyvarQuorviPane, fixture.pane.get());
    }

    void loadingFillsTheNinePopUpsFromTheTwoTemplates() {
        PaneFixture fixture;
        fixture.load();
        QSet<QMenu*> menus;
        for (int n = 1; n <= 9; ++n) {
            auto* popUp = fixture.find<PopUpButton>(qPrintable(QStringLiteral("quorviMenuTop%1").arg(n)));
            QCOMPARE(popUp->property("tag").toInt(), n);
            QVERIFY(popUp->menu());
            const QAction* plain = popUp->itemWithTag(0);
            QVERIFY(plain);
            QCOMPARE(plain->property("representedObject").toString(), titleOfItem(*plain));
            menus.insert(popUp->menu());
        }
        QCOMPARE(menus.size(), 9);
        const auto titles = [&](const char* name) {
            QStringList result;
            for (const QAction* item : fixture.find<PopUpButton>(name)->menu()->actions())
                result << item->text();
            return result;
        };
        QCOMPARE(titles("quorviMenuTop1"), titles("quorviMenuTop7"));
        QCOMPARE(titles("quorviMenuTop8"), titles("quorviMenuTop9"));
    }

    void listsThatNobodyNeedsYetDoNotDelayTheWindow() {
        PaneFixture fixture;
        fixture.load();
        const std::array lists{"quorviTableProfiles", "quorviTableMacros", "quorviTableSteps"};
        for (const char* list : lists)
            QVERIFY2(!fixture.find<QTableView>(list)->model(), list);
        fixture.openWith(PaneFixture::sampleTree());
        for (const char* list : lists)
            QVERIFY2(fixture.find<QTableView>(list)->model(), list);
    }

    void listsOpenedBeforeThereIsAMouseHaveTheirTitles() {
        PaneFixture fixture;
        fixture.load();
        fixture.selectTab(2);
        const auto* titles = fixture.find<QTableView>("quorviTableProfiles")->horizontalHeader();
        QCOMPARE(titles->count(), 4);
    }

    void theGearMenusOpenWhenTheirButtonsArePressed_data() {
        QTest::addColumn<int>("tab");
        QTest::addColumn<QByteArray>("button");
        QTest::addColumn<QByteArray>("menu");
        QTest::newRow("profiles") << 2 << QByteArray("quorviButtonProfileGear")
                                  << QByteArray("quorviMenuProfileGear");
        QTest::newRow("macros") << 3 << QByteArray("quorviButtonMacroGear")
                                << QByteArray("quorviMenuMacroGear");
        QTest::newRow("steps") << 3 << QByteArray("quorviButtonStepGear") << QByteArray("quorviMenuStepGear");
    }

    void theGearMenusOpenWhenTheirButtonsArePressed() {
        QFETCH(int, tab);
        QFETCH(QByteArray, button);
        QFETCH(QByteArray, menu);
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        fixture.selectTab(tab);
        if (tab == 3)
            fixture.selectRow("quorviTableMacros", 0);
        auto* gear = fixture.find<QAbstractButton>(button.constData());
        auto* gearMenu = fixture.find<QMenu>(menu.constData());
        bool openedOnPress = false;
        connect(gearMenu, &QMenu::aboutToShow, gearMenu, [&] {
            openedOnPress = true;
            QTimer::singleShot(0, gearMenu, &QMenu::close);
        });
        QTest::mousePress(gear, Qt::LeftButton);
        QVERIFY(openedOnPress);
        QTRY_VERIFY(!gear->isDown());
    }

    void theHelperIsLaunchedOnlyWhenItDoesNotRun() {
        const auto opened = [](bool helperRuns) {
            PaneFixture fixture({.helper = helperRuns});
            fixture.load();
            return fixture.opened;
        };
        QCOMPARE(opened(true), QStringList());
        QCOMPARE(opened(false),
            QStringList(QStringLiteral("launch " QUORVI_BUNDLE "/Contents/Resources/KyvarQuorviHelper.app")));
    }

    void theHelperIsRegisteredForLogInWhetherItRunsOrNot() {
        for (const bool helperRuns : {true, false}) {
            PaneFixture fixture({.helper = helperRuns});
            fixture.load();
            QCOMPARE(fixture.autostartEntries().size(), 1);
        }
    }

    void settingsAreNotReadBeforeTheFirstDeviceList() {
        PaneFixture fixture;
        fixture.writeSettings(PaneFixture::sampleTree());
        fixture.select();
        QVERIFY(!fixture.pane->deviceConfig());
        QCOMPARE(fixture.text("quorviTextProfile"), QStringLiteral("No device connected"));
    }

    void selectingAndDeselectingTwiceReportsInOrder() {
        PaneFixture fixture;
        fixture.select();
        fixture.pane->willUnselect();
        fixture.pane->didSelect();
        fixture.pane->willUnselect();
        QVERIFY(fixture.commandsBecome({"KyRO 1", "KyRO 0", "KyRO 1", "KyRO 0"}));
    }

    void listsAreHandledOnlyWhileThePaneIsSelected() {
        PaneFixture fixture;
        fixture.select();
        fixture.connectDevices(1);
        fixture.pane->willUnselect();
        QVERIFY_EXCEPTION_THROWN(fixture.helper->sendDeviceList(1), std::runtime_error);
        QVERIFY(!fixture.pane->deviceConfig());
        fixture.pane->didSelect();
        fixture.connectDevices(1);
        QVERIFY(fixture.pane->deviceConfig());
    }

    void everySelectionStartsWithoutADevice() {
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        QVERIFY(fixture.pane->hasDevice());
        fixture.pane->willUnselect();
        fixture.pane->didSelect();
        QVERIFY(!fixture.pane->hasDevice());
        QCOMPARE(fixture.text("quorviTextProfile"), QStringLiteral("No device connected"));
        QVERIFY(!fixture.isEnabled("quorviMenuPollingRate"));
    }

    void deselectingSavesTheWholeTreeAndTellsTheHelper() {
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        fixture.pane->deviceConfig().set("firmware", 0x0A00);
        fixture.pane->willUnselect();
        QVERIFY(fixture.commandsBecome({"KyRO 0", "KyPR 0"}));
        QCOMPARE(fixture.savedSettings().integer("firmware"), 0x0A00);
        QVERIFY(!fixture.pane->deviceConfig());
        QCOMPARE(fixture.pane->profileIndex(), -1);
        QCOMPARE(fixture.pane->macroIndex(), -1);
    }

    void deselectingWhileRecordingStopsTheRecordingFirst() {
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        fixture.pane->startStopRecording(true, false);
        fixture.pane->willUnselect();
        QVERIFY(!fixture.pane->isRecordingMacro());
        QVERIFY(fixture.commandsBecome({"KyDM 1", "KyDM 0", "KyPR 0", "KyRO 0", "KyPR 0"}));
    }

    void thePanelCanGoWhileAPopUpHasTheFocus() {
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        auto* popUp = fixture.find<QWidget>("quorviMenuTop3");
        popUp->setFocus();
        QVERIFY(popUp->hasFocus());
        fixture.pane->willUnselect();
        fixture.pane.reset(); // the pop-up hears that it loses the focus when the drawing is gone
        QVERIFY(!fixture.window->findChild<QWidget*>(QStringLiteral("quorviMenuTop3")));
    }

    void deselectingClosesTheMenusThatAreOpen() {
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        QMenu* menu = openMenuOf(fixture.find<QWidget>("quorviMenuTop3"));
        QVERIFY(menu->isVisible());
        fixture.pane->willUnselect();
        QVERIFY(!menu->isVisible());
    }

    void aCommandThatWasChosenJustBeforeDeselectingIsNotCarriedOut() {
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        fixture.selectTab(3);
        fixture.selectRow("quorviTableMacros", 0);
        // A command comes when its menu is done, which is when the pane is hidden already.
        itemWithTag(*fixture.find<QMenu>("quorviMenuStepGear"), kRecordItem)->trigger();
        fixture.pane->willUnselect();
        QCoreApplication::processEvents();
        QVERIFY(!fixture.pane->isRecordingMacro());
        QVERIFY(fixture.commandsBecome({"KyRO 0", "KyPR 0"}));
    }

    void deselectingWithoutSettingsSavesNothing() {
        PaneFixture fixture;
        fixture.select();
        fixture.pane->willUnselect();
        QVERIFY(fixture.commandsBecome({"KyRO 1", "KyRO 0"}));
        QVERIFY(!std::filesystem::exists(fixture.settingsFile()));
        QCOMPARE(fixture.pane->profileIndex(), -1);
        QCOMPARE(fixture.pane->macroIndex(), -1);
    }

    void theKeyPatchIsInPlaceExactlyWhileThePaneIsSelected() {
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        QLineEdit field(fixture.window.get());
        field.show();
        field.setFocus();
        QTest::keyClicks(&field, QStringLiteral("a"));
        QCOMPARE(field.text(), QStringLiteral("a"));
        fixture.pane->startStopRecording(true, false);
        const auto type = [&](quint32 scanCode, const QString& text) {
            QKeyEvent press(QEvent::KeyPress, 0, {}, scanCode, 0, 0, text);
            QCoreApplication::sendEvent(fixture.window->windowHandle(), &press);
        };
        type(56, QStringLiteral("b"));
        QCOMPARE(field.text(), QStringLiteral("a"));
        fixture.pane->willUnselect();
        type(54, QStringLiteral("c"));
        QCOMPARE(field.text(), QStringLiteral("ac"));
        fixture.pane->didSelect();
    }

    void gainingTheFocusRefreshesTheScreen() {
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        QWidget other;
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        fixture.find<QLabel>("quorviTextProfile")->setText(QStringLiteral("stale"));
        fixture.window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(fixture.window.get()));
        QCOMPARE(fixture.text("quorviTextProfile"), QStringLiteral("Desk"));
        QVERIFY(fixture.pane->panelIsFront());
    }

    void losingTheFocusStopsRecordingAndLeavesTheFrontStateAlone() {
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        fixture.pane->startStopRecording(true, false);
        QWidget other;
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        QVERIFY(!fixture.pane->isRecordingMacro());
        QVERIFY(fixture.pane->panelIsFront());
    }

    void theFrontStateFollowsTheApplication() {
        PaneFixture fixture;
        fixture.select();
        fixture.pane->sysPrefDidResignActive();
        QVERIFY(!fixture.pane->panelIsFront());
        fixture.pane->sysPrefWindowDidBecomeKey();
        QVERIFY(fixture.pane->panelIsFront());
    }

    void losingTheFocusDiscardsACellEdit() {
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        fixture.selectTab(2);
        auto* table = fixture.find<KyvarQuorviTableView>("quorviTableProfiles");
        table->edit(table->model()->index(1, 1));
        auto* editor = table->viewport()->findChild<QLineEdit*>();
        QVERIFY(editor);
        editor->selectAll();
        QTest::keyClicks(editor, QStringLiteral("Typed"));
        QWidget other;
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        QTRY_VERIFY(!table->viewport()->findChild<QLineEdit*>());
        QCOMPARE(table->model()->index(1, 1).data().toString(), QStringLiteral("Game"));
    }

    void anEditThatIsCommittedIsKept() {
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        fixture.selectTab(2);
        auto* table = fixture.find<KyvarQuorviTableView>("quorviTableProfiles");
        table->edit(table->model()->index(1, 1));
        auto* editor = table->viewport()->findChild<QLineEdit*>();
        QVERIFY(editor);
        editor->selectAll();
        QTest::keyClicks(editor, QStringLiteral("Typed"));
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(table->model()->index(1, 1).data().toString(), QStringLiteral("Typed"));
    }

    void changingTheTabStopsRecordingAndNothingElse() {
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        fixture.selectTab(1);
        QVERIFY(fixture.commandsBecome({}));
        fixture.pane->startStopRecording(true, false);
        fixture.selectTab(2);
        QVERIFY(!fixture.pane->isRecordingMacro());
        QVERIFY(fixture.commandsBecome({"KyDM 1", "KyDM 0", "KyPR 0"}));
    }

    void thePaneOpensWorksAndSavesWithoutASessionBus() {
        PaneFixture fixture({.helper = false, .bus = false});
        fixture.writeSettings(PaneFixture::sampleTree());
        fixture.select();
        clickInSheet(fixture.window.get(), "quorviPanelNoDevice", "quorviNoDeviceButtonOK");
        fixture.pane->syncUIWithDeviceConfig();
        fixture.find<QCheckBox>("quorviBoxLightOnWheel")->setChecked(false);
        fixture.pane->actionBoxLightOnWheel();
        QCOMPARE(fixture.savedSettings().array("profiles").dictionary(0).integer("ledstate"), 2);
        QVERIFY(fixture.pane->sendMessageToHelper(kMessageSettingsSaved, 0) != noErr);
        fixture.pane->willUnselect();
    }
};

QUORVI_PANE_TEST_MAIN(LifecycleTest)
#include "LifecycleTest.moc"
