#include "widgets/FaultLine.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "widgets/WidgetTestMain.h"

using namespace quorvi;

class FaultLineTest : public QObject {
    Q_OBJECT

  private slots:
    void theButtonStandsBelowATextThatItWouldSqueeze() {
        QWidget page;
        QVBoxLayout layout(&page);
        auto* line = new FaultLine;
        layout.addWidget(line);
        layout.addStretch();
        page.resize(900, 300);
        page.show();
        line->say("Step 12 is the last one, so nothing waits for its delay.", "Remove the Delay");
        const auto* text = line->findChild<QLabel*>("textFault");
        const auto* button = line->findChild<QPushButton*>("quorviButtonMend");
        QTRY_VERIFY(button->x() > text->geometry().right());
        QVERIFY(line->height() < text->fontMetrics().lineSpacing() + button->height());

        page.resize(320, 300);
        QTRY_VERIFY(button->y() > text->geometry().bottom());
        QCOMPARE(button->x(), text->x());
        QTRY_VERIFY(text->height() >= text->heightForWidth(text->width()));
        QVERIFY(button->width() < text->width());

        page.resize(900, 300);
        QTRY_VERIFY(button->x() > text->geometry().right());
    }

    void aTextWithoutAButtonHasTheWholeLine() {
        FaultLine line;
        line.resize(320, 60);
        line.say("“Wheel up” runs this macro, which has no steps yet.", {});
        line.show();
        const auto* text = line.findChild<QLabel*>("textFault");
        QTRY_VERIFY(text->width() > 270);
        QVERIFY(!line.findChild<QPushButton*>("quorviButtonMend")->isVisible());
    }
};

QUORVI_WIDGET_TEST_MAIN(FaultLineTest)
#include "FaultLineTest.moc"
