// Mouse buttons, delete keys and context menus of the four tables.

#include <QCheckBox>

#include "pane/ListTools.h"
#include "pane/PaneTestMain.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr const char* kProfiles = "quorviTableProfiles";
constexpr const char* kMacros = "quorviTableMacros";

/// Answers every question of a table as it is told to, and writes it down.
class WritingDelegate : public TableDelegate {
  public:
    bool handleMouseEvent(const QMouseEvent&, int type, KyvarQuorviTableView*) override {
        types << type;
        return takesMouse;
    }
    void handleKeyPressed(char16_t key, KyvarQuorviTableView*, int row) override {
        keys << key;
        rows << row;
    }
    bool takesMouse = false;
    QList<int> types;
    QList<int> keys;
    QList<int> rows;
};

class TabFixture : public PaneFixture {
  public:
    explicit TabFixture(int tab, const plist::Dictionary& tree = sampleTree()) {
        openWith(tree);
        selectTab(tab);
        window->resize(900, 700);
        QCoreApplication::processEvents();
    }
};

} // namespace

class TableEventsTest : public QObject {
    Q_OBJECT

  private slots:
    void aCellThatWentWithTheMouseCanDoNothingAndTakesNothing() {
        TabFixture fixture(2);
        auto* model = fixture.find<KyvarQuorviTableView>(kProfiles)->model();
        QVERIFY(model->flags(model->index(1, 1)) & Qt::ItemIsEditable);
        // As a view has it whose rows are gone when it asks.
        QCOMPARE(model->flags(QModelIndex()), Qt::ItemFlags(Qt::NoItemFlags));
        QVERIFY(!model->setData(QModelIndex(), QStringLiteral("Name"), Qt::EditRole));
        QCOMPARE(namesIn(fixture.pane->deviceConfig(), "profiles"), QStringList({"Desk", "Game"}));
    }

    void everyMouseButtonIsOfferedWithItsTypeBeforeTheTableActs() {
        TabFixture fixture(2);
        auto* table = fixture.find<KyvarQuorviTableView>(kProfiles);
        WritingDelegate delegate;
        table->setDelegate(&delegate);
        const QPoint spot = cellOf(fixture, kProfiles, 1, 0).center();
        for (const Qt::MouseButton button :
            {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton, Qt::BackButton, Qt::ForwardButton})
            QTest::mouseClick(table->viewport(), button, {}, spot);
        QCOMPARE(delegate.types, QList<int>({1, 2, 3, 4, 25, 26, 25, 26, 25, 26}));
        QCOMPARE(table->selectedRow(), 1);
    }

    void aDoubleClickIsOfferedAsOneMorePress() {
        TabFixture fixture(2);
        auto* table = fixture.find<KyvarQuorviTableView>(kProfiles);
        WritingDelegate delegate;
        delegate.takesMouse = true;
        table->setDelegate(&delegate);
        const QPoint spot = cellOf(fixture, kProfiles, 1, 0).center();
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, spot);
        QTest::mouseDClick(table->viewport(), Qt::LeftButton, {}, spot);
        QCOMPARE(delegate.types, QList<int>({1, 2, 1}));
    }

    void anEventThatTheDelegateTakesDoesNotReachTheTable() {
        TabFixture fixture(2);
        auto* table = fixture.find<KyvarQuorviTableView>(kProfiles);
        WritingDelegate delegate;
        delegate.takesMouse = true;
        table->setDelegate(&delegate);
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, cellOf(fixture, kProfiles, 1, 0).center());
        rightClick(fixture, kProfiles, 1);
        QCOMPARE(table->selectedRow(), 0);
        QVERIFY(!QApplication::activePopupWidget());
    }

    void withoutADelegateMouseButtonsDoNothing() {
        TabFixture fixture(2);
        auto* table = fixture.find<KyvarQuorviTableView>(kProfiles);
        table->setDelegate(nullptr);
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, cellOf(fixture, kProfiles, 1, 0).center());
        QCOMPARE(table->selectedRow(), 0);
    }

    void aDisabledTableOffersMouseButtonsToo() {
        TabFixture fixture(2);
        auto* table = fixture.find<KyvarQuorviTableView>(kProfiles);
        WritingDelegate delegate;
        table->setDelegate(&delegate);
        table->setEnabled(false);
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, cellOf(fixture, kProfiles, 1, 0).center());
        QCOMPARE(delegate.types, QList<int>({1, 2}));
        QCOMPARE(table->selectedRow(), 0);
    }

    void theDeleteKeysAreOfferedAndOthersAreNot() {
        TabFixture fixture(2);
        auto* table = fixture.find<KyvarQuorviTableView>(kProfiles);
        WritingDelegate delegate;
        table->setDelegate(&delegate);
        for (const int key : {Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Down, Qt::Key_X})
            QTest::keyClick(table, static_cast<Qt::Key>(key));
        QKeyEvent deleteCharacter(QEvent::KeyPress, 0, Qt::NoModifier, QString(QChar(0xF73E)));
        QCoreApplication::sendEvent(table, &deleteCharacter);
        QCOMPARE(delegate.keys, QList<int>({0x7F, 0xF728, 0xF73E}));
        QCOMPARE(delegate.rows, QList<int>({0, 0, 1}));
        QCOMPARE(table->selectedRow(), 1); // the arrow key was the table's own
    }

    void aDisabledTableHandsDeleteKeysOnAndShowsNoMenu() {
        TabFixture fixture(2);
        auto* table = fixture.find<KyvarQuorviTableView>(kProfiles);
        WritingDelegate delegate;
        table->setDelegate(&delegate);
        table->setEnabled(false);
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
        QCoreApplication::sendEvent(table, &press);
        QVERIFY(delegate.keys.isEmpty());
        const QPoint spot = cellOf(fixture, kProfiles, 1, 0).center();
        const QContextMenuEvent event(QContextMenuEvent::Mouse, spot, table->mapToGlobal(spot));
        QVERIFY(!table->menuForEvent(event));
        QCOMPARE(table->selectedRow(), 0);
    }

    void aRightClickChoosesTheRowBeforeTheMenuOpens() {
        TabFixture fixture(2);
        int rowWhenOpen = -2;
        whenMenuIsOpen([&](QMenu* menu) {
            rowWhenOpen = fixture.selectedRow(kProfiles);
            menu->close();
        });
        rightClick(fixture, kProfiles, 1);
        QTRY_COMPARE(rowWhenOpen, 1);
        QCOMPARE(fixture.pane->profileIndex(), 1);
        QVERIFY(fixture.commandsBecome({"KyPR 1"}));
    }

    void aRightClickBelowTheLastRowChoosesNone() {
        TabFixture fixture(3);
        fixture.selectRow(kMacros, 1);
        int rowWhenOpen = -2;
        whenMenuIsOpen([&](QMenu* menu) {
            rowWhenOpen = fixture.selectedRow(kMacros);
            menu->close();
        });
        rightClick(fixture, kMacros, -1);
        QTRY_COMPARE(rowWhenOpen, -1);
        QCOMPARE(fixture.pane->macroIndex(), -1);
    }

    void theMenuIsForTheRowUnderThePointerWithoutAPressToo() {
        TabFixture fixture(2);
        auto* table = fixture.find<KyvarQuorviTableView>(kProfiles);
        const QPoint spot = cellOf(fixture, kProfiles, 1, 0).center();
        const QContextMenuEvent event(QContextMenuEvent::Mouse, spot, table->viewport()->mapToGlobal(spot));
        QVERIFY(table->menuForEvent(event));
        QCOMPARE(table->selectedRow(), 1);
    }

    void whereNoRowIsChosenTheArrowKeysBeginAtTheTop() {
        TabFixture fixture(3);
        auto* table = fixture.find<KyvarQuorviTableView>(kMacros);
        fixture.selectRow(kMacros, 1);
        table->deselectAll();
        QTest::keyClick(table, Qt::Key_Down);
        QCOMPARE(table->selectedRow(), 0);
    }

    void theMenuKeyOpensTheMenuForTheChosenRow() {
        TabFixture fixture(2);
        auto* table = fixture.find<KyvarQuorviTableView>(kProfiles);
        table->setFocus();
        bool opened = false;
        whenMenuIsOpen([&](QMenu* menu) {
            opened = true;
            menu->close();
        });
        QContextMenuEvent event(
            QContextMenuEvent::Keyboard, QPoint(5, 300), table->mapToGlobal(QPoint(5, 300)));
        QCoreApplication::sendEvent(table->viewport(), &event);
        QTRY_VERIFY(opened);
        QCOMPARE(table->selectedRow(), 0);
    }

    void aContextMenuActsOnTheRowUnderThePointer() {
        TabFixture fixture(2);
        clickItemWhenOpen(15);
        rightClick(fixture, kProfiles, 1);
        QTRY_COMPARE(shownIn(fixture, kProfiles, 1), QStringList({"Desk", "Game", "Game 2"}));
    }

    void deleteKeysInTheProfilesTableAskFirst() {
        for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_Delete}) {
            TabFixture fixture(2);
            fixture.selectRow(kProfiles, 1);
            clickInSheet(fixture.window.get(), "quorviPanelConfirm", "quorviConfirmButtonOK");
            QTest::keyClick(fixture.find<QWidget>(kProfiles), key);
            QCOMPARE(namesIn(fixture.savedSettings(), "profiles"), QStringList({"Desk"}));
        }
    }

    void withoutADeviceTablesAreEmptyAndChoicesIgnored() {
        TabFixture fixture(2);
        fixture.connectDevices(0);
        for (const char* table : {kProfiles, kMacros, "quorviTableSteps"})
            QCOMPARE(fixture.find<KyvarQuorviTableView>(table)->model()->rowCount(), 0);
        const int before = fixture.pane->profileIndex();
        fixture.pane->tableViewSelectionDidChange(fixture.find<KyvarQuorviTableView>(kProfiles));
        fixture.pane->tableViewSelectionDidChange(fixture.find<KyvarQuorviTableView>(kMacros));
        QCOMPARE(fixture.pane->profileIndex(), before);
        QVERIFY(fixture.commandsBecome({}));
    }

    void aLetterTypedByChanceEditsNothing() {
        TabFixture fixture(2);
        auto* table = fixture.find<KyvarQuorviTableView>(kProfiles);
        table->setCurrentIndex(table->model()->index(1, 1)); // where the name stands
        QTest::keyClicks(table, QStringLiteral("x"));
        QVERIFY(!cellEditor(fixture, kProfiles));
    }

    void anUnknownMenuItemSavesAndDoesNothingElse() {
        TabFixture fixture(2);
        QAction item;
        setTagOfItem(item, 99);
        fixture.pane->actionMenuTableContext(&item);
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QVERIFY(plist::Value(fixture.savedSettings()) == plist::Value(PaneFixture::sampleTree()));
    }

    void restoringDefaultsFromTheMenuAsksFirst() {
        TabFixture fixture(2);
        clickInSheet(fixture.window.get(), "quorviPanelConfirm", "quorviConfirmButtonCancel");
        chooseInGearMenu(fixture, "quorviButtonProfileGear", 18);
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QVERIFY(plist::Value(fixture.savedSettings()) == plist::Value(PaneFixture::sampleTree()));
    }

    void theRecordItemsStartAndStopARecordingAndLeaveTheSavingToItsEnd() {
        TabFixture fixture(3);
        fixture.selectRow(kMacros, 0);
        chooseInGearMenu(fixture, "quorviButtonStepGear", 31);
        QVERIFY(fixture.pane->isRecordingMacro());
        QVERIFY(fixture.commandsBecome({"KyDM 1"}));
        QAction item;
        setTagOfItem(item, 31);
        fixture.pane->actionMenuTableContext(&item);
        QVERIFY(!fixture.pane->isRecordingMacro());
        QVERIFY(fixture.commandsBecome({"KyDM 1", "KyDM 0", "KyPR 0"}));
    }
};

QUORVI_PANE_TEST_MAIN(TableEventsTest)
#include "TableEventsTest.moc"
