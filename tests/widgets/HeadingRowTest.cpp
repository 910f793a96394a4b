#include "widgets/HeadingRow.h"

#include "widgets/LineLabel.h"
#include "widgets/Metrics.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;

class HeadingRowTest : public QObject {
    Q_OBJECT

  private slots:
    void init() {
        m_heading.setText("Save and export");
        m_count.setText("12 of 16 steps · 1.8 s");
        m_count.setShortText("12 of 16");
        m_row.setLayoutDirection(Qt::LeftToRight);
        m_row.resize(m_row.sizeHint());
        m_row.show();
    }

    void theCountTakesAShorterFormBeforeTheHeadingIsCut() {
        QCOMPARE(m_count.shownText(), m_count.text());
        m_row.resize(m_row.sizeHint().width() - 10, m_row.height());
        QCOMPARE(m_count.shownText(), QStringLiteral("12 of 16 steps"));
        m_row.resize(m_heading.sizeHint().width() + metrics::rowGap + m_count.leastWidth(), m_row.height());
        QCOMPARE(m_count.shownText(), QStringLiteral("12 of 16"));
        QCOMPARE(m_heading.shownText(), m_heading.text());
        m_row.resize(m_row.minimumSizeHint());
        QCOMPARE(m_count.shownText(), QStringLiteral("12 of 16"));
        QVERIFY(m_heading.shownText().startsWith("Sav"));
        QVERIFY(m_heading.shownText() != m_heading.text());
    }

    void aGapStaysBetweenThemInEitherDirection() {
        for (const int width : {m_row.minimumSizeHint().width(), m_row.sizeHint().width(), 600}) {
            m_row.resize(width, m_row.height());
            m_row.setLayoutDirection(Qt::LeftToRight);
            QCOMPARE(m_heading.x(), 0);
            QCOMPARE(m_count.x(), m_heading.geometry().right() + 1 + metrics::rowGap);
            QVERIFY(m_row.rect().contains(m_count.geometry()));
            m_row.setLayoutDirection(Qt::RightToLeft);
            QCOMPARE(m_heading.geometry().right(), m_row.width() - 1);
            QCOMPARE(m_count.geometry().right() + 1 + metrics::rowGap, m_heading.x());
        }
    }

    void aLongerCountTakesItsRoomAtOnce() {
        m_row.resize(m_row.sizeHint());
        const int before = m_count.width();
        m_count.setText("12 of 16 steps · 11.8 s");
        m_row.resize(m_row.sizeHint());
        QTRY_VERIFY(m_count.width() > before);
        QCOMPARE(m_count.shownText(), m_count.text());
    }

  private:
    HeadingRow m_row;
    LineLabel m_heading{&m_row};
    LineLabel m_count{&m_row};
};

QUORVI_WIDGET_TEST_MAIN(HeadingRowTest)
#include "HeadingRowTest.moc"
