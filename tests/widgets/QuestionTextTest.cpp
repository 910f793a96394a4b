#include "widgets/QuestionText.h"

#include "widgets/Metrics.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;

/// A question whose first line is its heading.
class QuestionTextTest : public QObject {
    Q_OBJECT

  private slots:
    void theFirstLineIsTheHeading() {
        QuestionText question;
        question.setText(QStringLiteral("Delete profile: Games\n\nAre you sure?\n\nMacros stay."));
        QCOMPARE(question.heading(), QStringLiteral("Delete profile: Games"));
        QCOMPARE(question.rest(), QStringLiteral("Are you sure?\n\nMacros stay."));
        QVERIFY(question.text().contains(QStringLiteral("\n\nAre you sure?"))); // whole, for screen readers
    }

    void aQuestionOfOneLineIsAllHeading() {
        QuestionText question;
        question.setText(QStringLiteral("Are you sure?"));
        QCOMPARE(question.heading(), QStringLiteral("Are you sure?"));
        QCOMPARE(question.rest(), QString());
        QFont bold = question.font();
        bold.setBold(true);
        QCOMPARE(question.heightForWidth(400), QFontMetrics(bold).boundingRect("Are you sure?").height());
    }

    void isHighEnoughForBoth() {
        QuestionText question;
        question.setMinimumWidth(200);
        question.setText(QStringLiteral("One"));
        const int one = question.sizeHint().height();
        question.setText(QStringLiteral("One\n\nTwo"));
        const int both = question.sizeHint().height();
        QVERIFY(both >= one + metrics::rowGap + question.fontMetrics().height() - 2);
        question.setText("One\n\n" + QString("Two words ").repeated(20));
        QVERIFY(question.sizeHint().height() > both);
        QVERIFY(question.heightForWidth(100) > question.heightForWidth(400));
    }

    void onlyTheHeadingIsBold() {
        const auto inkOf = [](const QString& text, int from, int to) {
            QuestionText question;
            question.setText(text);
            question.resize(300, 80);
            const QImage image = question.grab(QRect(0, from, 300, to - from)).toImage();
            int inked = 0;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    inked += image.pixelColor(x, y) != image.pixelColor(299, 0);
            return inked;
        };
        const QString line = QStringLiteral("MMMMMM");
        const int half = QuestionText().fontMetrics().height() + metrics::rowGap / 2;
        const QString text = line + "\n\n" + line;
        QVERIFY(inkOf(text, 0, half) > inkOf(text, half, 80));
        QVERIFY(inkOf(text, half, 80) > 0);
    }
};

QUORVI_WIDGET_TEST_MAIN(QuestionTextTest)
#include "QuestionTextTest.moc"
