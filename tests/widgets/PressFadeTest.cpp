#include "widgets/PressFade.h"

#include <QProxyStyle>

#include "widgets/MouseView.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;

namespace {

/// Moves for that long, as a desktop asks for it.
class MovingStyle : public QProxyStyle {
  public:
    explicit MovingStyle(int duration) : QProxyStyle(QStringLiteral("Fusion")), m_duration(duration) {}
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
        QStyleHintReturn* data) const override {
        return hint == SH_Widget_Animation_Duration ? m_duration
                                                    : QProxyStyle::styleHint(hint, option, widget, data);
    }

  private:
    int m_duration;
};

} // namespace

class PressFadeTest : public QObject {
    Q_OBJECT

  private slots:
    void theNumberOfAPressedInputFades() {
        QApplication::setStyle(new MovingStyle(100));
        MouseView view;
        const PressFade fade(view, view.marks());
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        view.reportInput(4, true);
        QCOMPARE(fade.left(4), 0.0); // it is pressed, and drawn so
        view.reportInput(4, false);
        const qreal left = fade.left(4);
        QVERIFY(left > 0 && left <= 1);
        QCOMPARE(fade.left(5), 0.0);
        QTRY_VERIFY(fade.left(4) < left);
        QTRY_COMPARE(fade.left(4), 0.0);
    }

    void aPressEndsTheFading() {
        QApplication::setStyle(new MovingStyle(100));
        MouseView view;
        const PressFade fade(view, view.marks());
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        view.reportInput(4, true);
        view.reportInput(4, false);
        view.reportInput(4, true);
        QCOMPARE(fade.left(4), 0.0);
    }

    void whereTheDesktopAsksForLessMotionNothingFades() {
        QApplication::setStyle(new MovingStyle(0));
        MouseView view;
        const PressFade fade(view, view.marks());
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        const QImage before = view.grab().toImage();
        view.reportInput(4, true);
        QVERIFY(view.grab().toImage() != before);
        view.reportInput(4, false);
        QCOMPARE(fade.left(4), 0.0);
        QCOMPARE(view.grab().toImage(), before);
    }
};

QUORVI_WIDGET_TEST_MAIN(PressFadeTest)
#include "PressFadeTest.moc"
