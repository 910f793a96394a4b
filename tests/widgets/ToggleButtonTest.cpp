// The button that records.
#include "widgets/ToggleButton.h"

#include <QTest>

#include "widgets/WidgetTestMain.h"

using namespace quorvi;

class ToggleButtonTest : public QObject {
    Q_OBJECT

  private slots:
    void cleanup() { QGuiApplication::setLayoutDirection(Qt::LeftToRight); }

    void looksTheSameWhateverTheApplicationsDirection_data() {
        QTest::addColumn<Qt::LayoutDirection>("direction");
        QTest::newRow("from the left") << Qt::LeftToRight;
        QTest::newRow("from the right") << Qt::RightToLeft;
    }

    void looksTheSameWhateverTheApplicationsDirection() {
        QFETCH(Qt::LayoutDirection, direction);
        ToggleButton button(nullptr);
        QPixmap dot(16, 16);
        dot.fill(Qt::red);
        button.setIcon(dot);
        button.setText(QStringLiteral("تسجيل"));
        button.setLayoutDirection(direction);
        button.resize(160, 32);
        const QImage before = button.grab().toImage();
        QGuiApplication::setLayoutDirection(Qt::RightToLeft);
        QCOMPARE(button.grab().toImage(), before);
    }
};

QUORVI_WIDGET_TEST_MAIN(ToggleButtonTest)
#include "ToggleButtonTest.moc"
