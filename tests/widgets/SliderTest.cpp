#include <QSignalSpy>
#include <QStyleFactory>

#include <limits>

#include "support/SliderTools.h"
#include "widgets/KyvarQuorviSlider.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;

class SliderTest : public QObject {
    Q_OBJECT

  private slots:
    void init() {
        m_slider = std::make_unique<KyvarQuorviSlider>();
        m_slider->setRange(100, 6475);
        m_slider->setSingleStep(25);
        m_slider->setPageStep(250);
        m_slider->setValue(1500);
        m_slider->resize(300, 30);
        m_slider->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_slider.get()));
    }

    void cleanup() { m_slider.reset(); }

    void dragEndsOnAWholeStepAndIsAnnouncedOnce() {
        QSignalSpy ended(m_slider.get(), &KyvarQuorviSlider::mouseDownEnded);
        QSignalSpy chosen(m_slider.get(), &KyvarQuorviSlider::valueChosen);
        QTest::mousePress(m_slider.get(), Qt::LeftButton, {}, handle());
        for (int x = handle().x(); x < 240; x += 7) {
            dragTo(QPoint(x, handle().y()));
            QCOMPARE((m_slider->value() - 100) % 25, 0);
        }
        QCOMPARE(ended.count(), 0);
        QTest::mouseRelease(m_slider.get(), Qt::LeftButton, {}, QPoint(240, handle().y()));
        QCOMPARE(ended.count(), 1);
        QVERIFY(m_slider->value() > 3000);
        QVERIFY(chosen.count() > 1);
        QCOMPARE(chosen.last().first().toInt(), m_slider->value());
    }

    void clickWithoutADragEndsToo() {
        QSignalSpy ended(m_slider.get(), &KyvarQuorviSlider::mouseDownEnded);
        QTest::mouseClick(m_slider.get(), Qt::LeftButton, {}, handle());
        QCOMPARE(ended.count(), 1);
        QCOMPARE(m_slider->value(), 1500);
    }

    void otherButtonDoesNotEnd() {
        QSignalSpy ended(m_slider.get(), &KyvarQuorviSlider::mouseDownEnded);
        QTest::mouseClick(m_slider.get(), Qt::RightButton, {}, handle());
        QTest::mouseRelease(m_slider.get(), Qt::LeftButton, {}, handle());
        QCOMPARE(ended.count(), 0);
    }

    void keysMoveByWholeSteps_data() {
        QTest::addColumn<int>("from");
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<int>("to");
        QTest::newRow("right") << 1500 << Qt::Key_Right << 1525;
        QTest::newRow("left") << 1500 << Qt::Key_Left << 1475;
        QTest::newRow("page up") << 1500 << Qt::Key_PageUp << 1750;
        QTest::newRow("page down") << 1500 << Qt::Key_PageDown << 1250;
        QTest::newRow("home") << 1500 << Qt::Key_Home << 100;
        QTest::newRow("end") << 1500 << Qt::Key_End << 6475;
        QTest::newRow("right from between, low") << 803 << Qt::Key_Right << 825;
        QTest::newRow("right from between, high") << 820 << Qt::Key_Right << 825;
        QTest::newRow("left from between, low") << 803 << Qt::Key_Left << 800;
        QTest::newRow("left from between, high") << 820 << Qt::Key_Left << 800;
        QTest::newRow("page up to the end") << 6400 << Qt::Key_PageUp << 6475;
        QTest::newRow("page down to the end") << 125 << Qt::Key_PageDown << 100;
    }

    void keysMoveByWholeSteps() {
        QFETCH(int, from);
        QFETCH(Qt::Key, key);
        QFETCH(int, to);
        QSignalSpy chosen(m_slider.get(), &KyvarQuorviSlider::valueChosen);
        m_slider->setValue(from);
        QTest::keyClick(m_slider.get(), key);
        QCOMPARE(m_slider->value(), to);
        QCOMPARE(chosen.count(), 1);
        QCOMPARE(chosen.first().first().toInt(), to);
    }

    void keyAtTheEndAnnouncesNothingThenOrLater() {
        QSignalSpy chosen(m_slider.get(), &KyvarQuorviSlider::valueChosen);
        m_slider->setValue(6475);
        QTest::keyClick(m_slider.get(), Qt::Key_Right);
        m_slider->setValue(400);
        QCOMPARE(chosen.count(), 0);
    }

    void wheelMovesByWholeSteps() {
        m_slider->setValue(803);
        turnWheel(120);
        QVERIFY(m_slider->value() > 803);
        QCOMPARE((m_slider->value() - 100) % 25, 0);
        turnWheel(-120);
        QCOMPARE((m_slider->value() - 100) % 25, 0);
    }

    void finelyTurnedWheelMovesAsFarAsACoarseOne() {
        turnWheel(120);
        const int coarse = m_slider->value();
        QCOMPARE(coarse, 1500 + 25 * QApplication::wheelScrollLines());
        m_slider->setValue(1500);
        for (int i = 0; i < 16; ++i) {
            turnWheel(120 / 8);
            QCOMPARE((m_slider->value() - 100) % 25, 0);
        }
        QCOMPARE(m_slider->value(), 1500 + 2 * (coarse - 1500));
    }

    void wheelTurnedBackStartsAfresh() {
        turnWheel(30);
        m_slider->setValue(1500);
        turnWheel(-30);
        turnWheel(30);
        QCOMPARE(m_slider->value(), 1500);
    }

    void wheelWithControlMovesByAPage() {
        turnWheel(120, Qt::ControlModifier);
        QCOMPARE(m_slider->value(), 1750);
        turnWheel(-120, Qt::ShiftModifier);
        QCOMPARE(m_slider->value(), 1500);
    }

    void wheelStopsAtTheEnds() {
        for (const auto& [start, angle] : {std::pair(6450, 1200), std::pair(125, -1200)}) {
            m_slider->setValue(start);
            turnWheel(angle);
            QCOMPARE(m_slider->value(), angle > 0 ? 6475 : 100);
        }
    }

    void dragEndsOnceWhenTheSliderCannotBeDraggedAnyMore_data() {
        QTest::addColumn<QString>("how");
        for (const char* how : {"released", "hidden", "disabled", "window without focus", "deleted"})
            QTest::newRow(how) << how;
    }

    void dragEndsOnceWhenTheSliderCannotBeDraggedAnyMore() {
        QFETCH(QString, how);
        int began = 0;
        int ended = 0;
        connect(m_slider.get(), &KyvarQuorviSlider::mouseDownBegan, this, [&] { ++began; });
        connect(m_slider.get(), &KyvarQuorviSlider::mouseDownEnded, this, [&] { ++ended; });
        QTest::mousePress(m_slider.get(), Qt::LeftButton, {}, handle());
        QCOMPARE(began, 1);
        dragTo(QPoint(200, handle().y()));
        QCOMPARE(ended, 0);
        if (how == "hidden")
            m_slider->hide();
        else if (how == "disabled")
            m_slider->setEnabled(false);
        else if (how == "window without focus") {
            QEvent away(QEvent::WindowDeactivate);
            QApplication::sendEvent(m_slider.get(), &away);
        } else if (how == "deleted")
            m_slider.reset();
        if (how != "released")
            QCOMPARE(ended, 1);
        if (m_slider)
            QTest::mouseRelease(m_slider.get(), Qt::LeftButton, {}, QPoint(200, 15));
        QCOMPARE(began, 1);
        QCOMPARE(ended, 1);
    }

    void valueOfTheProgramStaysAsItIsAndIsNotAnnounced() {
        QSignalSpy chosen(m_slider.get(), &KyvarQuorviSlider::valueChosen);
        QSignalSpy ended(m_slider.get(), &KyvarQuorviSlider::mouseDownEnded);
        m_slider->setValue(812);
        QCOMPARE(m_slider->value(), 812);
        QCOMPARE(chosen.count(), 0);
        QCOMPARE(ended.count(), 0);
    }

    void nearestStepStaysInTheRange() {
        QCOMPARE(m_slider->nearestStep(812), 800);
        QCOMPARE(m_slider->nearestStep(813), 825);
        QCOMPARE(m_slider->nearestStep(-50), 100);
        QCOMPARE(m_slider->nearestStep(9000), 6475);
        m_slider->setRange(100, 160);
        QCOMPARE(m_slider->nearestStep(160), 150);
    }

    void floatValueKeepsHundredths() {
        m_slider->setRange(100, 1000);
        m_slider->setValuesPerUnit(100);
        m_slider->setFloatValue(4.99F);
        QCOMPARE(m_slider->value(), 499);
        QCOMPARE(m_slider->floatValue(), 4.99F);
        m_slider->setFloatValue(5.0F);
        QCOMPARE(m_slider->floatValue(), 5.0F);
    }

    void floatValueOutsideTheRangeIsTheNearestEnd() {
        m_slider->setRange(100, 1000);
        m_slider->setValuesPerUnit(100);
        m_slider->setFloatValue(0.5F);
        QCOMPARE(m_slider->floatValue(), 1.0F);
        m_slider->setFloatValue(1e30F);
        QCOMPARE(m_slider->floatValue(), 10.0F);
        m_slider->setFloatValue(-1e30F);
        QCOMPARE(m_slider->floatValue(), 1.0F);
        m_slider->setFloatValue(std::numeric_limits<float>::quiet_NaN());
        QCOMPARE(m_slider->floatValue(), 1.0F);
    }

    void scaleIsAtLeastOne() {
        m_slider->setValuesPerUnit(0);
        QCOMPARE(m_slider->valuesPerUnit(), 1);
        QCOMPARE(m_slider->floatValue(), 1500.0F);
    }

    void theHandleIsWholeInEachStyle_data() {
        QTest::addColumn<QString>("style");
        for (const QString& style : QStyleFactory::keys())
            QTest::newRow(qPrintable(style)) << style;
    }
    void theHandleIsWholeInEachStyle() {
        QFETCH(QString, style);
        const std::unique_ptr<QStyle> own(QStyleFactory::create(style));
        for (const auto ticks : {QSlider::NoTicks, QSlider::TicksBelow, QSlider::TicksAbove}) {
            KyvarQuorviSlider slider;
            slider.setStyle(own.get());
            slider.setTickPosition(ticks);
            for (const QSize size : {slider.sizeHint(), slider.minimumSizeHint()}) {
                slider.resize(300, size.height());
                const QRect handle = test::handleRectangle(slider);
                QVERIFY2(handle.top() >= 0 && handle.bottom() < slider.height(),
                    qPrintable(QString("%1 to %2 of %3")
                                   .arg(handle.top())
                                   .arg(handle.bottom())
                                   .arg(slider.height())));
            }
        }
    }

  private:
    [[nodiscard]] QPoint handle() const { return test::handleOf(*m_slider); }
    void dragTo(QPoint place) { test::dragTo(*m_slider, place); }
    void turnWheel(int angle, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        test::turnWheel(*m_slider, angle, modifiers);
    }

    std::unique_ptr<KyvarQuorviSlider> m_slider;
};

QUORVI_WIDGET_TEST_MAIN(SliderTest)
#include "SliderTest.moc"
