#include "widgets/StageBar.h"

#include <QAccessible>
#include <QProxyStyle>
#include <QSignalSpy>

#include "widgets/WidgetTestMain.h"

using namespace quorvi;

namespace {

/// A desktop that asks for motion, or for none.
class Motion : public QProxyStyle {
  public:
    explicit Motion(int duration) : m_duration(duration) {}
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
        QStyleHintReturn* data) const override {
        return hint == SH_Widget_Animation_Duration ? m_duration
                                                    : QProxyStyle::styleHint(hint, option, widget, data);
    }

  private:
    int m_duration;
};

QList<StageField> stages(int count) {
    QList<StageField> fields;
    for (int i = 1; i <= count; ++i)
        fields << StageField{QString::number(i * 400), i * 400, i * 400,
            QStringLiteral("Stage %1: %2 DPI").arg(i).arg(i * 400)};
    return fields;
}

} // namespace

/// The cells of the bar are buttons: for the pointer, for keys and for assistive programs.
class StageBarTest : public QObject {
    Q_OBJECT

  private slots:
    void init() {
        m_bar = std::make_unique<StageBar>();
        m_bar->resize(400, 50);
        m_bar->setStages(stages(4), 1);
        m_bar->show();
        m_bar->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_bar.get()));
        m_chosen = std::make_unique<QSignalSpy>(m_bar.get(), &StageBar::stageChosen);
    }
    void cleanup() {
        m_chosen.reset();
        m_bar.reset();
    }

    void aClickChoosesTheCellUnderIt() {
        for (int i = 0; i < 4; ++i) {
            QTest::mouseClick(m_bar.get(), Qt::LeftButton, {}, m_bar->cellOf(i).center());
            QCOMPARE(m_chosen->takeFirst().first().toInt(), i);
        }
        m_bar->setLayoutDirection(Qt::RightToLeft);
        QTest::mouseClick(m_bar.get(), Qt::LeftButton, {}, QPoint(395, 20));
        QCOMPARE(m_chosen->takeFirst().first().toInt(), 0);
    }

    void aPressThatIsLetGoElsewhereChoosesNothing() {
        QTest::mousePress(m_bar.get(), Qt::LeftButton, {}, m_bar->cellOf(0).center());
        QTest::mouseRelease(m_bar.get(), Qt::LeftButton, {}, m_bar->cellOf(2).center());
        QTest::mouseClick(m_bar.get(), Qt::RightButton, {}, m_bar->cellOf(2).center());
        QCOMPARE(m_chosen->count(), 0);
    }

    void arrowsAndReturnChooseACell() {
        m_bar->clearFocus();
        m_bar->setFocus(Qt::TabFocusReason);
        QCOMPARE(m_bar->focusedStage(), 1); // the current one
        QTest::keyClick(m_bar.get(), Qt::Key_Right);
        QTest::keyClick(m_bar.get(), Qt::Key_Return);
        QCOMPARE(m_chosen->takeFirst().first().toInt(), 2);
        QTest::keyClick(m_bar.get(), Qt::Key_End);
        QTest::keyClick(m_bar.get(), Qt::Key_Right); // there is no further one
        QTest::keyClick(m_bar.get(), Qt::Key_Space);
        QCOMPARE(m_chosen->takeFirst().first().toInt(), 3);
        QTest::keyClick(m_bar.get(), Qt::Key_Home);
        QTest::keyClick(m_bar.get(), Qt::Key_Left);
        QTest::keyClick(m_bar.get(), Qt::Key_Enter);
        QCOMPARE(m_chosen->takeFirst().first().toInt(), 0);
        m_bar->setLayoutDirection(Qt::RightToLeft);
        QTest::keyClick(m_bar.get(), Qt::Key_Left); // where the next one is
        QCOMPARE(m_bar->focusedStage(), 1);
    }

    void theCellOfTheKeysIsSeen() {
        m_bar->setFocus(Qt::TabFocusReason);
        const QImage one = m_bar->grab().toImage();
        QTest::keyClick(m_bar.get(), Qt::Key_Right);
        QVERIFY(m_bar->grab().toImage() != one);
    }

    void assistiveProgramsFindButtons() {
        auto* const bar = QAccessible::queryAccessibleInterface(m_bar.get());
        QCOMPARE(bar->role(), QAccessible::List);
        QCOMPARE(bar->childCount(), 4);
        QAccessibleInterface* const cell = bar->child(2);
        QCOMPARE(cell->role(), QAccessible::Button);
        QCOMPARE(cell->text(QAccessible::Name), QStringLiteral("Stage 3: 1200 DPI"));
        QCOMPARE(bar->indexOfChild(cell), 2);
        QVERIFY(!cell->state().checked);
        QVERIFY(bar->child(1)->state().checked);
        QVERIFY(m_bar->cellOf(2).contains(m_bar->mapFromGlobal(cell->rect().center())));
        cell->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(m_chosen->count(), 0); // who presses does not wait for what opens
        QTRY_COMPARE(m_chosen->count(), 1);
        QCOMPARE(m_chosen->takeFirst().first().toInt(), 2);
        m_bar->setEnabled(false);
        cell->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCoreApplication::processEvents();
        QCOMPARE(m_chosen->count(), 0);
        m_bar->setStages(stages(2), 0);
        QCOMPARE(bar->childCount(), 2);
        QVERIFY(!bar->child(2));
    }

    void theGroundMovesToItsNewCellWhereTheDesktopHasMotion() {
        Motion moving(250);
        m_bar->setStyle(&moving);
        m_bar->setStages(stages(4), 3);
        QCOMPARE(m_bar->groundPlace(), 3.0); // at once, unless it is asked for
        m_bar->moveGroundFrom(1);
        QCOMPARE(m_bar->groundPlace(), 1.0);
        bool between = false;
        QTRY_VERIFY((between = between || (m_bar->groundPlace() > 1 && m_bar->groundPlace() < 3),
            m_bar->groundPlace() == 3.0));
        QVERIFY(between);
        m_bar->moveGroundFrom(0);
        m_bar->setStages(stages(4), 2); // chosen meanwhile
        QCOMPARE(m_bar->groundPlace(), 2.0);
        m_bar->setStyle(nullptr);
    }

    void theGroundJumpsWhereTheDesktopAsksForNoMotion() {
        Motion still(0);
        m_bar->setStyle(&still);
        m_bar->setStages(stages(4), 3);
        m_bar->moveGroundFrom(1);
        QCOMPARE(m_bar->groundPlace(), 3.0);
        m_bar->setStyle(nullptr);
    }

    void theCurrentStageIsBold() {
        m_bar->clearFocus();
        const auto widthOfText = [&](int current) {
            m_bar->setStages({{"1600", 0, 0}, {"1600", 0, 0}}, current);
            const QImage image = m_bar->grab().toImage();
            const QRect cell = m_bar->cellOf(0).adjusted(4, 4, -4, -m_bar->height() / 2);
            const QColor ground = image.pixelColor(cell.topLeft());
            int inked = 0;
            for (int x = cell.left(); x < cell.right(); ++x)
                for (int y = cell.top(); y < cell.bottom(); ++y)
                    inked += image.pixelColor(x, y) != ground;
            return inked;
        };
        QVERIFY(widthOfText(0) > widthOfText(1));
    }

    void xStandsBeforeYInAMirroredWindowToo() {
        m_bar->clearFocus();
        m_bar->setStages({{"1 × 2", 0, 0}}, -1);
        const QImage usual = m_bar->grab(QRect(100, 4, 200, 24)).toImage();
        m_bar->setLayoutDirection(Qt::RightToLeft);
        QCOMPARE(m_bar->grab(QRect(100, 4, 200, 24)).toImage(), usual);
    }

  private:
    std::unique_ptr<StageBar> m_bar;
    std::unique_ptr<QSignalSpy> m_chosen;
};

QUORVI_WIDGET_TEST_MAIN(StageBarTest)
#include "StageBarTest.moc"
