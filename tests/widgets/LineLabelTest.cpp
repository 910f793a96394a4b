#include "widgets/LineLabel.h"

#include <QLineEdit>

#include <array>

#include "widgets/WidgetTestMain.h"

using namespace quorvi;

/// What is measured once is what a label says that measures three times.
class LineLabelTest : public QObject {
    Q_OBJECT

  private slots:
    void init() {
        for (QLabel* label : labels()) {
            label->setFont(QFont());
            label->setMinimumSize(0, 0);
        }
    }

    void isAsLargeAsTheInheritedLabel() {
        for (const char* text :
            {"", " ", "X", "Left button", "&3  Wheel button", "Fast && loud", "Two\nlines"})
            compare(text);
        compare(QString(QChar(0x5DE)) + QChar(0x5D5));
    }

    void withABuddyTheMarkOfAKeyTakesNoRoom() {
        QLineEdit buddy;
        compare("&Macros");
        const int before = m_line.sizeHint().width();
        for (QLabel* label : labels())
            label->setBuddy(&buddy);
        for (const char* text : {"&Macros", "&3  Wheel button", "Fast && loud", "Macros"})
            compare(text);
        compare("&Macros");
        QVERIFY(m_line.sizeHint().width() < before);
    }

    void isNeverSmallerThanItsMinimum() {
        for (QLabel* label : labels())
            label->setMinimumSize(300, 50);
        compare("X");
        QCOMPARE(m_line.sizeHint(), QSize(300, 50));
    }

    void followsItsFont() {
        compare("Left button");
        const int before = m_line.sizeHint().width();
        QFont large;
        large.setPointSizeF(large.pointSizeF() * 2);
        for (QLabel* label : labels())
            label->setFont(large);
        compare("Left button");
        QVERIFY(m_line.sizeHint().width() > before);
    }

    void aNarrowLabelGivesUpTheMarkOfItsKeyFirst_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("shown");
        QTest::newRow("in the word") << "12 of 16 s&teps"
                                     << "12 of 16 steps";
        QTest::newRow("of a sign") << "12 of 16 && more"
                                   << "12 of 16 & more";
        QTest::newRow("behind the word") << "12 of 16 X (&T) · 1.8 s"
                                         << "12 of 16 X · 1.8 s";
    }

    void aNarrowLabelGivesUpTheMarkOfItsKeyFirst() {
        QFETCH(QString, text);
        QFETCH(QString, shown);
        QLineEdit buddy;
        m_line.setBuddy(&buddy);
        m_line.setText(text);
        m_line.resize(m_line.fontMetrics().horizontalAdvance(shown) + 1, 20);
        QCOMPARE(m_line.shownText(), shown);
        m_line.setBuddy(nullptr);
    }

    void aCutTextRunsInTheDirectionOfItsLabelWhateverTheHostsIs() {
        LineLabel label;
        label.setLayoutDirection(Qt::RightToLeft);
        label.setText(QStringLiteral("12 من 16 خطوة"));
        label.resize(label.sizeHint().width() * 3 / 4, 24);
        QVERIFY(label.shownText().startsWith("12") && label.shownText() != label.text());
        const QImage inAnotherHost = label.grab().toImage();
        QGuiApplication::setLayoutDirection(Qt::RightToLeft);
        const QImage inOurs = label.grab().toImage();
        QGuiApplication::setLayoutDirection(Qt::LeftToRight);
        QCOMPARE(inAnotherHost, inOurs);
    }

    void aNarrowLabelGivesUpItsLastPartBeforeItCutsOne() {
        const QString part = QStringLiteral("12 of 16 steps");
        m_line.setText(part + QStringLiteral(" · 1.8 s"));
        m_line.resize(m_line.fontMetrics().horizontalAdvance(part) + 1, 20);
        QCOMPARE(m_line.shownText(), part);
        m_line.resize(m_line.width() - 20, 20);
        QVERIFY(part.startsWith(m_line.shownText().chopped(1)));
        QVERIFY(m_line.shownText().endsWith(QChar(0x2026)));
    }

    void theShortFormStandsForATextThatDoesNotFit() {
        LineLabel label;
        label.setText("12 of 16 steps · 1.8 s");
        QCOMPARE(label.leastWidth(), label.fontMetrics().horizontalAdvance("12 of 16 steps"));
        label.setShortText("12 of 16");
        QCOMPARE(label.leastWidth(), label.fontMetrics().horizontalAdvance("12 of 16"));
        label.resize(label.leastWidth(), 20);
        QCOMPARE(label.shownText(), QStringLiteral("12 of 16"));
        label.resize(label.leastWidth() / 2, 20);
        QVERIFY(label.shownText().startsWith("1") && label.shownText().endsWith(QChar(0x2026)));
        label.resize(label.sizeHint());
        QCOMPARE(label.shownText(), label.text());
    }

  private:
    std::array<QLabel*, 2> labels() { return {&m_plain, &m_line}; }

    void compare(const QString& text) {
        for (QLabel* label : labels())
            label->setText(text);
        QCOMPARE(m_line.sizeHint(), m_plain.sizeHint());
        if (text == text.trimmed()) // the least that blanks at the end take is nothing
            QCOMPARE(m_line.minimumSizeHint(), m_plain.minimumSizeHint());
    }

    QLabel m_plain;
    LineLabel m_line;
};

QUORVI_WIDGET_TEST_MAIN(LineLabelTest)
#include "LineLabelTest.moc"
