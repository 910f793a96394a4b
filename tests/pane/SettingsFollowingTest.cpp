// Another program changes the settings file while the panel is open: its settings are adopted unless that
// would interrupt the user, and otherwise kept next to the file. The other program is the model in this test.

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QMenu>
#include <QStackedWidget>
#include <QTabWidget>

#include <fstream>
#include <iterator>

#include "model/ConfigFileStore.h"
#include "model/SettingsDocument.h"
#include "pane/PaneFixture.h"
#include "pane/PaneTestMain.h"
#include "plist/DeepCopy.h"
#include "resources/TableTags.h"
#include "support/Files.h"
#include "support/SliderTools.h"
#include "widgets/KyvarQuorviSlider.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/Metrics.h"
#include "widgets/TabView.h"

using namespace quorvi;
using namespace quorvi::test;
namespace fs = std::filesystem;

namespace {

/// The sample with both lights of the first profile off, which says that another program has written it.
plist::Dictionary dark() {
    const auto tree = PaneFixture::sampleTree();
    tree.array("profiles").dictionary(0).set("ledstate", 0);
    return tree;
}

/// The same with another name for the second profile.
plist::Dictionary darkAndRenamed(const char16_t* name = u"Theirs") {
    const auto tree = dark();
    tree.array("profiles").dictionary(1).set("name", name);
    return tree;
}

/// The panel, open, with a mouse and the sample, in which both lights are on.
class Open : public PaneFixture {
  public:
    Open() { openWith(sampleTree()); }

    [[nodiscard]] bool wheelIsLit() const { return find<QCheckBox>("quorviBoxLightOnWheel")->isChecked(); }
    [[nodiscard]] bool hasFollowed() const {
        return QTest::qWaitFor([this] { return !wheelIsLit(); }, kWindowPatienceMs);
    }
    /// Nothing that is under way makes it follow. What has been written is in the event queue of the watch by
    /// now, because writing returned.
    [[nodiscard]] bool staysAsItIs() const {
        for (int i = 0; i < 10; ++i)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        return wheelIsLit();
    }
    [[nodiscard]] fs::path copy(int number) const {
        return settingsFile().parent_path() /
               ("com.kyvar.quorvi.settings.kept-" + std::to_string(number) + ".plist");
    }
    [[nodiscard]] std::set<std::string> names() const {
        std::set<std::string> result;
        for (const auto& entry : fs::directory_iterator(settingsFile().parent_path()))
            result.insert(entry.path().filename());
        return result;
    }
    /// The notice in the window; null while there is none to be seen.
    [[nodiscard]] QLabel* notice() const {
        auto* label = window->findChild<QLabel*>(QStringLiteral("textNotice"));
        return label && label->isVisible() ? label : nullptr;
    }
    [[nodiscard]] KyvarQuorviTableView* profiles() const {
        return find<KyvarQuorviTableView>("quorviTableProfiles");
    }
    /// Renames the second profile, which is left to the next action to save.
    void rename(const QString& name = QStringLiteral("Mine")) const {
        selectTab(2);
        profiles()->editCell(1, 1);
        QTest::keyClicks(QApplication::focusWidget(), name);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    }
};

const std::set<std::string> kFileAlone{"com.kyvar.quorvi.settings.plist"};

} // namespace

class SettingsFollowingTest : public QObject {
    Q_OBJECT

  private slots:
    void whatAnotherProgramWritesIsTakenOver_data() {
        QTest::addColumn<QString>("how");
        for (const char* how : {"replaced", "written in place", "moved there", "behind a link"})
            QTest::newRow(how) << how;
    }

    void whatAnotherProgramWritesIsTakenOver() {
        QFETCH(QString, how);
        Open panel;
        const fs::path file = panel.settingsFile();
        fs::path written = file;
        if (how == "behind a link") {
            const fs::path elsewhere = panel.home.path().toStdString() + "/elsewhere";
            fs::create_directory(elsewhere);
            written = elsewhere / "target";
            fs::rename(file, written);
            fs::create_symlink(written, file);
            panel.pane->willUnselect(); // it looks where links lead when it comes to be shown
            panel.pane->didSelect();
            panel.connectDevices(1);
            QVERIFY(panel.wheelIsLit());
            QVERIFY(saveSettings(dark(), written));
        } else if (how == "replaced") {
            QVERIFY(saveSettings(dark(), file));
        } else {
            const fs::path other = file.parent_path() / "other";
            QVERIFY(saveSettings(dark(), other));
            if (how == "moved there")
                fs::rename(other, file);
            else
                writeFile(file, readFile(other));
            fs::remove(other);
        }
        const std::string theirs = readFile(written);
        QTRY_VERIFY(panel.helper->commands().isEmpty() || how == "behind a link");
        panel.helper->forget();
        QVERIFY(panel.hasFollowed());
        QVERIFY(panel.commandsBecome({})); // nothing is saved or said because of it
        QCOMPARE(readFile(written), theirs);
        QVERIFY(!panel.notice());
        // The next change is one of theirs.
        panel.selectTab(4);
        panel.click("quorviBoxLightOnBattery");
        QCOMPARE(panel.savedSettings().array("profiles").dictionary(0).integer("ledstate"), 2);
        QVERIFY(!panel.notice());
    }

    void followingKeepsTheTabAndTakesTheOthersProfile() {
        Open panel;
        panel.selectTab(3);
        const auto tree = dark();
        tree.dictionary("settings").set("profileid", 2);
        tree.array("profiles").dictionary(1).set("ledstate", 0);
        panel.writeSettings(tree);
        QVERIFY(panel.hasFollowed());
        QCOMPARE(panel.pane->profileIndex(), 1);
        QCOMPARE(panel.find<QTabWidget>("quorviTabsMain")->currentIndex(), 3);
    }

    void settingsThatNeedARepairAreShownRepairedAndNotSaved() {
        Open panel;
        const auto tree = dark();
        tree.dictionary("settings").set("dpix", 1200);
        tree.dictionary("settings").set("dpiy", 1200);
        panel.writeSettings(tree);
        const std::string theirs = readFile(panel.settingsFile());
        QVERIFY(panel.hasFollowed());
        QCOMPARE(panel.find<KyvarQuorviSlider>("quorviSliderSensitivityX")->value(), 1200);
        QVERIFY(panel.commandsBecome({}));
        QCOMPARE(readFile(panel.settingsFile()), theirs);
    }

    void itsOwnSavesChangeNothing() {
        Open panel;
        panel.selectTab(4);
        panel.find<KyvarQuorviTableView>("quorviTableMacros")->selectRowAlone(1);
        const auto tree = panel.pane->deviceConfig();
        for (int i = 0; i < 4; ++i) {
            panel.click("quorviBoxLightOnBattery");
            QVERIFY(panel.staysAsItIs());
            QVERIFY(panel.pane->deviceConfig().isSameAs(tree));
        }
        QCOMPARE(panel.selectedRow("quorviTableMacros"), 1);
        QVERIFY(panel.names() == kFileAlone);
    }

    void keysOfOthersChangeNothingInThePanel() {
        Open panel;
        const auto tree = panel.pane->deviceConfig();
        QVERIFY(KyvarSaveConfigToFile("other", PaneFixture::sampleTree(), panel.settingsFile()));
        QVERIFY(panel.staysAsItIs());
        QVERIFY(panel.pane->deviceConfig().isSameAs(tree));
        panel.selectTab(4);
        panel.click("quorviBoxLightOnBattery");
        QVERIFY(storedTree("other", panel.settingsFile()));
        QVERIFY(panel.names() == kFileAlone);
    }

    void aFileThatIsGoneOrSpoiledForAMomentIsNotFollowed() {
        Open panel;
        const std::string ours = readFile(panel.settingsFile());
        for (const char* spoiled : {"", "<plist><dict>", "no property list"}) {
            writeFile(panel.settingsFile(), spoiled);
            QVERIFY(panel.staysAsItIs());
        }
        fs::remove(panel.settingsFile());
        QVERIFY(panel.staysAsItIs());
        QVERIFY(panel.pane->deviceConfig());
        writeFile(panel.settingsFile(), ours);
        panel.selectTab(4);
        panel.click("quorviBoxLightOnBattery");
        QVERIFY(panel.names() == kFileAlone);
        panel.writeSettings(dark());
        QVERIFY(panel.hasFollowed());
    }

    void aWindowThatBecomesKeyLooksAtTheFileToo() {
        Open panel;
        // Another folder under the name of the watched one: nothing is heard of it.
        const fs::path folder = panel.settingsFile().parent_path();
        const fs::path other = folder.parent_path() / "other";
        fs::create_directory(other);
        QVERIFY(saveSettings(dark(), other / panel.settingsFile().filename()));
        fs::rename(folder, folder.parent_path() / "old");
        fs::rename(other, folder);
        QVERIFY(panel.staysAsItIs());
        panel.pane->sysPrefWindowDidBecomeKey();
        QVERIFY(!panel.wheelIsLit());
    }

    void theFirstSaveMakesTheFolderThatIsWatchedFromThenOn() {
        PaneFixture panel;
        panel.select();
        panel.connectDevices(1);
        QVERIFY(!fs::exists(panel.settingsFile().parent_path()));
        panel.selectTab(4);
        panel.click("quorviBoxLightOnWheel");
        const bool lit = panel.find<QCheckBox>("quorviBoxLightOnWheel")->isChecked();
        const auto tree = panel.savedSettings();
        tree.array("profiles").dictionary(0).set("ledstate", lit ? 0 : 3);
        panel.writeSettings(tree);
        QTRY_COMPARE(panel.find<QCheckBox>("quorviBoxLightOnWheel")->isChecked(), !lit);
    }

    void whatTheUserIsAtIsNotBrokenOff_data() {
        QTest::addColumn<QString>("at");
        for (const char* at : {"a sheet", "a menu", "an edit", "a drag", "a recording"})
            QTest::newRow(at) << at;
    }

    void whatTheUserIsAtIsNotBrokenOff() {
        QFETCH(QString, at);
        Open panel;
        const auto writeAndStay = [&] {
            panel.writeSettings(dark());
            return panel.staysAsItIs();
        };
        bool stayed = false;
        if (at == "a sheet") {
            panel.selectTab(1);
            whenSheetIsUp(panel.window.get(), "quorviPanelStages", [&](QDialog* sheet) {
                stayed = writeAndStay() && sheet->isVisible();
                sheet->reject();
            });
            panel.click("quorviButtonEditStages");
        } else if (at == "a menu") {
            QMenu* menu = openMenuOf(panel.find<QWidget>("quorviMenuTop3"));
            stayed = writeAndStay() && menu->isVisible();
            menu->close();
        } else if (at == "an edit") {
            panel.selectTab(2);
            panel.profiles()->editCell(1, 1);
            stayed = writeAndStay() && panel.profiles()->isEditing();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        } else if (at == "a drag") {
            panel.selectTab(1);
            auto* slider = panel.find<KyvarQuorviSlider>("quorviSliderSensitivityX");
            QTest::mousePress(slider, Qt::LeftButton, {}, handleOf(*slider));
            stayed = writeAndStay();
            QTest::mouseRelease(slider, Qt::LeftButton, {}, handleOf(*slider));
        } else {
            panel.selectTab(3);
            panel.selectRow("quorviTableMacros", 0);
            panel.pane->startStopRecording(true, false);
            stayed = writeAndStay() && panel.pane->isRecordingMacro();
            panel.pane->startStopRecording(false, false); // saves what was recorded
            QCOMPARE(panel.savedSettings().array("profiles").dictionary(0).integer("ledstate"), 0);
        }
        QVERIFY(stayed);
        QVERIFY(panel.hasFollowed()); // when it is over
        QVERIFY(!panel.notice());
        QVERIFY(panel.names() == kFileAlone);
    }

    void aChangeThatNoFileHasYetIsNotDropped() {
        Open panel;
        panel.rename();
        panel.writeSettings(dark());
        const std::string theirs = readFile(panel.settingsFile());
        QVERIFY(panel.staysAsItIs());
        panel.pane->sysPrefWindowDidBecomeKey();
        QVERIFY(panel.wheelIsLit());
        QVERIFY(!panel.notice());
        panel.selectTab(4);
        panel.click("quorviBoxLightOnBattery");
        const auto profiles = panel.savedSettings().array("profiles");
        QCOMPARE(profiles.dictionary(1).string("name"), std::u16string(u"Mine"));
        QCOMPARE(profiles.dictionary(1).integer("ledstate"), 1); // the renamed profile is the current one
        // And the other program's change is there too.
        QCOMPARE(profiles.dictionary(0).integer("ledstate"), 0);
        QVERIFY(panel.names() == kFileAlone);
        QVERIFY(!panel.notice());
        // From now on it follows again.
        const auto tree = panel.savedSettings();
        tree.array("profiles").dictionary(1).set("ledstate", 0);
        panel.writeSettings(tree);
        QVERIFY(panel.hasFollowed());
        QVERIFY(panel.names() == kFileAlone);
    }

    void aChangeThatNoFileHasYetIsSavedBeforeAListReadsTheFile() {
        Open panel;
        panel.rename();
        panel.helper->sendDeviceList(1);
        QVERIFY(panel.commandsBecome({"KyPR 1"}));
        QCOMPARE(
            panel.savedSettings().array("profiles").dictionary(1).string("name"), std::u16string(u"Mine"));
        QCOMPARE(panel.pane->deviceConfig().array("profiles").dictionary(1).string("name"),
            std::u16string(u"Mine"));
    }

    void changesOfBothAreInTheFileAndInTheWindow() {
        Open panel;
        panel.selectTab(4);
        const auto tree = dark();
        tree.array("profiles").dictionary(1).set("name", u"Theirs");
        panel.writeSettings(tree);
        panel.click("quorviBoxLightOnBattery"); // before it hears of that
        const auto saved = panel.savedSettings().array("profiles");
        QCOMPARE(saved.dictionary(0).integer("ledstate"), 0);
        QCOMPARE(saved.dictionary(1).string("name"), std::u16string(u"Theirs"));
        QVERIFY(panel.hasFollowed());
        QVERIFY(panel.names() == kFileAlone);
        QVERIFY(!panel.notice());
        // The handles are those of the tree that is saved.
        panel.click("quorviBoxLightOnWheel");
        QCOMPARE(panel.savedSettings().array("profiles").dictionary(0).integer("ledstate"), 1);
        QCOMPARE(
            panel.savedSettings().array("profiles").dictionary(1).string("name"), std::u16string(u"Theirs"));
    }

    void aProfileThatAnotherProgramAddsIsThereBesideTheOnesOwn() {
        Open panel;
        const auto tree = PaneFixture::sampleTree();
        const auto added = plist::mutableDeepCopy(tree.array("profiles").dictionary(0));
        added.set("name", u"Theirs");
        tree.array("profiles").append(added);
        panel.selectTab(2);
        panel.writeSettings(tree);
        panel.pane->actionButtonProfileAdd(); // before it hears of that
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        const auto saved = panel.savedSettings().array("profiles");
        QCOMPARE(saved.size(), std::size_t(4));
        QCOMPARE(saved.dictionary(3).string("name"), std::u16string(u"Theirs"));
        QCOMPARE(panel.pane->profileIndex(), 2); // the new one of its own
        QTRY_COMPARE(panel.profiles()->model()->rowCount(), 4);
        QCOMPARE(panel.selectedRow("quorviTableProfiles"), 2);
    }

    void aMacroThatAnotherProgramAddsUnderTheSameIdentifierIsThereBesideTheOnesOwn() {
        Open panel;
        const auto tree = PaneFixture::sampleTree();
        const auto added = plist::mutableDeepCopy(tree.array("macros").dictionary(0));
        added.set("name", u"Theirs");
        added.set("macroid", 1); // the lowest free one, which the panel takes too
        tree.array("macros").append(added);
        const auto input = tree.array("profiles").dictionary(1).dictionary("buttons").dictionary("02");
        input.set("command", 65);
        input.set("param1", 1);
        panel.selectTab(3);
        panel.writeSettings(tree);
        panel.pane->actionButtonMacroAdd(); // before it hears of that
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        const auto saved = panel.savedSettings();
        const auto macros = saved.array("macros");
        QCOMPARE(macros.size(), std::size_t(4));
        QCOMPARE(macros.dictionary(2).integer("macroid"), 2);
        QCOMPARE(macros.dictionary(3).integer("macroid"), 1);
        QCOMPARE(macros.dictionary(3).string("name"), std::u16string(u"Theirs"));
        const auto theirs = saved.array("profiles").dictionary(1).dictionary("buttons").dictionary("02");
        QCOMPARE(theirs.integer("param1"), 1);
        QCOMPARE(panel.pane->macroIndex(), 2); // the new one of its own
        auto* list = panel.find<KyvarQuorviTableView>("quorviTableMacros");
        QTRY_COMPARE(list->model()->rowCount(), 4);
        QCOMPARE(panel.selectedRow("quorviTableMacros"), 2);
        QVERIFY(panel.names() == kFileAlone);
        QVERIFY(!panel.notice());
    }

    void theUserIsToldWithoutASheetWhereTheOthersAre() {
        Open panel;
        panel.rename();
        panel.writeSettings(darkAndRenamed());
        panel.selectTab(4);
        panel.click("quorviBoxLightOnBattery");
        QVERIFY(panel.notice());
        QVERIFY(panel.notice()->text().contains(
            QStringLiteral("~/Library/Preferences/com.kyvar.quorvi.settings.kept-1.plist")));
        QVERIFY(panel.notice()->text().contains(QStringLiteral(" com.kyvar.quorvi.settings.plist")));
        QVERIFY(!QApplication::activeModalWidget());
        panel.click("quorviBoxLightOnBattery"); // the panel can be used
        QVERIFY(!fs::exists(panel.copy(2)));
        panel.click("buttonNotice");
        QVERIFY(!panel.notice());
        panel.rename(QStringLiteral("Mine too"));
        panel.writeSettings(darkAndRenamed(u"Others"));
        panel.selectTab(4);
        panel.click("quorviBoxLightOnBattery");
        QVERIFY(panel.notice());
        QVERIFY(panel.notice()->text().contains(QStringLiteral("kept-2.plist")));
    }

    void whatTheUserIsToldStandsAboveThePageWhole() {
        Open panel;
        QWidget& view = *panel.pane->mainView();
        panel.selectTab(4);
        QCoreApplication::processEvents(); // its notes say how high they are when they are shown
        const QSize smallest = view.minimumSizeHint();
        panel.rename();
        panel.writeSettings(darkAndRenamed());
        panel.selectTab(4);
        panel.click("quorviBoxLightOnBattery");
        QVERIFY(panel.notice());
        const QWidget& bar = *panel.notice()->parentWidget();
        const QWidget& page = panel.find<TabView>("quorviTabsMain")->pages();
        for (const int width : {view.width(), view.width() + 300}) {
            panel.window->resize(panel.window->width() + width - view.width(), panel.window->height());
            const int margin =
                view.width() < metrics::narrowWidth ? metrics::narrowPageMargin : metrics::pageMargin;
            const int top = page.mapTo(&view, QPoint()).y() + metrics::rowGap;
            const int across = qMin(view.width() - 2 * margin, metrics::maxContentWidth);
            const int side = (view.width() - across) / 2;
            QTRY_COMPARE(bar.geometry(), QRect(side, top, across, bar.heightForWidth(across)));
            QVERIFY(panel.notice()->height() >= panel.notice()->heightForWidth(panel.notice()->width()));
        }
        QCOMPARE(view.minimumSizeHint(), smallest);
    }

    void hidingThePanelSavesTheOthersSettingsAndNotItsOwn() {
        Open panel;
        panel.writeSettings(dark());
        panel.pane->willUnselect(); // before it hears of them
        QCOMPARE(panel.savedSettings().array("profiles").dictionary(0).integer("ledstate"), 0);
        QVERIFY(panel.names() == kFileAlone);
        panel.pane->didSelect(); // pairs the end of the test
    }

    void aHiddenPanelFollowsNobody() {
        Open panel;
        panel.pane->willUnselect();
        panel.writeSettings(dark());
        QVERIFY(panel.staysAsItIs() || !panel.pane->deviceConfig());
        QVERIFY(!panel.pane->deviceConfig());
        panel.pane->didSelect();
        QVERIFY(!panel.pane->deviceConfig()); // until a list comes
    }

    void aFileThatCouldNotBeLoadedIsKeptQuietly() {
        PaneFixture panel;
        fs::create_directories(panel.settingsFile().parent_path());
        writeFile(panel.settingsFile(), "a slip of the hand");
        panel.select();
        panel.connectDevices(1);
        panel.selectTab(4);
        panel.click("quorviBoxLightOnWheel");
        QVERIFY(panel.savedSettings());
        QCOMPARE(readFile(panel.settingsFile().parent_path() / "com.kyvar.quorvi.settings.kept-1.plist"),
            std::string("a slip of the hand"));
        QVERIFY(!panel.window->findChild<QLabel*>(QStringLiteral("textNotice")));
    }

    void leftoversOfAKilledPanelAreRemovedAtTheNextStart() {
        PaneFixture panel;
        panel.writeSettings(PaneFixture::sampleTree());
        constexpr int noSuchProcess = 4194304 + 1; // above the largest that Linux gives out
        const fs::path leftover =
            panel.settingsFile().parent_path() / (".quorvi-" + std::to_string(noSuchProcess) + "-3");
        writeFile(leftover, "half a file");
        panel.load();
        QTRY_VERIFY(!fs::exists(leftover));
        QVERIFY(fs::exists(panel.settingsFile()));
    }
};

QUORVI_PANE_TEST_MAIN(SettingsFollowingTest)
#include "SettingsFollowingTest.moc"
