// The signs in the pop-ups of the buttons tab, and an input that must keep the only primary click: it shows a
// lock and says why, wherever one asks.

#include <QAccessible>
#include <QHelpEvent>
#include <QToolTip>

#include "pane/AssignmentFixture.h"
#include "pane/PaneTestMain.h"
#include "widgets/InputLabel.h"
#include "widgets/MenuItems.h"
#include "widgets/MouseView.h"
#include "widgets/SymbolIcon.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

const QString kNote = QStringLiteral("only primary click");
const QString kRemedy = QStringLiteral("Give another button the primary click first");

struct ButtonsTab : AssignmentFixture {
    [[nodiscard]] InputLabel* label(int input) const {
        return find<InputLabel>(qPrintable(QStringLiteral("labelInput%1").arg(input)));
    }
    [[nodiscard]] static QString tipOver(QWidget* widget, const QPoint& at) {
        QToolTip::hideText();
        if (!QTest::qWaitFor([] { return !QToolTip::isVisible(); }))
            qFatal("the last tool tip does not go");
        QHelpEvent rest(QEvent::ToolTip, at, widget->mapToGlobal(at));
        QCoreApplication::sendEvent(widget, &rest);
        return QToolTip::text();
    }
    [[nodiscard]] QString tipOverPopUp(int input) const {
        return tipOver(popUp(input), popUp(input)->rect().center());
    }
    [[nodiscard]] QString tipOverNumber(int input) const {
        auto* mouse = find<MouseView>("viewMouse");
        return tipOver(mouse, mouse->middleOfInput(input).toPoint());
    }
    [[nodiscard]] QString spokenOf(int input) const {
        return QAccessible::queryAccessibleInterface(popUp(input))->text(QAccessible::Description);
    }
    /// The input says nothing of a lock.
    [[nodiscard]] bool isFree(int input) const {
        return popUp(input)->symbol() != Symbol::Locked && label(input)->note().isEmpty() &&
               !tipOverPopUp(input).contains(kRemedy) && !tipOverNumber(input).contains(kRemedy) &&
               !spokenOf(input).contains(kRemedy);
    }
};

} // namespace

class InputSignsTest : public QObject {
    Q_OBJECT

  private slots:
    void aFunctionHasItsSign() {
        ButtonsTab tab;
        tab.openWithInput(4, {{"command", 115}});
        QCOMPARE(tab.popUp(4)->symbol(), std::optional(Symbol::Undo));
        QCOMPARE(tab.popUp(2)->symbol(), std::optional(Symbol::ClickRight));
        QVERIFY(!tab.popUp(5)->symbol()); // no function
        choose(tab.popUp(4), {"Media", "Mute"});
        QCOMPARE(tab.popUp(4)->symbol(), std::optional(Symbol::Mute));
        choose(tab.popUp(4), {"No Function"});
        QVERIFY(!tab.popUp(4)->symbol());
    }

    void theSignIsDrawnBeforeTheTitle() {
        ButtonsTab tab;
        tab.openWithInput(4, {{"command", 115}});
        PopUpButton* popUp = tab.popUp(4);
        const QImage with = popUp->grab().toImage();
        popUp->setSymbol(std::nullopt);
        QVERIFY(popUp->grab().toImage() != with);
        popUp->setSymbol(Symbol::Undo);
        QCOMPARE(popUp->grab().toImage(), with);
        QVERIFY(popUp->awaitsMenu()); // nothing was made for it
    }

    void theOnlyPrimaryClickSaysWhyItIsLocked() {
        ButtonsTab tab;
        tab.open();
        QVERIFY(!tab.popUp(1)->isEnabled());
        QCOMPARE(tab.popUp(1)->symbol(), std::optional(Symbol::Locked));
        QCOMPARE(tab.label(1)->note(), kNote);
        QVERIFY(tab.tipOverPopUp(1).contains(kRemedy));
        QVERIFY(tab.tipOverNumber(1).contains(kRemedy));
        QVERIFY(tab.spokenOf(1).contains(kRemedy));
        for (int input = 2; input <= limits::buttons; ++input)
            QVERIFY2(tab.isFree(input), qPrintable(QString::number(input)));
    }

    void aSecondPrimaryClickUnlocks() {
        ButtonsTab tab;
        tab.open();
        const QString usual = tab.spokenOf(2);
        choose(tab.popUp(4), {"Primary Click"});
        QVERIFY(tab.popUp(1)->isEnabled());
        QVERIFY(tab.isFree(1));
        QCOMPARE(tab.spokenOf(1), usual);
        choose(tab.popUp(1), {"Back"});
        QVERIFY(tab.isFree(1));
        QCOMPARE(tab.popUp(4)->symbol(), std::optional(Symbol::Locked)); // any button may be the one
        QCOMPARE(tab.label(4)->note(), kNote);
        QVERIFY(tab.tipOverPopUp(4).contains(kRemedy));
    }

    void aClickOnTheNumberOfALockedInputSaysWhy() {
        ButtonsTab tab;
        tab.open();
        auto* mouse = tab.find<MouseView>("viewMouse");
        QToolTip::hideText();
        QTest::mouseClick(mouse, Qt::LeftButton, {}, mouse->middleOfInput(1).toPoint());
        QTRY_VERIFY(QToolTip::text().contains(kRemedy));
        QVERIFY(!QApplication::activePopupWidget());
    }

    void aNoteIsDrawnWholeOrNotAtAll() {
        InputLabel label;
        label.setText("&1  Left button");
        label.setBuddy(&label);
        label.setNote(kNote);
        const int name = label.sizeHint().width();
        label.resize(name, label.sizeHint().height());
        QVERIFY(!label.showsNote());
        label.resize(3 * name, label.height());
        QVERIFY(label.showsNote());
        const QImage with = label.grab().toImage();
        label.setNote({});
        QVERIFY(label.grab().toImage() != with);
        QCOMPARE(label.sizeHint().width(), name); // no room is kept for it
    }
};

QUORVI_PANE_TEST_MAIN(InputSignsTest)
#include "InputSignsTest.moc"
