// What the macros type, in their list.
#include <QAccessible>
#include <QHeaderView>
#include <QTest>
#include <QTextDocument>

#include "pane/MacroFixture.h"
#include "pane/PaneTestMain.h"
#include "support/Accessible.h"
#include "widgets/TwoLineCells.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr const char* kMacrosTable = "quorviTableMacros";

QStringList hi() {
    return {stepAsText(1, 0x0B, 0), stepAsText(0, 0x0B, 0), stepAsText(1, 0x0C, 0), stepAsText(0, 0x0C, 0)};
}

QModelIndex macroCell(const PaneFixture& panel, int row) {
    return panel.find<KyvarQuorviTableView>(kMacrosTable)->model()->index(row, 0);
}
QString lineOf(const PaneFixture& panel, int row) {
    return macroCell(panel, row).data(TwoLineCells::secondLineRole).toString();
}

} // namespace

class TypedLinesTest : public QObject {
    Q_OBJECT

  private slots:
    void theLineSaysWhatTheMacroTypes() {
        const MacroFixture panel(hi());
        QCOMPARE(lineOf(panel, 0), QStringLiteral("hi"));
        QCOMPARE(macroCell(panel, 0).data(Qt::ToolTipRole).toString(), QStringLiteral("Types: hi"));
    }

    void anEmptyMacroSaysSo() {
        const MacroFixture panel;
        QCOMPARE(lineOf(panel, 0), QStringLiteral("Nothing yet"));
        QCOMPARE(
            macroCell(panel, 0).data(Qt::ToolTipRole).toString(), QStringLiteral("It types nothing yet."));
    }

    void screenReadersHearItAsTheDescription() {
        const MacroFixture panel(hi());
        auto* list = QAccessible::queryAccessibleInterface(panel.find<KyvarQuorviTableView>(kMacrosTable));
        auto* cell = list->tableInterface()->cellAt(0, 0);
        QCOMPARE(cell->text(QAccessible::Description), QStringLiteral("Types: hi"));
        QVERIFY(!cell->text(QAccessible::Name).contains(QStringLiteral("hi\n")));
    }

    void itFollowsTheSteps() {
        const MacroFixture panel(hi());
        panel.selectStep(0);
        panel.click("quorviButtonStepRemove");
        panel.click("quorviButtonStepRemove");
        QCOMPARE(lineOf(panel, 0), QStringLiteral("i"));
        panel.pane->actionButtonUndo();
        panel.pane->actionButtonUndo();
        QCOMPARE(lineOf(panel, 0), QStringLiteral("hi"));
    }

    void whatLooksLikeMarkupIsNone() {
        const MacroFixture panel({stepAsText(1, 0xE1, 0), stepAsText(1, 0x36, 0), stepAsText(0, 0x36, 0),
            stepAsText(0, 0xE1, 0), stepAsText(1, 0x05, 0), stepAsText(0, 0x05, 0), stepAsText(1, 0xE1, 0),
            stepAsText(1, 0x37, 0), stepAsText(0, 0x37, 0), stepAsText(0, 0xE1, 0)});
        QCOMPARE(lineOf(panel, 0), QStringLiteral("<b>"));
        QVERIFY(!Qt::mightBeRichText(macroCell(panel, 0).data(Qt::ToolTipRole).toString()));
    }

    void aNameIsStillEdited() {
        const MacroFixture panel(hi());
        panel.find<KyvarQuorviTableView>(kMacrosTable)->editCell(0, 0);
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Greeting"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QTRY_COMPARE(macroCell(panel, 0).data().toString(), QStringLiteral("Greeting"));
        QCOMPARE(lineOf(panel, 0), QStringLiteral("hi"));
    }

    void rowsAreHighEnoughForBothLines() {
        const MacroFixture panel(hi());
        const auto* table = panel.find<KyvarQuorviTableView>(kMacrosTable);
        QVERIFY(table->rowHeight(0) >= TwoLineCells::heightOfLines(table->font()));
    }
};

QUORVI_PANE_TEST_MAIN(TypedLinesTest)
#include "TypedLinesTest.moc"
