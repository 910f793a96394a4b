// Names with direction marks, or in the opposite direction of the window's language: they do not change the
// direction of neighbouring text, and are shown in their own. They are stored unchanged.

#include <QAccessible>
#include <QLabel>

#include "pane/ListTools.h"
#include "pane/PaneTestMain.h"
#include "widgets/PopUpButton.h"
#include "widgets/ShownText.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr const char* kProfiles = "quorviTableProfiles";
/// An override that nothing ends: all that follows would be read from the right.
const std::u16string kTurning = u"Fun\u202E\u2067exe";
const QString kPlain = QStringLiteral("Funexe");

plist::Dictionary treeWithTurningNames() {
    const auto tree = PaneFixture::sampleTree();
    for (const char* list : {"profiles", "macros"})
        tree.array(list).dictionary(1).set("name", kTurning);
    tree.array("profiles").dictionary(1).dictionary("driver").set("application", kTurning);
    const auto buttons = tree.array("profiles").dictionary(1).dictionary("buttons");
    const auto assign = [&](const char* input, int command, int param) {
        const auto assignment = plist::Dictionary::create();
        assignment.set("command", command);
        assignment.set("param1", param);
        buttons.set(input, assignment);
    };
    assign("03", 34, 2);
    assign("04", 65, 3);
    tree.dictionary("settings").set("profileid", 2);
    return tree;
}

class TurnedNames : public PaneFixture {
  public:
    TurnedNames() {
        openWith(treeWithTurningNames());
        window->resize(900, 700);
        selectTab(2);
    }
    [[nodiscard]] QString shown(const char* popUp) const { return find<PopUpButton>(popUp)->currentText(); }
};

} // namespace

class TurnedNamesTest : public QObject {
    Q_OBJECT

  private slots:
    void theTitleReadsAsItBegins() {
        TurnedNames fixture;
        QCOMPARE(fixture.text("quorviTextProfile"), kPlain);
    }

    void theTablesDoOnTheScreenAndSpoken() {
        TurnedNames fixture;
        QCOMPARE(shownIn(fixture, kProfiles, 1), QStringList({"Desk", kPlain}));
        QCOMPARE(shownIn(fixture, kProfiles, 2), QStringList({"Every application", kPlain}));
        QCOMPARE(shownIn(fixture, "quorviTableMacros", 0), QStringList({"Hello", kPlain}));
        auto* table = QAccessible::queryAccessibleInterface(fixture.find<QWidget>(kProfiles));
        QVERIFY(table && table->tableInterface());
        QCOMPARE(table->tableInterface()->cellAt(1, 1)->text(QAccessible::Name), kPlain);
    }

    void anEditOfSuchANameStartsWithTheWholeOne() {
        TurnedNames fixture;
        fixture.find<KyvarQuorviTableView>(kProfiles)->editCell(1, 1);
        QVERIFY(waitForCellEditor(fixture, kProfiles));
        QCOMPARE(cellEditor(fixture, kProfiles)->text().toStdU16String(), kTurning);
    }

    void whatAButtonDoesIsNotTurned() {
        TurnedNames fixture;
        QCOMPARE(fixture.shown("quorviMenuTop3"), "Profile: " + kPlain);
        QCOMPARE(fixture.shown("quorviMenuTop4"), "Macro: " + kPlain);
        // and when the menu is there
        auto* popUp = fixture.find<PopUpButton>("quorviMenuTop3");
        QVERIFY(popUp->selectedItem());
        QCOMPARE(shownTitleOfItem(*popUp->selectedItem()), "Profile: " + kPlain);
    }

    void theListsInTheMenusHoldNoMarks() {
        TurnedNames fixture;
        for (const int command : {34, 65}) {
            const QMenu* list = fixture.find<PopUpButton>("quorviMenuTop5")->itemWithTag(command)->menu();
            QCOMPARE(shownTitleOfItem(*list->actions().last()), kPlain);
        }
    }

    void theQuestionIsNotTurned() {
        TurnedNames fixture;
        fixture.selectRow(kProfiles, 1);
        QString question;
        whenSheetIsUp(fixture.window.get(), "quorviPanelConfirm", [&](QDialog* sheet) {
            question = outlet<QLabel>(sheet, "quorviTextConfirm")->text();
            sheet->reject();
        });
        fixture.click("quorviButtonProfileRemove");
        QVERIFY2(question.contains(kPlain), qPrintable(question));
        QVERIFY(!question.contains(QChar(0x202E)) && !question.contains(QChar(0x2067)));
    }

    void aNameFromTheRightIsIsolatedFromWhatStandsBeforeItAndAPlainOneIsAsEver() {
        const QString arabic = QString::fromUtf8("لعبة (2)");
        const auto tree = PaneFixture::sampleTree();
        const auto assignment = plist::Dictionary::create();
        assignment.set("command", 34);
        assignment.set("param1", 2);
        tree.array("profiles").dictionary(0).dictionary("buttons").set("03", assignment);
        for (const QString& name : {arabic, QStringLiteral("Game (2)")}) {
            tree.array("profiles").dictionary(1).set("name", name.toStdU16String());
            PaneFixture fixture;
            fixture.openWith(tree);
            const QString isolated = QChar(0x2068) + name + QChar(0x2069);
            QCOMPARE(fixture.find<PopUpButton>("quorviMenuTop3")->currentText(),
                "Profile: " + (name == arabic ? isolated : name));
            QCOMPARE(shownIn(fixture, kProfiles, 1).last(), name);
        }
    }

    void aSaveKeepsTheNames() {
        TurnedNames fixture;
        fixture.click("quorviBoxProfileOSD");
        QVERIFY(fixture.commandsBecome({"KyPR 1"}));
        QCOMPARE(fixture.savedSettings().array("profiles").dictionary(1).string("name"), kTurning);
    }
};

QUORVI_PANE_TEST_MAIN(TurnedNamesTest)
#include "TurnedNamesTest.moc"
