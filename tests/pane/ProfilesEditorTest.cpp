// The list of profiles: adding, duplicating, renaming, removing and choosing, through its window.

#include <QCheckBox>
#include <QLabel>
#include <QMenu>

#include "history/History.h"
#include "pane/ListTools.h"
#include "pane/PaneTestMain.h"
#include "support/Tabs.h"
#include "widgets/MarkedCells.h"
#include "widgets/PopUpButton.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr const char* kTable = "quorviTableProfiles";
constexpr const char* kGear = "quorviButtonProfileGear";

plist::Dictionary profileOf(const plist::Dictionary& tree, std::size_t index) {
    return tree.array("profiles").dictionary(index);
}

/// The sample tree with this many profiles, named after their numbers from the third on.
plist::Dictionary treeWithProfiles(int count) {
    const auto tree = PaneFixture::sampleTree();
    const auto profiles = tree.array("profiles");
    for (int number = 3; number <= count; ++number) {
        const auto profile = PaneFixture::sampleTree().array("profiles").dictionary(1);
        profile.set("name", QString::number(number).toStdU16String());
        profiles.append(profile);
    }
    while (static_cast<int>(profiles.size()) > count)
        profiles.remove(profiles.size() - 1);
    return tree;
}

class ProfilesFixture : public PaneFixture {
  public:
    explicit ProfilesFixture(const plist::Dictionary& tree = sampleTree(), const PaneOptions& options = {})
        : PaneFixture(options) {
        openWith(tree);
        selectTab(kProfilesTab);
        window->resize(900, 700);
    }
    void selectProfile(int row) {
        selectRow(kTable, row);
        QCoreApplication::processEvents();
    }
};

} // namespace

class ProfilesEditorTest : public QObject {
    Q_OBJECT

  private slots:
    void addingAppendsTheDefaultProfileUnderAUniqueNameAndMakesItCurrent() {
        ProfilesFixture fixture;
        fixture.click("quorviButtonProfileAdd");
        // Once for its default stage, which a chosen row applies, and once for the list.
        QVERIFY(fixture.commandsBecome({"KyPR 2", "KyPR 2"}));
        const auto saved = fixture.savedSettings();
        QCOMPARE(namesIn(saved, "profiles"), QStringList({"Desk", "Game", "Untitled Profile"}));
        QCOMPARE(saved.dictionary("settings").integer("profileid"), 3);
        QCOMPARE(fixture.pane->profileIndex(), 2);
        QCOMPARE(fixture.selectedRow(kTable), 2);
        QCOMPARE(fixture.text("quorviTextProfile"), QStringLiteral("Untitled Profile"));
        auto expected = fixture.pane->getDefaultSettings().array("profiles").dictionary(0);
        expected.set("name", u"Untitled Profile");
        QVERIFY(plist::Value(profileOf(saved, 2)) == plist::Value(expected));
    }

    void aNewProfileAppliesItsDefaultStage() {
        ProfilesFixture fixture;
        fixture.click("quorviButtonProfileAdd");
        QVERIFY(fixture.commandsBecome({"KyPR 2", "KyPR 2"}));
        const auto saved = fixture.savedSettings();
        const auto added = profileOf(saved, 2);
        const int stage = added.integer("defaultstage");
        QCOMPARE(saved.dictionary("settings").integer("stage"), stage);
        QCOMPARE(saved.dictionary("settings").integer("dpix"),
            added.array("stages").dictionary(static_cast<std::size_t>(stage - 1)).integer("dpix"));
    }

    void theNameOfANewProfileIsEditedAtOnceAndSavedWithTheNextChange() {
        ProfilesFixture fixture;
        fixture.click("quorviButtonProfileAdd");
        QVERIFY(waitForCellEditor(fixture, kTable));
        QCOMPARE(cellEditor(fixture, kTable)->selectedText(), QStringLiteral("Untitled Profile"));
        QTest::keyClicks(cellEditor(fixture, kTable), QStringLiteral("Desk"));
        QTest::keyClick(cellEditor(fixture, kTable), Qt::Key_Return);
        QTRY_COMPARE(shownIn(fixture, kTable, 1), QStringList({"Desk", "Game", "Desk 2"}));
        QCOMPARE(fixture.text("quorviTextProfile"), QStringLiteral("Desk 2"));
        QVERIFY(fixture.commandsBecome({"KyPR 2", "KyPR 2"}));
        fixture.click("quorviBoxProfileOSD");
        QVERIFY(fixture.commandsBecome({"KyPR 2", "KyPR 2", "KyPR 2"}));
        QCOMPARE(namesIn(fixture.savedSettings(), "profiles"), QStringList({"Desk", "Game", "Desk 2"}));
    }

    void escapeGivesAnEditUp() {
        ProfilesFixture fixture;
        fixture.selectProfile(1);
        QTest::keyClick(fixture.find<QWidget>(kTable), Qt::Key_F2);
        QVERIFY(waitForCellEditor(fixture, kTable));
        QTest::keyClicks(cellEditor(fixture, kTable), QStringLiteral("Other"));
        QTest::keyClick(cellEditor(fixture, kTable), Qt::Key_Escape);
        QTRY_VERIFY(!cellEditor(fixture, kTable));
        QCOMPARE(shownIn(fixture, kTable, 1), QStringList({"Desk", "Game"}));
    }

    void aClickIntoTheSelectedNameEditsIt() {
        ProfilesFixture fixture;
        fixture.selectProfile(1);
        auto* view = fixture.find<KyvarQuorviTableView>(kTable);
        // Later than a double click, which has its own meaning.
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, cellOf(fixture, kTable, 1, 1).center(),
            QApplication::doubleClickInterval() + 1);
        QVERIFY(waitForCellEditor(fixture, kTable));
        QTest::keyClicks(cellEditor(fixture, kTable), QStringLiteral("Spiel"));
        QTest::keyClick(cellEditor(fixture, kTable), Qt::Key_Return);
        QTRY_COMPARE(shownIn(fixture, kTable, 1), QStringList({"Desk", "Spiel"}));
    }

    void theFirstProfilesNameDoesNotOpenForEditing() {
        ProfilesFixture fixture;
        fixture.selectProfile(0);
        auto* view = fixture.find<KyvarQuorviTableView>(kTable);
        const QPoint name = cellOf(fixture, kTable, 0, 1).center();
        QTest::keyClick(view, Qt::Key_F2);
        QVERIFY(!view->isEditing());
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, name);
        QVERIFY(!view->isEditing());
        view->editCell(1, 0);
        QVERIFY(!view->isEditing());
        view->editCell(1, 1);
        QVERIFY(view->isEditing());
    }

    void renamingToTheOwnNameKeepsItAndTheFirstProfileKeepsItsNameAlways() {
        ProfilesFixture fixture;
        fixture.pane->setObjectValue(QStringLiteral("Game"), 12, 1);
        QCOMPARE(shownIn(fixture, kTable, 1), QStringList({"Desk", "Game"}));
        fixture.pane->setObjectValue(QStringLiteral("Other"), 12, 0);
        fixture.pane->setObjectValue(5, 12, 1);
        QCOMPARE(shownIn(fixture, kTable, 1), QStringList({"Desk", "Game"}));
        fixture.pane->setObjectValue(QString(), 12, 1);
        QCOMPARE(shownIn(fixture, kTable, 1), QStringList({"Desk", "Untitled Profile"}));
        QVERIFY(fixture.commandsBecome({}));
    }

    void renamingAnotherRowMakesThatProfileCurrent() {
        ProfilesFixture fixture;
        fixture.pane->setObjectValue(QStringLiteral("Desk"), 12, 1);
        QCOMPARE(fixture.pane->profileIndex(), 1);
        QCOMPARE(shownIn(fixture, kTable, 1), QStringList({"Desk", "Desk 2"}));
    }

    void aDuplicateKeepsEverythingOfItsSourceButTheName() {
        auto tree = PaneFixture::sampleTree();
        profileOf(tree, 1).dictionary("driver").set("application", u"Bild");
        profileOf(tree, 1).dictionary("driver").set("autoswitch", true);
        ProfilesFixture fixture(tree);
        fixture.selectProfile(1);
        QVERIFY(fixture.commandsBecome({"KyPR 1"}));
        chooseInGearMenu(fixture, kGear, 15);
        // The chosen row, the list, and the menu's own.
        QVERIFY(fixture.commandsBecome({"KyPR 1", "KyPR 2", "KyPR 2", "KyPR 2"}));
        const auto saved = fixture.savedSettings();
        auto expected = profileOf(saved, 1);
        expected.set("name", u"Game 2");
        QVERIFY(plist::Value(profileOf(saved, 2)) == plist::Value(expected));
    }

    void aDuplicateIsACopyAndNoSecondNameForItsSource() {
        ProfilesFixture fixture;
        chooseInGearMenu(fixture, kGear, 15);
        fixture.selectTab(4);
        fixture.click("quorviBoxLightOnWheel");
        QVERIFY(fixture.commandsBecome({"KyPR 2", "KyPR 2", "KyPR 2", "KyPR 2"}));
        QCOMPARE(profileOf(fixture.savedSettings(), 0).integer("ledstate"), 3);
        QCOMPARE(profileOf(fixture.savedSettings(), 2).integer("ledstate"), 2);
    }

    void theHeadingSaysHowManyThereAre() {
        ProfilesFixture fixture(treeWithProfiles(4));
        QCOMPARE(fixture.text("textProfileCount"), QStringLiteral("4 of 5"));
        fixture.click("quorviButtonProfileAdd");
        QCOMPARE(fixture.text("textProfileCount"), QStringLiteral("5 of 5"));
    }

    void aProfileWithoutAnApplicationSaysThatItIsForEvery() {
        ProfilesFixture fixture;
        fixture.selectProfile(1);
        const QModelIndex cell = fixture.find<KyvarQuorviTableView>(kTable)->model()->index(1, 2);
        profileOf(fixture.pane->deviceConfig(), 1).dictionary("driver").set("application", u"Editor");
        QCOMPARE(cell.data().toString(), QStringLiteral("Editor"));
        QVERIFY(!cell.data(MarkedCells::mutedRole).toBool());
        QVERIFY(!cell.data(Qt::DecorationRole).value<QIcon>().isNull());
        profileOf(fixture.pane->deviceConfig(), 1).dictionary("driver").set("application", u"");
        QCOMPARE(cell.data().toString(), QStringLiteral("Every application"));
        QVERIFY(cell.data(MarkedCells::mutedRole).toBool());
        QVERIFY(!cell.data(Qt::DecorationRole).isValid());
    }

    void withFiveProfilesNeitherAddNorDuplicateNorImportIsOffered() {
        ProfilesFixture fixture(treeWithProfiles(5));
        QVERIFY(!fixture.isEnabled("quorviButtonProfileAdd"));
        for (const int tag : {11, 15, 12})
            chooseInGearMenu(fixture, kGear, tag);
        fixture.pane->createNewProfile(false);
        fixture.pane->createNewProfile(true);
        QCOMPARE(fixture.pane->deviceConfig().array("profiles").size(), 5U);
        QVERIFY(fixture.commandsBecome({}));
    }

    void removingAsksForTheProfileByItsName() {
        ProfilesFixture fixture;
        fixture.selectProfile(1);
        QString question;
        whenSheetIsUp(fixture.window.get(), "quorviPanelConfirm", [&](QDialog* sheet) {
            question = sheet->findChild<QLabel*>("quorviTextConfirm")->text();
            clickButton(sheet->findChild<QAbstractButton*>("quorviConfirmButtonCancel"));
        });
        fixture.click("quorviButtonProfileRemove");
        QCOMPARE(question,
            QStringLiteral("Delete profile: Game\n\nAre you sure you want to delete this profile?"));
        QVERIFY(fixture.commandsBecome({"KyPR 1"}));
        QCOMPARE(namesIn(fixture.savedSettings(), "profiles"), QStringList({"Desk", "Game"}));
    }

    void removingTheLastRowMakesTheNewLastRowCurrent() {
        ProfilesFixture fixture;
        fixture.selectProfile(1);
        clickInSheet(fixture.window.get(), "quorviPanelConfirm", "quorviConfirmButtonOK");
        fixture.click("quorviButtonProfileRemove");
        QVERIFY(fixture.commandsBecome({"KyPR 1", "KyPR 0", "KyPR 0"}));
        QCOMPARE(namesIn(fixture.savedSettings(), "profiles"), QStringList({"Desk"}));
        QCOMPARE(fixture.pane->profileIndex(), 0);
        QCOMPARE(fixture.selectedRow(kTable), 0);
        QVERIFY(!fixture.isEnabled("quorviButtonProfileRemove"));
    }

    void removingKeepsADatedCopyOfWhatWasThere() {
        ProfilesFixture fixture(ProfilesFixture::sampleTree(), {.keepsCopies = true});
        const History history(fixture.home.path().toStdString() + "/history");
        fixture.selectProfile(1);
        clickInSheet(fixture.window.get(), "quorviPanelConfirm", "quorviConfirmButtonCancel");
        fixture.click("quorviButtonProfileRemove");
        QCOMPARE(history.list().size(), 1U); // that of the day, for the chosen row
        clickInSheet(fixture.window.get(), "quorviPanelConfirm", "quorviConfirmButtonOK");
        fixture.click("quorviButtonProfileRemove");
        const auto copies = history.list();
        QCOMPARE(copies.size(), 2U);
        QVERIFY(copies[0].reason == CopyReason::beforeDeletion);
        QCOMPARE(namesIn(history.read(copies[0]).backup.tree, "profiles"), QStringList({"Desk", "Game"}));
        QCOMPARE(namesIn(fixture.savedSettings(), "profiles"), QStringList({"Desk"}));
    }

    void removingFromTheMiddleMakesTheFollowingProfileCurrent() {
        ProfilesFixture fixture(treeWithProfiles(3));
        fixture.selectProfile(1);
        clickInSheet(fixture.window.get(), "quorviPanelConfirm", "quorviConfirmButtonOK");
        QTest::keyClick(fixture.find<QWidget>(kTable), Qt::Key_Delete);
        QVERIFY(fixture.commandsBecome({"KyPR 1", "KyPR 1"}));
        QCOMPARE(namesIn(fixture.savedSettings(), "profiles"), QStringList({"Desk", "3"}));
        QCOMPARE(fixture.text("quorviTextProfile"), QStringLiteral("3"));
    }

    void removingAProfileClearsTheAssignmentsBeyondTheCountAndShiftsNone() {
        auto tree = treeWithProfiles(3);
        const auto buttons = profileOf(tree, 0).dictionary("buttons");
        for (const int number : {2, 3}) {
            auto assignment = plist::Dictionary::create();
            assignment.set("command", 34);
            assignment.set("param1", number);
            buttons.set(number == 2 ? "04" : "05", assignment);
        }
        ProfilesFixture fixture(tree);
        fixture.selectProfile(1);
        clickInSheet(fixture.window.get(), "quorviPanelConfirm", "quorviConfirmButtonOK");
        fixture.click("quorviButtonProfileRemove");
        QVERIFY(fixture.commandsBecome({"KyPR 1", "KyPR 1"}));
        const auto saved = profileOf(fixture.savedSettings(), 0).dictionary("buttons");
        QCOMPARE(saved.dictionary("04").integer("param1"), 2);
        QCOMPARE(saved.dictionary("05").integer("command"), 0);
        QVERIFY(!saved.dictionary("05").has("param1"));
    }

    void theFirstProfileAndTheOnlyOneAreNeverRemoved() {
        for (const int count : {1, 2}) {
            ProfilesFixture fixture(treeWithProfiles(count));
            fixture.selectProfile(0);
            QVERIFY(!fixture.isEnabled("quorviButtonProfileRemove"));
            fixture.pane->actionButtonProfileRemove();
            QCOMPARE(static_cast<int>(fixture.pane->deviceConfig().array("profiles").size()), count);
        }
    }

    void aMousePluggedInDuringTheQuestionKeepsTheProfileThatWasNotMeant() {
        ProfilesFixture fixture(treeWithProfiles(3));
        fixture.selectProfile(2);
        whenSheetIsUp(fixture.window.get(), "quorviPanelConfirm", [&](QDialog* sheet) {
            auto other = treeWithProfiles(3);
            other.dictionary("settings").set("profileid", 2);
            fixture.writeSettings(other);
            fixture.helper->sendDeviceList(1);
            if (!QTest::qWaitFor([&] { return fixture.pane->profileIndex() == 1; }, kWindowPatienceMs))
                qFatal("the settings are not read");
            clickButton(sheet->findChild<QAbstractButton*>("quorviConfirmButtonOK"));
        });
        fixture.click("quorviButtonProfileRemove");
        QCOMPARE(namesIn(fixture.pane->deviceConfig(), "profiles"), QStringList({"Desk", "Game", "3"}));
    }

    void theSubmenusOfTheButtonsFollowTheList() {
        ProfilesFixture fixture;
        const auto titles = [&] {
            QStringList result;
            auto* item = fixture.find<PopUpButton>("quorviMenuTop3")->itemWithTag(34);
            const auto items = item->menu()->actions();
            for (int index = 2; index < items.size(); ++index)
                result << titleOfItem(*items.at(index));
            return result;
        };
        fixture.click("quorviButtonProfileAdd");
        QCOMPARE(titles(), QStringList({"Desk", "Game", "Untitled Profile"}));
        fixture.pane->setObjectValue(QStringLiteral("Neu"), 12, 2);
        QCOMPARE(titles(), QStringList({"Desk", "Game", "Neu"}));
    }

    void theDisplayBoxIsStoredInTheProfile() {
        ProfilesFixture fixture;
        fixture.click("quorviBoxProfileOSD");
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        const auto saved = fixture.savedSettings();
        QVERIFY(!profileOf(saved, 0).dictionary("driver").boolean("profileosd"));
        QVERIFY(profileOf(saved, 1).dictionary("driver").boolean("profileosd"));
    }

    void aCheckBoxOfAnotherRowMakesThatProfileCurrentWithoutChoosingTheRow() {
        ProfilesFixture fixture;
        auto* view = fixture.find<KyvarQuorviTableView>(kTable);
        QStyleOptionViewItem option;
        option.rect = cellOf(fixture, kTable, 1, 3);
        option.features |= QStyleOptionViewItem::HasCheckIndicator;
        const QRect box = view->style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, view);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, box.center());
        QCOMPARE(fixture.selectedRow(kTable), 0);
        QCOMPARE(fixture.pane->profileIndex(), 1);
        QVERIFY(profileOf(fixture.pane->deviceConfig(), 1).dictionary("driver").boolean("autoswitch"));
        QVERIFY(!profileOf(fixture.pane->deviceConfig(), 0).dictionary("driver").boolean("autoswitch"));
        QVERIFY(fixture.commandsBecome({}));
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, box.center());
        QVERIFY(!profileOf(fixture.pane->deviceConfig(), 1).dictionary("driver").boolean("autoswitch"));
        QVERIFY(fixture.commandsBecome({}));
    }

    void aClickBesideTheBoxChoosesTheRowAndLeavesTheBox() {
        ProfilesFixture fixture;
        auto* view = fixture.find<KyvarQuorviTableView>(kTable);
        const QRect cell = cellOf(fixture, kTable, 1, 3);
        QTest::mouseClick(
            view->viewport(), Qt::LeftButton, {}, cell.center() + QPoint(cell.width() / 2 - 3, 0));
        QCOMPARE(fixture.selectedRow(kTable), 1);
        QCOMPARE(fixture.pane->profileIndex(), 1);
        QVERIFY(!profileOf(fixture.pane->deviceConfig(), 1).dictionary("driver").boolean("autoswitch"));
        QVERIFY(fixture.commandsBecome({"KyPR 1"}));
    }

    void whatIsNotSavedAtOnceIsSavedWhenThePaneIsHidden() {
        ProfilesFixture fixture;
        fixture.pane->setObjectValue(QStringLiteral("Spiel"), 12, 1);
        fixture.pane->setObjectValue(true, 14, 1);
        fixture.pane->willUnselect();
        const auto saved = fixture.savedSettings();
        QCOMPARE(namesIn(saved, "profiles"), QStringList({"Desk", "Spiel"}));
        QVERIFY(profileOf(saved, 1).dictionary("driver").boolean("autoswitch"));
    }
};

QUORVI_PANE_TEST_MAIN(ProfilesEditorTest)
#include "ProfilesEditorTest.moc"
