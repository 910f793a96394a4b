// Texts that become steps, in the sheet and in the list.
#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include "pane/MacroFixture.h"
#include "pane/PaneTestMain.h"
#include "resources/MenuTags.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

QStringList steps(const std::vector<std::pair<int, int>>& keys, int lastDelay = 40) {
    QStringList result;
    for (const auto& [command, usage] : keys)
        result << stepAsText(command, usage, 40);
    result.last() = stepAsText(keys.back().first, keys.back().second, lastDelay);
    return result;
}
const QStringList kA{stepAsText(1, 0x04, 10), stepAsText(0, 0x04, 0)};

/// Types into the sheet as soon as it is open, has what it says and whether it can insert, and clicks.
struct SheetUse {
    QString state;
    bool canInsert = false;
};
SheetUse insertText(const MacroFixture& panel, const QString& text, bool confirm = true) {
    SheetUse use;
    bool done = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        auto* sheet = panel.window->findChild<QDialog*>("quorviPanelInsertText");
        if (!sheet || !sheet->isVisible() || done)
            return;
        done = true;
        sheet->findChild<QPlainTextEdit*>("quorviFieldInsertText")->insertPlainText(text);
        use.state = sheet->findChild<QLabel*>("quorviTextInsertState")->text();
        auto* insert = sheet->findChild<QPushButton*>("quorviInsertTextButtonInsert");
        use.canInsert = insert->isEnabled();
        auto* cancel = sheet->findChild<QPushButton*>("quorviInsertTextButtonCancel");
        QTest::mouseClick(confirm && use.canInsert ? insert : cancel, Qt::LeftButton);
    });
    timer.start(5);
    panel.chooseForSteps(kInsertTextItem);
    if (!QTest::qWaitFor([&] { return done; }, kWindowPatienceMs))
        qFatal("no sheet opens");
    QCoreApplication::processEvents();
    return use;
}

} // namespace

class InsertTextTest : public QObject {
    Q_OBJECT

  private slots:
    void theStepsComeAtTheEnd() {
        const MacroFixture panel(kA);
        const SheetUse use = insertText(panel, QStringLiteral("hi"));
        QCOMPARE(use.state, QStringLiteral("All of it fits. Steps: 4 of 14."));
        QCOMPARE(panel.steps(), kA + steps({{1, 0x0B}, {0, 0x0B}, {1, 0x0C}, {0, 0x0C}}, 0));
        QCOMPARE(panel.savedSteps(), panel.steps());
    }

    void orBehindTheSelectedOne() {
        const MacroFixture panel(kA + kA);
        panel.selectStep(1);
        insertText(panel, QStringLiteral("h"));
        QCOMPARE(panel.steps(), kA + steps({{1, 0x0B}, {0, 0x0B}}) + kA);
        QCOMPARE(panel.find<KyvarQuorviTableView>(kStepsTable)->selectedRows(), (std::vector{2, 3}));
    }

    void oneUndoTakesAllOfItBack() {
        const MacroFixture panel(kA);
        insertText(panel, QStringLiteral("hi"));
        panel.pane->actionButtonUndo();
        QCOMPARE(panel.steps(), kA);
        QCOMPARE(panel.savedSteps(), kA);
    }

    void itSaysHowFarItGoes() {
        const MacroFixture panel;
        QCOMPARE(insertText(panel, QString(), false).state,
            QStringLiteral("Free steps: 16. A character takes two, and Shift two more."));
        QCOMPARE(insertText(panel, QStringLiteral("Hello World"), false).state,
            QStringLiteral("“Hello ” fits. Characters that do not fit: 5."));
        QCOMPARE(panel.steps(), QStringList());
        insertText(panel, QStringLiteral("Hello World"));
        QCOMPARE(panel.steps().size(), 14);
    }

    void itSaysWhatTheLayoutCannotType() {
        const MacroFixture panel;
        const SheetUse use = insertText(panel, QStringLiteral("aéb"), false);
        QCOMPARE(use.state,
            QStringLiteral("All of it fits. Steps: 4 of 16.\nThis keyboard layout cannot type: é"));
        QVERIFY(!insertText(panel, QStringLiteral("é"), false).canInsert);
    }

    void nothingIsInsertedWhenItIsCalledOff() {
        const MacroFixture panel(kA);
        insertText(panel, QStringLiteral("hi"), false);
        QCOMPARE(panel.steps(), kA);
        QVERIFY(!panel.isEnabled("quorviButtonUndo"));
    }

    void aFullMacroTakesNoText() {
        QStringList full;
        for (int count = 0; count < 8; ++count)
            full << kA;
        const MacroFixture panel(full);
        std::optional<bool> isPossible;
        whenMenuIsOpen([&](QMenu* menu) {
            isPossible = itemWithTag(*menu, kInsertTextItem)->isEnabled();
            menu->close();
        });
        panel.click("quorviButtonStepGear");
        QTRY_VERIFY(isPossible.has_value());
        QVERIFY(!*isPossible);
    }
};

QUORVI_PANE_TEST_MAIN(InsertTextTest)
#include "InsertTextTest.moc"
