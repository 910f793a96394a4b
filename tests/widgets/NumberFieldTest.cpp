#include "widgets/NumberField.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "widgets/KyvarQuorviSlider.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;

/// A number beside a slider, which is one control with it.
class NumberFieldTest : public QObject {
    Q_OBJECT

  private slots:
    void noButtonHidesBehindTheNumberOfAMirroredField_data() {
        QTest::addColumn<QString>("style");
        for (const char* style : {"fusion", "adwaita"})
            QTest::newRow(style) << style;
    }
    void noButtonHidesBehindTheNumberOfAMirroredField() {
        QFETCH(QString, style);
        const QString usual = QApplication::style()->objectName();
        if (!QApplication::setStyle(style))
            QFAIL("the style is not installed");
        m_window->setLayoutDirection(Qt::RightToLeft);
        m_window->adjustSize();
        QStyleOptionSpinBox option;
        option.initFrom(m_field);
        option.buttonSymbols = m_field->buttonSymbols();
        option.frame = m_field->hasFrame();
        const auto part = [&](QStyle::SubControl control) {
            return m_field->style()->subControlRect(QStyle::CC_SpinBox, &option, control, m_field);
        };
        const QRect number = m_field->findChild<QLineEdit*>()->geometry();
        const bool covers = number.intersects(part(QStyle::SC_SpinBoxUp).adjusted(2, 0, -2, 0)) ||
                            number.intersects(part(QStyle::SC_SpinBoxDown).adjusted(2, 0, -2, 0));
        QApplication::setStyle(usual);
        QVERIFY(!covers);
    }

    void init() {
        m_window = std::make_unique<QWidget>();
        auto* layout = new QVBoxLayout(m_window.get());
        m_slider = new KyvarQuorviSlider;
        m_slider->setRange(100, 6475);
        m_slider->setSingleStep(25);
        m_slider->setPageStep(250);
        m_slider->setValue(1500);
        m_field = new NumberField;
        m_field->setFormat(QStringLiteral("%d DPI"));
        m_field->join(*m_slider);
        layout->addWidget(m_slider);
        layout->addWidget(m_field);
        m_window->show();
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        m_slider->setFocus();
        m_chosen = std::make_unique<QSignalSpy>(m_slider, &KyvarQuorviSlider::valueChosen);
    }
    void cleanup() {
        m_chosen.reset();
        m_window.reset();
    }

    void hasTheSlidersRangeStepAndValue() {
        QCOMPARE(m_field->minimum(), 100);
        QCOMPARE(m_field->maximum(), 6475);
        QCOMPARE(m_field->singleStep(), 25);
        QCOMPARE(m_field->text(), QStringLiteral("1500 DPI"));
        m_slider->setValue(812); // by the program, between two steps
        QCOMPARE(m_field->text(), QStringLiteral("812 DPI"));
        QCOMPARE(m_chosen->count(), 0);
    }

    void aTypedNumberIsChosenOnceWhenItIsWhole() {
        type("2400");
        QCOMPARE(m_chosen->count(), 0);
        QTest::keyClick(m_field, Qt::Key_Return);
        QCOMPARE(m_slider->value(), 2400);
        QCOMPARE(m_chosen->count(), 1);
        m_slider->setFocus();
        QCOMPARE(m_chosen->count(), 1);
    }

    void leavingTheFieldChoosesWhatWasTyped() {
        type("800");
        m_slider->setFocus();
        QCOMPARE(m_slider->value(), 800);
        QCOMPARE(m_chosen->count(), 1);
    }

    void whatTheSliderCannotGiveBecomesItsNearestStep() {
        type("812");
        QTest::keyClick(m_field, Qt::Key_Return);
        QCOMPARE(m_slider->value(), 800);
        QCOMPARE(m_field->text(), QStringLiteral("800 DPI"));
        type("50");
        QTest::keyClick(m_field, Qt::Key_Return);
        QCOMPARE(m_field->text(), QStringLiteral("100 DPI"));
        type("813");
        QTest::keyClick(m_field, Qt::Key_Return);
        QCOMPARE(m_field->text(), QStringLiteral("825 DPI"));
    }

    void arrowsMoveTheSliderByItsSteps() {
        m_field->setFocus();
        QTest::keyClick(m_field, Qt::Key_Up);
        QCOMPARE(m_slider->value(), 1525);
        QTest::keyClick(m_field, Qt::Key_PageDown);
        QCOMPARE(m_slider->value(), 1275);
        QCOMPARE(m_field->text(), QStringLiteral("1275 DPI"));
        QCOMPARE(m_chosen->count(), 2);
        m_slider->setValue(m_slider->maximum());
        QTest::keyClick(m_field, Qt::Key_Up);
        QCOMPARE(m_slider->value(), 6475);
    }

    void theWheelTurnsItOnlyWithTheFocus() {
        turnWheel();
        QCOMPARE(m_slider->value(), 1500);
        m_field->setFocus();
        turnWheel();
        QCOMPARE(m_slider->value(), 1525);
    }

    void isEnabledWithItsSlider() {
        m_slider->setEnabled(false);
        QVERIFY(!m_field->isEnabled());
        m_field->setValue(800); // as an assistive program can
        QCOMPARE(m_slider->value(), 1500);
        QCOMPARE(m_field->value(), 1500);
        m_slider->setEnabled(true);
        QVERIFY(m_field->isEnabled());
        m_window->setEnabled(false);
        m_window->setEnabled(true);
        QVERIFY(m_field->isEnabled());
    }

    void digitsOfOtherScriptsCount() {
        m_field->setFocus();
        m_field->selectAll();
        for (const QChar digit : QStringLiteral("٨٠٠")) {
            QKeyEvent typed(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString(digit));
            QApplication::sendEvent(m_field, &typed);
        }
        QTest::keyClick(m_field, Qt::Key_Return);
        QCOMPARE(m_slider->value(), 800);
    }

    void aScaleNamesTheSlidersValues() {
        NumberField tenths;
        tenths.join(*m_slider, {.numberOfValue = [](int value) { return value / 10; },
                                   .valueOfNumber = [](int number) { return number * 10; }});
        QCOMPARE(tenths.value(), 150);
        QCOMPARE(tenths.minimum(), 10);
        tenths.setValue(200);
        QCOMPARE(m_slider->value(), 2000);
        QCOMPARE(m_field->value(), 2000);
    }

    void aFormatWithoutAPlaceShowsTheNumberAlone() {
        m_field->setFormat(QStringLiteral("DPI"));
        QCOMPARE(m_field->text(), QStringLiteral("1500"));
        m_field->setFormat(QStringLiteral("± %d %"));
        QCOMPARE(m_field->text(), QStringLiteral("± 1500 %"));
        QCOMPARE(m_field->format(), QStringLiteral("± %d %"));
    }

    /// Both undo what was typed and, where nothing is, what the panel did.
    void undoGoesOnToThePanelWhenNothingIsTyped() {
        class Keys : public QObject {
          public:
            int undone = 0;
            bool eventFilter(QObject* /*watched*/, QEvent* event) override {
                undone += event->type() == QEvent::KeyPress &&
                          static_cast<QKeyEvent*>(event)->matches(QKeySequence::Undo);
                return false;
            }
        } keys;
        type("24");
        m_window->installEventFilter(&keys);
        QTest::keySequence(m_field, QKeySequence::Undo);
        QCOMPARE(keys.undone, 0);
        QTest::keyClick(m_field, Qt::Key_Return);
        const int before = keys.undone;
        m_field->findChild<QLineEdit*>()->setText(m_field->text()); // forgets what was typed
        QTest::keySequence(m_field, QKeySequence::Undo);
        QCOMPARE(keys.undone, before + 1);
    }

  private:
    void type(const char* text) {
        m_field->setFocus();
        m_field->selectAll();
        QTest::keyClicks(m_field, text);
    }
    void turnWheel() {
        const QPointF middle = QRectF(m_field->rect()).center();
        QWheelEvent turn(middle, m_field->mapToGlobal(middle.toPoint()), {}, {0, 120}, Qt::NoButton,
            Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(m_field, &turn);
    }

    std::unique_ptr<QWidget> m_window;
    std::unique_ptr<QSignalSpy> m_chosen;
    KyvarQuorviSlider* m_slider = nullptr;
    NumberField* m_field = nullptr;
};

QUORVI_WIDGET_TEST_MAIN(NumberFieldTest)
#include "NumberFieldTest.moc"
