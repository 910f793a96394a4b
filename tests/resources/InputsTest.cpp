// The drawing of the mouse with its lines to the pop-ups, in the whole panel and with events of its window.

#include <QMenu>
#include <QWindow>

#include "resources/Interface.h"
#include "widgets/InputLabel.h"
#include "widgets/InputLines.h"
#include "widgets/Metrics.h"
#include "widgets/MouseDrawing.h"
#include "widgets/MouseView.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;

namespace {

constexpr QPoint emptyPlace(110, 235); // on the drawing's sheet: no input is near

QImage shown(QWidget* widget) {
    return widget->grab().toImage();
}

} // namespace

class InputsTest : public QObject {
    Q_OBJECT

  private slots:
    void init() {
        m_view = std::make_unique<QWidget>();
        m_interface = std::make_unique<Interface>(*m_view);
        for (int input = 1; input <= mouseInputs; ++input) {
            auto* menu = new QMenu;
            menu->addAction("Something");
            popUp(input)->setMenu(menu);
        }
        m_view->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
        // Qt 5 ignores a move to where the pointer is, and the test before has left it there.
        QTest::mouseMove(m_view->windowHandle(), QPoint(5, 5));
        QTest::mouseMove(m_view->windowHandle(), QPoint(3, 3));
    }

    void cleanup() {
        m_view.reset();
        m_interface.reset();
    }

    void everyLineEndsAtItsOwnInputAndPopUp_data() { addSizes(); }

    void everyLineEndsAtItsOwnInputAndPopUp() {
        QFETCH(QSize, size);
        resizeTo(size);
        for (int input = 1; input <= mouseInputs; ++input) {
            const QPolygonF line = lines()->lineOf(input);
            const QRectF control(
                popUp(input)->mapTo(lines()->parentWidget(), QPoint()), popUp(input)->size());
            const QPointF middle =
                drawing()->mapTo(lines()->parentWidget(), QPoint()) + drawing()->middleOfInput(input);
            const bool onTheLeft = control.center().x() < middle.x();
            QCOMPARE(line.size(), 3);
            QCOMPARE(
                line.first(), QPointF(onTheLeft ? control.right() : control.left(), control.center().y()));
            QCOMPARE(line.at(1) - line.first(), QPointF(onTheLeft ? metrics::knee : -metrics::knee, 0));
            QVERIFY(qAbs(QLineF(line.last(), middle).length() - drawing()->radiusOfInput()) < 0.01);
        }
        QCOMPARE(lines()->geometry(), lines()->parentWidget()->rect());
    }

    void theDrawingFitsBetweenItsColumns_data() { addSizes(); }

    void theDrawingFitsBetweenItsColumns() {
        QFETCH(QSize, size);
        resizeTo(size);
        QVERIFY(drawing()->rect().contains(drawing()->fromSheet().mapRect(mouseSheet).toRect()));
        for (const int left : {1, 3, 4, 5})
            QVERIFY(popUp(left)->geometry().right() < drawing()->geometry().left());
        for (const int right : {2, 6, 7, 8, 9})
            QVERIFY(popUp(right)->geometry().left() > drawing()->geometry().right());
    }

    void pointingAtAPopUpMarksItsInputAndLine() {
        const QImage plain = shown(drawing());
        const QImage plainLines = shown(lines());
        QTest::mouseMove(m_view->windowHandle(), inWindow(popUp(7), popUp(7)->rect().center()));
        QTRY_VERIFY(marked() == QList<int>{7});
        QVERIFY(shown(drawing()) != plain);
        QVERIFY(shown(lines()) != plainLines);
        QTest::mouseMove(m_view->windowHandle(), QPoint(3, 3));
        QTRY_VERIFY(marked().isEmpty());
        QCOMPARE(shown(drawing()), plain);
        QCOMPARE(shown(lines()), plainLines);
    }

    void pointingAnywhereMarksTheNumberTheNameTheLineAndThePopUp() {
        for (const int input : {4, 9}) {
            auto* name = m_view->findChild<InputLabel*>(QString("labelInput%1").arg(input));
            const QPoint places[] = {inWindow(name, name->rect().center()),
                inWindow(popUp(input), popUp(input)->rect().center()), placeInWindow(input)};
            const QRect around = popUp(input)->geometry().adjusted(-3, -3, 3, 3);
            QTest::mouseMove(m_view->windowHandle(), QPoint(3, 3));
            QTRY_VERIFY(marked().isEmpty());
            const QImage plainName = shown(name);
            const QImage plainFrame = shown(lines()).copy(around);
            for (const QPoint& place : places) {
                QTest::mouseMove(m_view->windowHandle(), place);
                QTRY_VERIFY(marked() == QList<int>{input});
                QVERIFY(name->isMarked());
                QVERIFY(shown(name) != plainName);
                QVERIFY(shown(lines()).copy(around) != plainFrame);
                QTest::mouseMove(m_view->windowHandle(), QPoint(3, 3));
                QTRY_VERIFY(!name->isMarked());
            }
        }
    }

    void theFocusMarksUntilSomethingElseIsPointedAt() {
        QFocusEvent focusIn(QEvent::FocusIn);
        QFocusEvent focusOut(QEvent::FocusOut);
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(popUp(4), &focusIn);
        QCOMPARE(marked(), QList<int>{4});
        QTest::mouseMove(m_view->windowHandle(), placeInWindow(9));
        QTRY_VERIFY(marked() == QList<int>{9});
        QApplication::sendEvent(drawing(), &leave);
        QCOMPARE(marked(), QList<int>{4});
        QApplication::sendEvent(popUp(4), &focusOut);
        QVERIFY(marked().isEmpty());
    }

    void pointingAtAnInputMarksIt() {
        for (int input = 1; input <= mouseInputs; ++input) {
            QTest::mouseMove(m_view->windowHandle(), placeInWindow(input));
            QTRY_VERIFY(marked() == QList<int>{input});
        }
        QTest::mouseMove(m_view->windowHandle(), emptyPlaceInWindow());
        QTRY_VERIFY(marked().isEmpty());
    }

    void aClickOnAnInputOpensItsPopUp() {
        for (const int input : {2, 5, 8}) {
            QTest::mouseClick(drawing(), Qt::LeftButton, {}, drawing()->middleOfInput(input).toPoint());
            QTRY_VERIFY(popUp(input)->menu()->isVisible());
            QVERIFY(m_view->focusWidget() == popUp(input));
            popUp(input)->menu()->close();
        }
        QTest::mouseClick(drawing(), Qt::RightButton, {}, drawing()->middleOfInput(2).toPoint());
        QTest::mouseClick(drawing(), Qt::LeftButton, {}, drawing()->fromSheet().map(emptyPlace));
        QVERIFY(!QApplication::activePopupWidget());
    }

    void realButtonsAreMarkedWhileTheyAreDown_data() {
        QTest::addColumn<int>("button");
        QTest::addColumn<int>("input");
        QTest::newRow("left") << int(Qt::LeftButton) << 1;
        QTest::newRow("right") << int(Qt::RightButton) << 2;
        QTest::newRow("middle") << int(Qt::MiddleButton) << 3;
        QTest::newRow("back") << int(Qt::BackButton) << 4;
        QTest::newRow("forward") << int(Qt::ForwardButton) << 5;
    }

    void realButtonsAreMarkedWhileTheyAreDown() {
        QFETCH(int, button);
        QFETCH(int, input);
        const auto pressed = Qt::MouseButton(button);
        QTest::mouseMove(m_view->windowHandle(), emptyPlaceInWindow());
        QTest::mousePress(m_view->windowHandle(), pressed, {}, emptyPlaceInWindow());
        QTRY_VERIFY(marked() == QList<int>{input});
        QVERIFY(drawing()->marks().isPressed(input));
        QTest::mouseRelease(m_view->windowHandle(), pressed, {}, emptyPlaceInWindow());
        QTRY_VERIFY(marked().isEmpty());
    }

    void aButtonThatComesUpUnseenDoesNotStayMarked() {
        QTest::mousePress(m_view->windowHandle(), Qt::RightButton, {}, emptyPlaceInWindow());
        QTRY_VERIFY(marked() == QList<int>{2});
        QEvent deactivate(QEvent::WindowDeactivate);
        QApplication::sendEvent(m_view.get(), &deactivate);
        QVERIFY(marked().isEmpty());
        QTest::mouseRelease(m_view->windowHandle(), Qt::RightButton, {}, emptyPlaceInWindow());
        QTest::mousePress(m_view->windowHandle(), Qt::RightButton, {}, emptyPlaceInWindow());
        QTRY_VERIFY(marked() == QList<int>{2});
        m_interface->main.quorviTabsMain->setCurrentIndex(1);
        QVERIFY(marked().isEmpty());
        QTest::mouseRelease(m_view->windowHandle(), Qt::RightButton, {}, emptyPlaceInWindow());
    }

    void turningTheWheelOverTheDrawingMarksItForAMoment() {
        for (const int input : {8, 9}) {
            const QPointF place(drawing()->rect().center());
            QWheelEvent turn(place, drawing()->mapToGlobal(place.toPoint()), QPoint(),
                QPoint(0, input == 8 ? 120 : -120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(drawing(), &turn);
            QCOMPARE(marked(), QList<int>{input});
            QVERIFY(!turn.isAccepted());
        }
        QTRY_VERIFY(marked().isEmpty());
    }

    void lightsAreDrawnAsTheyAreSet() {
        const auto part = [&](const QRectF& onSheet) {
            return shown(drawing()).copy(drawing()->fromSheet().mapRect(onSheet).toAlignedRect());
        };
        const QImage darkWheel = part(wheelLight());
        const QImage darkBattery = part(batteryLight());
        drawing()->setLights(true, false);
        QVERIFY(part(wheelLight()) != darkWheel);
        QCOMPARE(part(batteryLight()), darkBattery);
        drawing()->setLights(false, true);
        QCOMPARE(part(wheelLight()), darkWheel);
        QVERIFY(part(batteryLight()) != darkBattery);
    }

    void withoutAMouseNothingIsMarked() {
        drawing()->setEnabled(false);
        const QImage plain = shown(drawing());
        const QImage plainLines = shown(lines());
        drawing()->marks().set(3, InputMarks::Pressed, true);
        QCOMPARE(shown(drawing()), plain);
        QCOMPARE(shown(lines()), plainLines);
        drawing()->setEnabled(true);
        QVERIFY(shown(drawing()) != plain);
        QVERIFY(shown(lines()) != plainLines);
    }

    void numbersOutsideAreNoInputs() {
        for (const int none : {-1, 0, 10}) {
            drawing()->marks().set(none, InputMarks::Pressed, true);
            QVERIFY(!drawing()->marks().isMarked(none));
        }
        QVERIFY(marked().isEmpty());
    }

  private:
    static void addSizes() {
        QTest::addColumn<QSize>("size");
        QTest::newRow("as it opens") << QSize(760, 560);
        QTest::newRow("small screen") << QSize(1024, 600);
        QTest::newRow("large") << QSize(1600, 1000);
    }

    MouseView* drawing() { return m_interface->main.viewMouse; }
    InputLines* lines() { return m_view->findChild<InputLines*>(); }
    PopUpButton* popUp(int input) {
        return m_view->findChild<PopUpButton*>(QString("quorviMenuTop%1").arg(input));
    }

    void resizeTo(const QSize& size) {
        m_view->resize(size);
        QTRY_COMPARE(m_view->size(), size);
        QCoreApplication::processEvents();
    }

    QList<int> marked() {
        QList<int> inputs;
        for (int input = 1; input <= mouseInputs; ++input) {
            if (drawing()->marks().isMarked(input))
                inputs << input;
        }
        return inputs;
    }

    QPoint inWindow(QWidget* widget, const QPoint& point) { return widget->mapTo(m_view.get(), point); }
    QPoint placeInWindow(int input) { return inWindow(drawing(), drawing()->middleOfInput(input).toPoint()); }
    QPoint emptyPlaceInWindow() { return inWindow(drawing(), drawing()->fromSheet().map(emptyPlace)); }

    std::unique_ptr<QWidget> m_view;
    std::unique_ptr<Interface> m_interface;
};

QUORVI_WIDGET_TEST_MAIN(InputsTest)
#include "InputsTest.moc"
